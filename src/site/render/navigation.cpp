#include "site/render/navigation.h"

#include "base/text_escape.h"
#include "site/link/addresses.h"
#include "site/render/page_text.h"

#include <algorithm>

namespace tavidoc {

namespace {

constexpr std::size_t s_titleLimit = 80; // characters
constexpr std::size_t s_itemTags = 40;   // bytes: the tags of an item, at most

constexpr std::string_view s_break = "<wbr>";

/// \a title as HTML that may be broken between the parts of a qualified name.
std::string breakableTitle(std::string_view title)
{
    std::string html = escapedText(shortened(title, s_titleLimit));
    for (std::size_t at = 0; (at = html.find("::", at)) != std::string::npos;) {
        at += 2;
        html.insert(at, s_break);
    }
    return html;
}

std::size_t sizeOf(const NavigationEntry &entry)
{
    const auto colons = static_cast<std::size_t>(std::ranges::count(entry.target.title, ':'));
    return entry.target.title.size() + colons * s_break.size() + entry.target.address.size() + s_itemTags;
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

void appendEntry(std::string &html, std::string_view page, const NavigationEntry &entry)
{
    if (entry.isGap) {
        const LinkTarget more{"\u2026", entry.target.address};
        return appendLink(html, page, more, " aria-label=\"More pages\"");
    }
    appendLink(html, page, entry.target, entry.isCurrent ? " aria-current=\"page\"" : "");
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

void appendLink(std::string &html, std::string_view page, const LinkTarget &target, std::string_view attributes)
{
    const std::string title = breakableTitle(target.title);
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
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (!isShown[index])
            continue;
        list.item(entries[index].depth);
        appendEntry(html, page, entries[index]);
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
