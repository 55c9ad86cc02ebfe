#include "site/render/body_edits.h"

#include "base/white_space.h"

#include <algorithm>

namespace tavidoc {

namespace {

/// True for the characters of a tag's or attribute's name.
bool isNameCharacter(char c)
{
    return !isSpace(c) && c != '=' && c != '>' && c != '/' && c != '"' && c != '\'' && c != '<';
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

std::string edited(std::string_view body, BodyEdits edits)
{
    std::ranges::stable_sort(edits, {}, &BodyEdit::offset);
    std::string html;
    html.reserve(body.size() + 64 * edits.size());
    std::size_t done = 0;
    for (const BodyEdit &edit : edits) {
        if (edit.offset < done || edit.offset > body.size() || edit.removed > body.size() - edit.offset)
            continue;
        html += body.substr(done, edit.offset - done);
        html += edit.inserted;
        done = edit.offset + edit.removed;
    }
    return html.append(body.substr(done));
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

} // namespace tavidoc
