#pragma once

#include "base/text_map.h"

#include <QDomElement>

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The way to an action through the menus.
struct MenuPath
{
    std::string path; ///< plain text, not escaped; empty when there is none
    std::vector<std::string> warnings;
};

/// How a reader is told to invoke an action.
struct ChoosePhrase
{
    std::string html;
    std::string errorLine; ///< the whole line, line end included; empty when all is well
    std::vector<std::string> warnings;
};

/// What the definitions say about actions: their texts and keys, and their place in the menus.
/// All text is UTF-8, names are exact. Looking something up prints nothing and takes constant
/// time, but for the length of the path.
class ActionNames
{
public:
    /// Takes in the menus, the message schemes and the key schemes below \a root, which stays
    /// in its document for as long as paths are asked for. Of several menu items of an action
    /// the first holds, of several texts the last.
    void add(const QDomElement &root);

    /// Whether anything of a kind has been taken in.
    [[nodiscard]] bool hasMenuItems() const { return !m_menuItems.empty(); }
    [[nodiscard]] bool hasMessages() const { return m_hasMessages; }
    [[nodiscard]] bool hasKeys() const { return m_hasKeys; }

    /// The text under \a key, an action's name, "." and "text", "tip" or "key"; empty when absent.
    [[nodiscard]] std::string_view lookup(std::string_view key) const;

    /// The captions of the menus down to \a action and the action's own text, joined by " > ".
    [[nodiscard]] MenuPath menuPath(std::string_view action) const;

    /// The phrase made of \a menuVerb and the path, \a keyVerb and the key, or both; the verbs
    /// are written as given, except that \a keyVerb is in lower case where it is the second.
    [[nodiscard]] ChoosePhrase choosePhrase(std::string_view action, std::string_view menuVerb,
                                            std::string_view keyVerb) const;

private:
    void addMenu(const QDomElement &menu);
    void addScheme(const QDomElement &scheme);
    [[nodiscard]] const std::string *text(std::string_view action, std::string_view tag) const;

    TextMap<std::string> m_texts;
    TextMap<QDomElement> m_menuItems;
    bool m_hasMessages = false;
    bool m_hasKeys = false;
};

} // namespace tavidoc
