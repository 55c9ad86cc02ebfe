#include "markup/markup_cursor.h"

#include "base/byte_search.h"

#include <algorithm>

namespace tavidoc {

bool isBlankLine(std::string_view text, std::size_t offset)
{
    while (offset < text.size() && text[offset] != '\n' && isSpace(text[offset]))
        ++offset;
    return offset < text.size() && text[offset] == '\n';
}

std::size_t BraceMatcher::match(std::size_t opener)
{
    if (opener >= m_scannedEnd)
        scan(opener);
    if (m_next >= m_pairs.size() || m_pairs[m_next].open > opener)
        m_next = 0;
    const auto from = m_pairs.begin() + static_cast<std::ptrdiff_t>(m_next);
    const auto found = std::lower_bound(from, m_pairs.end(), opener,
                                        [](const Pair &pair, std::size_t place) { return pair.open < place; });
    m_next = static_cast<std::size_t>(found - m_pairs.begin());
    return found != m_pairs.end() && found->open == opener ? found->close : s_none;
}

void BraceMatcher::scan(std::size_t opener)
{
    m_pairs.clear();
    m_pending.clear();
    m_next = 0;
    const auto next = [this](std::size_t from) { return findAnyOf<'\\', '{', '}', '\n'>(m_text, from); };
    std::size_t at = opener;
    for (; at < m_text.size(); at = next(at + 1)) {
        const char c = m_text[at];
        if (c == '\\') {
            if (m_text.substr(at + 1, 1) != "\n")
                ++at;
        } else if (c == '{') {
            m_pending.push_back(m_pairs.size());
            m_pairs.push_back({at, s_none});
        } else if (c == '}') {
            m_pairs[m_pending.back()].close = at;
            m_pending.pop_back();
            if (m_pending.empty())
                break;
        } else if (c == '\n' && isBlankLine(m_text, at + 1)) {
            break;
        }
    }
    m_scannedEnd = std::max(at, opener + 1);
}

std::optional<std::size_t> MarkupCursor::argumentEnd()
{
    if (!atBrace())
        return std::nullopt;
    const std::size_t end = m_braces.match(m_offset);
    if (end >= m_limit)
        return std::nullopt;
    return end;
}

std::optional<std::string_view> MarkupCursor::takeArgument()
{
    const std::optional<std::size_t> end = argumentEnd();
    if (!end)
        return std::nullopt;
    const std::string_view argument = m_text.substr(m_offset + 1, *end - m_offset - 1);
    m_offset = *end + 1;
    return argument;
}

std::size_t MarkupCursor::lineEnd() const
{
    const std::size_t length = m_text.substr(m_offset, m_limit - m_offset).find('\n');
    return length == std::string_view::npos ? m_limit : m_offset + length;
}

std::string_view MarkupCursor::takeLine()
{
    skipBlanks();
    const std::size_t end = lineEnd();
    const std::string_view line = m_text.substr(m_offset, end - m_offset);
    m_offset = end;
    return line;
}

std::string_view MarkupCursor::takeCommandName()
{
    const std::size_t begin = ++m_offset;
    const std::string_view rest = m_text.substr(begin, m_limit - begin);
    std::size_t length = 0;
    while (length < rest.size() && isNameCharacter(rest[length]))
        ++length;
    if (length == 0 && !rest.empty() && rest.front() > ' ' && rest.front() < '\x7f') {
        constexpr std::string_view stops = "...";
        length = rest.substr(1, 1) == "-" ? 2 : 1;
        if (rest.starts_with(stops))
            length = stops.size();
    }
    m_offset += length;
    return rest.substr(0, length);
}

void MarkupCursor::skipBlanks()
{
    while (isBlank(peek()))
        ++m_offset;
}

void MarkupCursor::skipBlanksAndLineEnds()
{
    while (isBlank(peek()) || peek() == '\n')
        ++m_offset;
}

void MarkupCursor::skipLineEnd()
{
    if (peek() == '\n')
        ++m_offset;
}

void MarkupCursor::skipSpace()
{
    while (isSpace(peek()))
        ++m_offset;
}

} // namespace tavidoc
