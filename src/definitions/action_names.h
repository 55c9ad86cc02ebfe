#pragma once

#include "base/text_map.h"
#include "definitions/xml_tree.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// The path to an action through the menus.
struct MenuPath
{
    std::string path; ///< plain text, not escaped; empty when there is none
    std::vector<std::string> warnings;
};

/// How to invoke an action.
struct ChoosePhrase
{
    std::string path;                  ///< through the menus: plain text, not escaped; empty when there is none
    std::string_view key;              ///< not escaped; empty when there is none
    std::string error;                 ///< why there is neither; else empty
    std::vector<std::string> warnings; ///< about the path
};

/// Actions as the definitions describe them: their texts and keys, and their place in the menus.
/// All text is UTF-8; names are compared exactly. Lookups take constant time, apart from the length
/// of a path. Views that they return live as long as the definitions.
class ActionNames
{
public:
    /// Adds the menus, the message schemes and the key schemes below \a root, whose tree must
    /// outlive this object. The first menu item of an action counts, and the last of its texts.
    void add(const XmlElement &root);

    /// Whether any definition of the kind has been added.
    [[nodiscard]] bool hasMenuItems() const { return !m_menuItems.empty(); }
    [[nodiscard]] bool hasMessages() const { return m_hasMessages; }
    [[nodiscard]] bool hasKeys() const { return m_hasKeys; }

    /// The text of \a key, which is an action's name, "." and "text", "tip" or "key"; empty when absent.
    [[nodiscard]] std::string_view lookup(std::string_view key) const;

    /// The captions of the menus down to \a action and the action's own text, joined by " > ".
    [[nodiscard]] MenuPath menuPath(std::string_view action) const;

    /// The path and the key of \a action.
    [[nodiscard]] ChoosePhrase choosePhrase(std::string_view action) const;

private:
    void addMenu(const XmlElement &menu);
    void addScheme(const XmlElement &scheme);
    [[nodiscard]] std::string_view expanded(std::string_view text);
    [[nodiscard]] const std::string_view *text(std::string_view action, std::string_view tag) const;

    TextMap<std::string_view> m_texts; // by action, "." and tag; views of the tree and of m_expanded
    std::deque<std::string> m_expanded;
    std::unordered_map<std::string_view, XmlElement> m_menuItems; // by action
    bool m_hasMessages = false;
    bool m_hasKeys = false;
};

} // namespace tavidoc
