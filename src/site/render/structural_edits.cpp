#include "base/white_space.h"
#include "site/record/html_tags.h"
#include "site/render/body_edits.h"

#include <algorithm>
#include <string>

namespace tavidoc {

namespace {

constexpr std::string_view s_errorMarker = "***ERROR";
constexpr std::string_view s_unassignedRow =
    R"(<tr bgcolor="#cccccc"><td valign="center" colspan="2" style="CellTitle"><b>*** UNASSIGNED GROUP ***</b>)";

/// One pass over the tags of a body.
class StructureScan
{
public:
    explicit StructureScan(std::string_view body) : m_body(body) {}

    [[nodiscard]] BodyEdits edits() &&;

private:
    /// Handles the tag \a name that begins at \a begin and ends before \a end. Returns where the scan goes on.
    std::size_t tag(std::string_view name, std::size_t begin, std::size_t end);
    void text(std::size_t begin, std::size_t end);
    void openTable(std::size_t begin);
    void closeTable(std::size_t end);
    std::size_t listing(std::size_t begin, std::size_t textBegin);
    void openNumberedList(std::size_t begin, std::size_t end);
    void listTag(std::string_view name, std::size_t begin, std::size_t end);
    void picture(std::size_t begin);
    void insert(std::size_t offset, std::string inserted) { m_edits.push_back({offset, 0, std::move(inserted)}); }

    std::string_view m_body;
    BodyEdits m_edits;
    std::size_t m_tableDepth = 0;
    std::size_t m_tableEdit = 0; // the index of the edit that opens the box of the outermost table
    std::size_t m_listDepth = 0;
    std::size_t m_items = 0;       // of the numbered list, with those of the lists that it continues
    bool m_isContinuable = false;  // a numbered list was closed, and only listings have followed
    bool m_isQuoted = false;       // in "tt", "code" or "a", where a marker is not that of an error here
    bool m_isCode = false;         // in a script or style
    bool m_hasOpenListing = false; // a listing is not closed, so no later one is
};

BodyEdits StructureScan::edits() &&
{
    HtmlTags tags(m_body);
    std::size_t done = 0;
    while (tags.next()) {
        const HtmlTag &found = tags.tag();
        text(done, found.begin);
        done = found.end;
        if (found.name.empty())
            continue;
        // As it is written: only in small letters do tags count, since those of the generator are.
        const std::size_t length = found.name.size() + (found.isClosing ? 1 : 0);
        done = tag(m_body.substr(found.begin + 1, length), found.begin, found.end);
        tags.goOnAt(done);
    }
    if (tags.brokenTag() == std::string_view::npos)
        text(done, m_body.size());
    if (m_tableDepth > 0)
        m_edits.erase(m_edits.begin() + static_cast<std::ptrdiff_t>(m_tableEdit));
    return std::move(m_edits);
}

std::size_t StructureScan::tag(std::string_view name, std::size_t begin, std::size_t end)
{
    m_isCode = name == "script" || name == "style";
    if (m_isCode)
        return end;
    if (name == "pre")
        return listing(begin, end);
    if (name == "ol" || name == "/ol" || name == "ul" || name == "/ul" || name == "li" || name == "/li") {
        listTag(name, begin, end);
        return end;
    }
    if (m_listDepth == 0)
        m_isContinuable = false;
    if (name == "table")
        openTable(begin);
    else if (name == "/table")
        closeTable(end);
    else if (name == "img")
        picture(begin);
    else if (name == "tt" || name == "code" || name == "a")
        m_isQuoted = true;
    else if (name == "/tt" || name == "/code" || name == "/a")
        m_isQuoted = false;
    else if (name == "tr" && m_body.substr(begin).starts_with(s_unassignedRow))
        insert(begin + 3, " hidden");
    return end;
}

void StructureScan::text(std::size_t begin, std::size_t end)
{
    if (m_isCode)
        return;
    const std::string_view text = m_body.substr(begin, end - begin);
    if (m_listDepth == 0 && !std::ranges::all_of(text, isSpace))
        m_isContinuable = false;
    if (m_isQuoted)
        return;
    for (std::size_t at = 0; (at = text.find(s_errorMarker, at)) != std::string_view::npos;) {
        std::size_t after = text.find("***", at + s_errorMarker.size());
        if (after == std::string_view::npos)
            return;
        after += 3;
        if (text.substr(after).starts_with(" \\"))
            after = std::min(text.find_first_of(" \t\r\n", after + 1), text.size());
        insert(begin + at, "<strong class=\"error\">");
        insert(begin + after, "</strong>");
        at = after;
    }
}

void StructureScan::openTable(std::size_t begin)
{
    if (m_tableDepth++ > 0)
        return;
    m_tableEdit = m_edits.size();
    insert(begin, "<div class=\"box\">");
}

void StructureScan::closeTable(std::size_t end)
{
    if (m_tableDepth > 0 && --m_tableDepth == 0)
        insert(end, "</div>");
}

/// Handles the listing whose first tag begins at \a begin and ends before \a textBegin.
std::size_t StructureScan::listing(std::size_t begin, std::size_t textBegin)
{
    constexpr std::string_view closing = "</pre>";
    const std::size_t textEnd = m_hasOpenListing ? std::string_view::npos : m_body.find(closing, textBegin);
    m_hasOpenListing = textEnd == std::string_view::npos;
    if (m_hasOpenListing) {
        m_isContinuable = m_isContinuable && m_listDepth > 0;
        return textBegin;
    }
    const std::size_t end = textEnd + closing.size();
    if (m_tableDepth == 0) {
        insert(begin, "<div class=\"listing\">");
        insert(end, "</div>");
    }
    return end;
}

void StructureScan::listTag(std::string_view name, std::size_t begin, std::size_t end)
{
    if (name == "ol" && m_listDepth == 0)
        openNumberedList(begin, end);
    else if (name == "ul" && m_listDepth == 0)
        m_items = 0;
    else if (name == "li" && m_listDepth == 1)
        ++m_items;
    if (name == "ol" || name == "ul")
        ++m_listDepth;
    else if ((name == "/ol" || name == "/ul") && m_listDepth > 0 && --m_listDepth == 0)
        m_isContinuable = name == "/ol";
}

void StructureScan::openNumberedList(std::size_t begin, std::size_t end)
{
    if (m_isContinuable && m_items > 0 && end == begin + 4)
        insert(begin + 3, " start=\"" + std::to_string(m_items + 1) + "\"");
    else
        m_items = 0;
}

void StructureScan::picture(std::size_t begin)
{
    if (!attributeValue(m_body, begin, "alt").found)
        insert(begin + 4, " alt=\"\"");
}

} // namespace

BodyEdits structuralEdits(std::string_view body)
{
    return StructureScan(body).edits();
}

} // namespace tavidoc
