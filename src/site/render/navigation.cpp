#include "site/render/navigation.h"

#include "base/text_escape.h"
#include "site/link/addresses.h"
#include "site/render/page_text.h"

#include <algorithm>

namespace tavidoc {

namespace {

constexpr std::size_t s_titleLimit = 80; // characters
constexpr std::size_t s_itemTags = 40;   // bytes: the tags of an item, at most

constexpr std::size_t s_breakSize = 5; // bytes: of "<wbr>"

std::size_t sizeOf(const NavigationEntry &entry)
{
    const std::size_t breaks = breakableParts(entry.target.title).size() - 1;
    return entry.target.title.size() + breaks * s_breakSize + entry.target.address.size() + s_itemTags;
}

/// The entries that are shown: those closest to the current one, and all ancestors.
std::vector<bool> entriesWithin(const std::vector<NavigationEntry> &entries, std::size_t limit)
{
    std::vector<bool> isShown(entries.size());
    std::size_t size = 0;
    const auto show = [&](std::size_t index) {
        size += sizeOf(entries[index]);
        isShown[index] = true;
    };
    std::size_t first = 0; // of the entries around the current one that are shown
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (entries[index].isAncestor || entries[index].isCurrent)
            show(index);
        if (entries[index].isCurrent)
            first = index;
    }
    for (std::size_t end = first; size < limit && (first > 0 || end < entries.size());) {
        if (end < entries.size() && !isShown[end])
            show(end);
        if (end < entries.size())
            ++end;
        if (first > 0 && size < limit && !isShown[--first])
            show(first);
    }
    return isShown;
}

void appendEntry(std::string &html, std::string_view page, const NavigationEntry &entry, std::string_view parent)
{
    if (entry.isGap) {
        const LinkTarget more{"\u2026", entry.target.address};
        return appendLink(html, page, more, " aria-label=\"More pages\"");
    }
    appendLink(html, page, {std::string(titleBelow(entry.target.title, parent)), entry.target.address},
               entry.isCurrent ? " aria-current=\"page\"" : "");
}

void appendItem(std::string &html, const RecordHeading &heading)
{
    appendHtml(html, {"<a href=\"#", heading.id, "\">", escapedText(shortened(heading.text, s_titleLimit)), "</a>"});
}

/// The headings below the first level whose level is one of the \a levelCount uppermost.
std::vector<const RecordHeading *> upperHeadings(const std::vector<RecordHeading> &headings, std::size_t levelCount)
{
    std::vector<std::uint8_t> levels;
    for (const RecordHeading &heading : headings) {
        if (heading.level > 1 && std::ranges::find(levels, heading.level) == levels.end())
            levels.push_back(heading.level);
    }
    std::ranges::sort(levels);
    levels.resize(std::min(levels.size(), levelCount));
    std::vector<const RecordHeading *> upper;
    for (const RecordHeading &heading : headings) {
        if (std::ranges::find(levels, heading.level) != levels.end())
            upper.push_back(&heading);
    }
    return upper;
}

std::size_t sizeOf(const std::vector<const RecordHeading *> &headings)
{
    std::size_t size = 0;
    for (const RecordHeading *heading : headings)
        size += heading->id.size() + std::min(heading->text.size(), 4 * s_titleLimit) + s_itemTags;
    return size;
}

} // namespace

std::string shownTitle(std::string_view title)
{
    if (title.size() <= s_titleLimit || title.find(' ') != std::string_view::npos)
        return breakable(shortened(title, s_titleLimit));
    std::string_view name = title;
    while (name.size() > s_titleLimit) {
        const std::size_t separator = name.find("::");
        if (separator == std::string_view::npos || separator + 2 == name.size())
            break;
        name.remove_prefix(separator + 2);
    }
    return breakable((name.size() < title.size() ? "\u2026::" : "") + shortened(name, s_titleLimit));
}

std::string_view titleBelow(std::string_view title, std::string_view parent)
{
    const bool isMember = !parent.empty() && title.starts_with(parent) && title.substr(parent.size()).starts_with("::");
    return isMember && title.size() > parent.size() + 2 ? title.substr(parent.size() + 2) : title;
}

void appendLink(std::string &html, std::string_view page, const LinkTarget &target, std::string_view attributes)
{
    const std::string title = shownTitle(target.title);
    if (target.address.empty())
        return appendHtml(html, {"<span", attributes, ">", title, "</span>"});
    const std::string address = escapedText(relativeAddress(page, target.address));
    appendHtml(html, {"<a href=\"", address, "\"", attributes, ">", title, "</a>"});
}

void appendNavigation(std::string &html, std::string_view page, const std::vector<NavigationEntry> &entries,
                      std::size_t limit)
{
    const std::vector<bool> isShown = entriesWithin(entries, limit);
    NestedList list(html);
    ParentTitles parents;
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (!isShown[index])
            continue;
        list.item(entries[index].depth);
        appendEntry(html, page, entries[index], parents.enter(entries[index].depth, entries[index].target.title));
    }
    list.close();
}

void appendPageContents(std::string &html, const std::vector<RecordHeading> &headings, std::size_t limit)
{
    std::vector<const RecordHeading *> shown = upperHeadings(headings, 2);
    if (sizeOf(shown) > limit)
        shown = upperHeadings(headings, 1);
    while (sizeOf(shown) > limit)
        shown.resize(shown.size() / 2);
    if (shown.size() < 2)
        return;
    html += "<nav class=\"page-contents\" aria-labelledby=\"on-this-page\"><h2 id=\"on-this-page\">On this page</h2>";
    NestedList list(html);
    for (const RecordHeading *heading : shown) {
        list.item(heading->level);
        appendItem(html, *heading);
    }
    list.close();
    html += "</nav>\n";
}

std::string_view ParentTitles::enter(std::size_t depth, std::string_view title)
{
    while (!m_open.empty() && m_open.back().first >= depth)
        m_open.pop_back();
    const std::string_view parent = m_open.empty() ? std::string_view() : m_open.back().second;
    m_open.emplace_back(depth, title);
    return parent;
}

void NestedList::item(std::size_t depth, std::string_view tag)
{
    while (m_depths.size() > 1 && m_depths.back() > depth) {
        m_html += "</li></ul>";
        m_depths.pop_back();
    }
    if (m_depths.empty() || m_depths.back() < depth) {
        m_html += m_depths.empty() ? "<ul>\n" : "\n<ul>\n";
        m_depths.push_back(depth);
    } else {
        m_html += "</li>\n";
    }
    m_html += tag;
}

void NestedList::close()
{
    for (; !m_depths.empty(); m_depths.pop_back())
        m_html += "</li></ul>";
}

} // namespace tavidoc
