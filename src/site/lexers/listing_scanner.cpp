#include "site/lexers/listing_scanner.h"

#include <algorithm>

namespace tavidoc {

std::size_t ListingScanner::lineEnd(std::size_t from) const
{
    return std::min(m_text.find('\n', from), m_text.size());
}

std::size_t ListingScanner::after(std::string_view closing, std::size_t from) const
{
    const std::size_t at = m_text.find(closing, from);
    return at == std::string_view::npos ? m_text.size() : at + closing.size();
}

std::size_t ListingScanner::afterBlanks(std::size_t from) const
{
    return whileIs([](char c) { return c == ' ' || c == '\t'; }, from);
}

std::size_t ListingScanner::afterQuoted(std::string_view quote, std::size_t from, bool hasEscapes,
                                        bool mayHaveLines) const
{
    for (std::size_t at = from; at < m_text.size(); ++at) {
        if (hasEscapes && m_text[at] == '\\' && (mayHaveLines || charAt(at + 1) != '\n'))
            ++at;
        else if (m_text.substr(at).starts_with(quote))
            return at + quote.size();
        else if (!mayHaveLines && m_text[at] == '\n')
            return at;
    }
    return m_text.size();
}

void ListingScanner::takeTo(std::size_t end, ListingStyle style)
{
    end = std::min(end, m_text.size());
    if (end <= m_at)
        return;
    if (!m_runs.empty() && m_runs.back().style == style)
        m_runs.back().end = end;
    else
        m_runs.push_back({end, style});
    m_at = end;
}

bool isOneOf(std::string_view word, std::span<const std::string_view> words)
{
    return std::ranges::find(words, word) != words.end();
}

std::size_t afterNumber(const ListingScanner &scanner, std::size_t from)
{
    std::size_t at = from;
    if (scanner.charAt(at) == '-' || scanner.charAt(at) == '+')
        ++at;
    const bool beginsWithDot = scanner.charAt(at) == '.' && isDigit(scanner.charAt(at + 1));
    if (!isDigit(scanner.charAt(at)) && !beginsWithDot)
        return from;
    const bool isHexadecimal = scanner.charAt(at) == '0' && (scanner.charAt(at + 1) | 0x20) == 'x';
    for (;; ++at) {
        const char c = scanner.charAt(at);
        const char before = scanner.charAt(at == 0 ? 0 : at - 1);
        const bool isExponentSign = (c == '-' || c == '+') && (before | 0x20) == 'e' && !isHexadecimal && at > from + 1;
        if (!isWordCharacter(c) && c != '.' && !isExponentSign)
            return at;
    }
}

} // namespace tavidoc
