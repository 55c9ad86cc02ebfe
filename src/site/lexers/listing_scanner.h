#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The kinds of runs in listings that only the site colours.
enum class ListingStyle : std::uint8_t
{
    Plain,
    Literal,
    Comment,
    Keyword,
    Markup,
    Control,
    Operator,
    Register,
    Function,
    Attribute,
    Inserted,
    Deleted,
};

/// A run of text in one style.
struct ListingRun
{
    std::size_t end = 0; ///< in the text; the run begins where the one before it ends
    ListingStyle style = ListingStyle::Plain;
};

/// Reads a listing from its beginning to its end, and collects the styles of what was read. Offsets count bytes.
/// Past the end of the text every character is 0; no function moves past the end.
class ListingScanner
{
public:
    explicit ListingScanner(std::string_view text) : m_text(text) {}

    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] std::size_t offset() const { return m_at; }
    [[nodiscard]] char peek(std::size_t ahead = 0) const { return charAt(m_at + ahead); }
    [[nodiscard]] char charAt(std::size_t offset) const { return offset < m_text.size() ? m_text[offset] : '\0'; }
    [[nodiscard]] bool startsWith(std::string_view prefix) const { return m_text.substr(m_at).starts_with(prefix); }
    [[nodiscard]] std::string_view text(std::size_t begin, std::size_t end) const
    {
        return m_text.substr(begin, end - begin);
    }
    [[nodiscard]] bool atLineStart() const { return m_at == 0 || m_text[m_at - 1] == '\n'; }
    /// The offset of the end of the line, before its line feed.
    [[nodiscard]] std::size_t lineEnd(std::size_t from) const;
    [[nodiscard]] std::size_t lineEnd() const { return lineEnd(m_at); }
    /// The offset after the next \a closing from \a from on, or the end of the text.
    [[nodiscard]] std::size_t after(std::string_view closing, std::size_t from) const;
    /// The offset of the first character from \a from on that \a isPart does not accept.
    template <class Predicate> [[nodiscard]] std::size_t whileIs(Predicate isPart, std::size_t from) const
    {
        while (from < m_text.size() && isPart(m_text[from]))
            ++from;
        return from;
    }
    [[nodiscard]] std::size_t afterBlanks(std::size_t from) const;
    /// The offset after a literal whose opening quote, as long as \a quote, ends at \a from. A backslash takes the
    /// next character along if \a hasEscapes; a literal that may not be longer than a line ends before its line feed.
    [[nodiscard]] std::size_t afterQuoted(std::string_view quote, std::size_t from, bool hasEscapes,
                                          bool mayHaveLines) const;

    /// Reads up to \a end in \a style.
    void takeTo(std::size_t end, ListingStyle style);
    void take(std::size_t count, ListingStyle style) { takeTo(m_at + count, style); }
    void takeLine(ListingStyle style) { takeTo(lineEnd(), style); }
    /// Reads \a count characters that have no style.
    void skip(std::size_t count = 1) { take(count, ListingStyle::Plain); }
    void skipBlanks() { takeTo(afterBlanks(m_at), ListingStyle::Plain); }

    [[nodiscard]] std::vector<ListingRun> takeRuns() { return std::move(m_runs); }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    std::vector<ListingRun> m_runs;
};

[[nodiscard]] constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// A letter, a digit, "_" or a byte of a character that is not ASCII.
[[nodiscard]] constexpr bool isWordCharacter(char c)
{
    return isLetter(c) || isDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// Whether \a word is in \a words.
[[nodiscard]] bool isOneOf(std::string_view word, std::span<const std::string_view> words);

/// The end of the number that begins at \a from, with a sign, a fraction, an exponent, a base prefix and "_";
/// \a from itself if there is none.
[[nodiscard]] std::size_t afterNumber(const ListingScanner &scanner, std::size_t from);

} // namespace tavidoc
