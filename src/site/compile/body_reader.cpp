#include "site/compile/body_reader.h"

#include "base/white_space.h"
#include "site/compile/entities.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

/// The elements inside a line; all others separate words. Sorted.
constexpr std::string_view s_inline[] = {
    "a",    "abbr", "b", "bdi",  "bdo",   "big",  "cite",   "code",   "del", "dfn", "em", "font", "i",   "ins", "kbd",
    "mark", "q",    "s", "samp", "small", "span", "strike", "strong", "sub", "sup", "tt", "u",    "var", "wbr"};
static_assert(std::ranges::is_sorted(s_inline));

/// The elements whose text is not shown.
constexpr std::string_view s_hidden[] = {"script", "style", "template", "title"};

/// The level of the heading \a name; 0 for other elements.
std::uint8_t headingLevel(std::string_view name)
{
    const bool isHeading = name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
    return isHeading ? static_cast<std::uint8_t>(name[1] - '0') : 0;
}

bool isIn(std::span<const std::string_view> names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

/// Appends \a text with each run of white space as one blank, and none after a blank or line end.
void appendCollapsed(std::string &result, std::string_view text)
{
    for (const char c : text) {
        if (!isSpace(c))
            result += c;
        else if (!result.empty() && !isSpace(result.back()))
            result += ' ';
    }
}

} // namespace

BodyReader::Result BodyReader::read()
{
    const std::string_view body = m_page.body;
    m_result.text.reserve(body.size() / 2);
    HtmlTags tags(body);
    std::size_t textBegin = 0;
    while (tags.next()) {
        appendText(body.substr(textBegin, tags.tag().begin - textBegin));
        textBegin = tags.tag().end;
        takeTag(tags.tag());
    }
    appendText(body.substr(textBegin));
    closeHeading();
    endBlock();
    assignIds();
    m_result.names = m_names.takeNames();
    return std::move(m_result);
}

void BodyReader::appendText(std::string_view html)
{
    if (html.empty() || !m_skipped.empty())
        return;
    std::string &text = m_isInHeading ? m_result.headings.back().text : m_result.text;
    if (html.find('&') == std::string_view::npos)
        return appendCollapsed(text, html);
    appendCollapsed(text, decoded(html));
}

/// Ends the line of the text.
void BodyReader::endBlock()
{
    std::string &text = m_result.text;
    if (text.ends_with(' '))
        text.back() = '\n';
    else if (!text.empty() && text.back() != '\n')
        text += '\n';
}

void BodyReader::takeTag(const HtmlTag &tag)
{
    if (tag.name.empty())
        return;
    if (!m_skipped.empty()) {
        if (tag.isClosing && tag.name == m_skipped)
            m_skipped = {};
        return;
    }
    if (!tag.isClosing) {
        if (const auto *const hidden = std::ranges::find(s_hidden, tag.name); hidden != std::end(s_hidden)) {
            m_skipped = *hidden;
            return;
        }
        noteAnchor(tag);
    }
    if (tag.name == "tt" || tag.name == "pre")
        takeCodeTag(tag);
    if (tag.name == "a")
        m_isInAnchor = !tag.isClosing;
    if (tag.name == "a")
        return tag.isClosing ? closeLink(tag.end) : openLink(tag);
    if (tag.name == "img")
        return tag.isClosing ? void() : takeImage(tag);
    if (headingLevel(tag.name) > 0)
        return tag.isClosing ? closeHeading() : openHeading(tag);
    if (isIn(s_inline, tag.name))
        return;
    if (m_isInHeading)
        appendCollapsed(m_result.headings.back().text, " ");
    else
        endBlock();
}

bool BodyReader::isKnownLink(std::size_t offset)
{
    while (m_nextLink < m_page.links.size() && m_page.links[m_nextLink].offset < offset)
        ++m_nextLink;
    return m_nextLink < m_page.links.size() && m_page.links[m_nextLink].offset == offset;
}

void BodyReader::openLink(const HtmlTag &tag)
{
    closeLink(tag.begin);
    if (isKnownLink(tag.begin))
        return;
    const std::optional<std::string_view> target = attributeOf(tag, "href");
    if (!target)
        return;
    m_isInLink = true;
    m_result.links.push_back({.kind = RecordLink::Kind::Raw,
                              .hasCaption = true,
                              .offset = tag.begin,
                              .length = tag.end - tag.begin,
                              .target = decoded(trimmed(*target)),
                              .page = {},
                              .place = {}});
}

/// Ends the open raw link before \a end.
void BodyReader::closeLink(std::size_t end)
{
    if (m_isInLink)
        m_result.links.back().length = end - m_result.links.back().offset;
    m_isInLink = false;
}

bool BodyReader::isKnownImage(std::size_t offset)
{
    while (m_nextImage < m_page.images.size() && m_page.images[m_nextImage].offset < offset)
        ++m_nextImage;
    return m_nextImage < m_page.images.size() && m_page.images[m_nextImage].offset == offset;
}

void BodyReader::takeImage(const HtmlTag &tag)
{
    const std::optional<std::string_view> source = attributeOf(tag, "src");
    if (!source || source->empty())
        return;
    const auto offset = static_cast<std::size_t>(source->data() - m_page.body.data());
    if (isKnownImage(offset))
        return;
    m_result.images.push_back(
        {.offset = offset, .length = source->size(), .source = decoded(*source), .isIcon = false, .place = {}});
}

void BodyReader::noteAnchor(const HtmlTag &tag)
{
    if (tag.attributes.empty() || tag.attributes.starts_with(" class=\"zkt-code-")) // nearly all
        return;
    if (const auto id = attributeOf(tag, "id"); id && !id->empty())
        m_result.anchors.push_back(decoded(*id));
    if (tag.name != "a")
        return;
    if (const auto name = attributeOf(tag, "name"); name && !name->empty())
        m_result.anchors.push_back(decoded(*name));
}

void BodyReader::openHeading(const HtmlTag &tag)
{
    closeHeading();
    endBlock();
    m_isInHeading = true;
    const auto id = attributeOf(tag, "id");
    m_result.headings.push_back({.offset = tag.begin,
                                 .level = headingLevel(tag.name),
                                 .id = id ? decoded(*id) : std::string(),
                                 .text = {},
                                 .hasId = id && !id->empty()});
}

/// Ends the open heading; one without text is dropped.
void BodyReader::closeHeading()
{
    if (!m_isInHeading)
        return;
    m_isInHeading = false;
    std::string &text = m_result.headings.back().text;
    text = trimmedEnd(text);
    if (text.empty())
        m_result.headings.pop_back();
}

/// Reads the names in the elements "tt" and "pre". A link in a link or in a heading, which is one, is not possible.
void BodyReader::takeCodeTag(const HtmlTag &tag)
{
    if (!tag.isClosing) {
        m_codeTag = m_isInAnchor || m_isInHeading ? std::string_view() : tag.name == "tt" ? "tt" : "pre";
        m_codeBegin = tag.end;
        m_hasAttributes = !tag.attributes.empty();
        return;
    }
    const std::string_view html = m_page.body.substr(m_codeBegin, tag.begin - m_codeBegin);
    if (m_codeTag == tag.name && tag.name == "pre")
        takeListing(html, m_codeBegin);
    else if (m_codeTag == tag.name && !isFileName(m_codeBegin))
        m_names.addText(html, m_codeBegin);
    m_codeTag = {};
}

void BodyReader::takeListing(std::string_view html, std::size_t offset)
{
    if (isCode(offset))
        m_names.addListing(html, offset);
    else if (!m_hasAttributes && !isWrittenAsHtml(offset))
        m_names.addSynopsis(html, offset);
}

/// Whether a listing in C or C++ begins at \a offset.
bool BodyReader::isCode(std::size_t offset)
{
    static constexpr std::string_view languages[] = {"c", "c++", "cc", "cpp", "cxx", "h", "hh", "hpp", "hxx"};
    while (m_nextListing < m_page.listings.size() && m_page.listings[m_nextListing].offset < offset)
        ++m_nextListing;
    return m_nextListing < m_page.listings.size() && m_page.listings[m_nextListing].offset == offset &&
           isIn(languages, m_page.listings[m_nextListing].language);
}

bool BodyReader::isFileName(std::size_t offset)
{
    while (m_nextFileName < m_page.fileNames.size() && m_page.fileNames[m_nextFileName].offset < offset)
        ++m_nextFileName;
    return m_nextFileName < m_page.fileNames.size() && m_page.fileNames[m_nextFileName].offset == offset;
}

bool BodyReader::isWrittenAsHtml(std::size_t offset) const
{
    const auto after = std::ranges::upper_bound(m_page.html, offset, {}, &DocumentHtml::offset);
    return after != m_page.html.begin() && offset < std::prev(after)->offset + std::prev(after)->length;
}

void BodyReader::assignIds()
{
    std::ranges::sort(m_result.anchors);
    m_result.anchors.erase(std::unique(m_result.anchors.begin(), m_result.anchors.end()), m_result.anchors.end());
    HeadingIds ids;
    for (const std::string &anchor : m_result.anchors)
        ids.reserve(anchor);
    for (RecordHeading &heading : m_result.headings) {
        if (!heading.hasId)
            heading.id = ids.idOf(heading.text);
    }
}

} // namespace tavidoc
