#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavidoc {

/// Appends a nested list of \a entries. What does not fit into \a limit bytes is left out, the entries farthest from
/// the page itself first; its ancestors stay.
void appendNavigation(std::string &html, std::string_view page, const std::vector<NavigationEntry> &entries,
                      std::size_t limit);

/// Appends the list of \a headings below the first level, nested to two levels; nothing for fewer than two. A list
/// that is too long has only the upper level, and then only its beginning.
void appendPageContents(std::string &html, const std::vector<RecordHeading> &headings, std::size_t limit);

/// \a title as HTML of at most 80 characters or little more. A qualified name that is too long loses its outer scopes.
[[nodiscard]] std::string shownTitle(std::string_view title);

/// What to show of \a title below an entry with the title \a parent: without its name if that is a scope of it.
[[nodiscard]] std::string_view titleBelow(std::string_view title, std::string_view parent);

/// The titles of the entries around an entry of a tree, whose entries come in their order with their depths.
class ParentTitles
{
public:
    /// Goes to an entry. Returns the title of the one that it is below; empty at the top.
    std::string_view enter(std::size_t depth, std::string_view title);

private:
    std::vector<std::pair<std::size_t, std::string_view>> m_open;
};

/// Appends "<a href=...>title</a>", or the title alone when \a target has no address.
void appendLink(std::string &html, std::string_view page, const LinkTarget &target, std::string_view attributes = {});

/// Writes a nested list whose items come with their depths. Depths may jump; nesting costs no recursion.
class NestedList
{
public:
    explicit NestedList(std::string &html) : m_html(html) {}

    /// Opens an item at \a depth, and lists as needed.
    void item(std::size_t depth, std::string_view tag = "<li>");
    /// Closes everything.
    void close();

private:
    std::string &m_html;
    std::vector<std::size_t> m_depths; // of the open lists
};

} // namespace tavidoc
