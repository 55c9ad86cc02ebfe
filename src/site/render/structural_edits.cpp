#include "base/white_space.h"
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
    [[nodiscard]] bool isTag(std::size_t begin) const;
    void text(std::size_t begin, std::size_t end);
    void openTable(std::size_t begin);
    void closeTable(std::size_t end);
    std::size_t listing(std::size_t begin);
    [[nodiscard]] std::size_t skipTo(std::string_view closing, std::size_t from) const;
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
    bool m_hasOpenListing = false; // a listing is not closed, so no later one is
};

BodyEdits StructureScan::edits() &&
{
    std::size_t done = 0;
    for (;;) {
        const std::size_t begin = m_body.find('<', done);
        text(done, std::min(begin, m_body.size()));
        if (begin == std::string_view::npos)
            break;
        if (m_body.substr(begin).starts_with("<!--")) {
            done = skipTo("-->", begin);
            continue;
        }
        if (!isTag(begin)) {
            done = begin + 1;
            continue;
        }
        const std::size_t nameEnd = std::min(m_body.find_first_of(" \t\r\n>", begin + 1), m_body.size());
        const std::size_t end = tagEnd(m_body, nameEnd);
        if (end == std::string_view::npos)
            break;
        done = tag(m_body.substr(begin + 1, nameEnd - begin - 1), begin, end);
    }
    if (m_tableDepth > 0)
        m_edits.erase(m_edits.begin() + static_cast<std::ptrdiff_t>(m_tableEdit));
    return std::move(m_edits);
}

/// Whether the "<" at \a begin begins a tag, and is not text.
bool StructureScan::isTag(std::size_t begin) const
{
    const std::string_view after = m_body.substr(begin + 1);
    const char first = after.starts_with('/') && after.size() > 1 ? after[1] : after.empty() ? ' ' : after.front();
    return (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
}

std::size_t StructureScan::tag(std::string_view name, std::size_t begin, std::size_t end)
{
    if (name == "pre")
        return listing(begin);
    if (name == "script" || name == "style")
        return skipTo("</" + std::string(name), begin);
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

std::size_t StructureScan::listing(std::size_t begin)
{
    constexpr std::string_view closing = "</pre>";
    const std::size_t end = m_hasOpenListing ? std::string_view::npos : m_body.find(closing, begin);
    m_hasOpenListing = end == std::string_view::npos;
    if (m_hasOpenListing)
        return begin + 1;
    if (m_tableDepth == 0) {
        insert(begin, "<div class=\"listing\">");
        insert(end + closing.size(), "</div>");
    }
    return end + closing.size();
}

std::size_t StructureScan::skipTo(std::string_view closing, std::size_t from) const
{
    const std::size_t at = m_body.find(closing, from);
    return at == std::string_view::npos ? m_body.size() : at + closing.size();
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
