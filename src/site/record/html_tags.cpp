#include "site/record/html_tags.h"

#include "base/white_space.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

/// Elements whose text has no tags but the one that ends it.
constexpr std::string_view s_textElements[] = {"script", "style",  "textarea", "title",
                                               "xmp",    "iframe", "noembed",  "noframes"};

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char smallLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool endsTagName(char c)
{
    return isSpace(c) || c == '>' || c == '/';
}

/// True for the characters of a tag's or attribute's name.
constexpr bool isNameCharacter(char c)
{
    return !endsTagName(c) && c != '=' && c != '"' && c != '\'' && c != '<';
}

std::size_t skipName(std::string_view html, std::size_t at)
{
    while (at < html.size() && isNameCharacter(html[at]))
        ++at;
    return at;
}

std::size_t skipSpaces(std::string_view html, std::size_t at)
{
    while (at < html.size() && isSpace(html[at]))
        ++at;
    return at;
}

/// The value that begins at \a at, after "=" and spaces, without its quotes.
AttributeValue valueAt(std::string_view html, std::size_t at)
{
    if (at < html.size() && (html[at] == '"' || html[at] == '\'')) {
        const std::size_t end = html.find(html[at], at + 1);
        return {at + 1, end == std::string_view::npos ? 0 : end - at - 1, end != std::string_view::npos};
    }
    const std::size_t end = std::min(html.find_first_of(" \t\r\n>", at), html.size());
    return {at, end - at, true};
}

} // namespace

bool HtmlTags::next()
{
    if (!m_tag.isClosing && std::ranges::find(s_textElements, m_tag.name) != std::end(s_textElements))
        skipTextElement();
    for (; (m_at = m_html.find('<', m_at)) != std::string_view::npos; ++m_at) {
        const std::string_view rest = m_html.substr(m_at);
        if (rest.starts_with("<!--"))
            readComment(m_at + 2, "-->"); // "<!-->" is a whole comment
        else if (rest.starts_with("<!") || rest.starts_with("<?"))
            readComment(m_at, ">");
        else if (!readTag())
            continue;
        m_at = m_tag.end;
        return true;
    }
    m_at = m_html.size();
    return false;
}

/// Goes from a tag that begins such an element to the one that ends it. Small and capital letters are the same in it.
void HtmlTags::skipTextElement()
{
    const std::string closing = "</" + m_tag.name;
    const auto isSame = [](char c, char small) { return smallLetter(c) == small; };
    const auto *const begin = m_html.begin() + static_cast<std::ptrdiff_t>(std::min(m_at, m_html.size()));
    // cppcheck-suppress invalidLifetime
    const auto *const found = std::search(begin, m_html.end(), closing.begin(), closing.end(), isSame);
    m_at = static_cast<std::size_t>(found - m_html.begin());
}

/// Reads the comment or declaration that is here, and whose end \a closing is at \a from or after it.
void HtmlTags::readComment(std::size_t from, std::string_view closing)
{
    const std::size_t at = m_html.find(closing, from);
    if (at == std::string_view::npos)
        m_missingEnd = closing;
    m_tag.begin = m_at;
    m_tag.end = at == std::string_view::npos ? m_html.size() : at + closing.size();
    m_tag.name.clear();
    m_tag.isClosing = false;
    m_tag.attributes = {};
}

/// Reads the tag that is here. False if none is; nothing that follows is a tag if this one is not closed.
bool HtmlTags::readTag()
{
    const bool isClosing = m_html.substr(m_at + 1).starts_with('/');
    const std::size_t nameBegin = m_at + (isClosing ? 2 : 1);
    if (nameBegin >= m_html.size() || !isLetter(m_html[nameBegin]))
        return false;
    const std::size_t end = tagEnd(m_html, nameBegin);
    if (end == std::string_view::npos) {
        m_brokenTag = m_at;
        m_at = m_html.size();
        return false;
    }
    const std::string_view inside = m_html.substr(nameBegin, end - 1 - nameBegin);
    const auto *const nameEnd = std::ranges::find_if(inside, endsTagName);
    m_tag.begin = m_at;
    m_tag.end = end;
    m_tag.name.clear();
    std::transform(inside.begin(), nameEnd, std::back_inserter(m_tag.name), smallLetter);
    m_tag.isClosing = isClosing;
    m_tag.attributes = inside.substr(m_tag.name.size());
    return true;
}

std::size_t tagEnd(std::string_view html, std::size_t offset)
{
    for (std::size_t at = offset;;) {
        at = html.find_first_of(">\"'", at);
        if (at == std::string_view::npos)
            return at;
        if (html[at] == '>')
            return at + 1;
        at = html.find(html[at], at + 1);
        if (at == std::string_view::npos)
            return at;
        ++at;
    }
}

AttributeReader::AttributeReader(std::string_view html, std::size_t offset) : m_html(html)
{
    const std::size_t end = tagEnd(html, offset);
    if (end != std::string_view::npos) {
        m_end = end;
        m_at = skipName(html, offset + 1);
    }
}

bool AttributeReader::next()
{
    while (m_at < m_end) {
        m_begin = skipSpaces(m_html, m_at);
        m_nameEnd = skipName(m_html, m_begin);
        m_at = m_nameEnd;
        if (m_nameEnd == m_begin) {
            ++m_at;
            continue;
        }
        m_value = {m_nameEnd, 0, false};
        const std::size_t equals = skipSpaces(m_html, m_nameEnd);
        if (equals >= m_end || m_html[equals] != '=')
            return true;
        m_value = valueAt(m_html, skipSpaces(m_html, equals + 1));
        const char before = m_html[m_value.offset - 1];
        m_at = m_value.offset + m_value.length + (before == '"' || before == '\'' ? 1 : 0);
        return true;
    }
    return false;
}

AttributeValue attributeValue(std::string_view html, std::size_t offset, std::string_view attribute)
{
    for (AttributeReader reader(html, offset); reader.next();) {
        if (reader.name() == attribute)
            return {reader.value().offset, reader.value().length, true};
    }
    return {};
}

std::optional<std::string_view> attributeOf(const HtmlTag &tag, std::string_view name)
{
    for (AttributeReader reader(tag.attributes); reader.next();) {
        if (std::ranges::equal(reader.name(), name, {}, smallLetter))
            return reader.text();
    }
    return std::nullopt;
}

} // namespace tavidoc
