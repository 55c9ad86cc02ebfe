#pragma once

#include "base/white_space.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Finds the matching closing brace of an opening one. Escaped braces do not count, and no pair
/// spans a blank line. All searches together cost one pass over the text.
class BraceMatcher
{
public:
    static constexpr std::size_t s_none = std::string_view::npos;

    explicit BraceMatcher(std::string_view text) : m_text(text) {}

    /// The offset of the brace that closes the one at \a opener; s_none when it is not closed.
    [[nodiscard]] std::size_t match(std::size_t opener);

private:
    struct Pair
    {
        std::size_t open;
        std::size_t close;
    };

    void scan(std::size_t opener);

    std::string_view m_text;
    std::vector<Pair> m_pairs;          // of the scanned part of the text, by opener
    std::vector<std::size_t> m_pending; // openers not closed yet, as indices into m_pairs
    std::size_t m_next = 0;             // the pair last asked for
    std::size_t m_scannedEnd = 0;
};

/// True when the line that begins at \a offset of \a text holds white space only and ends in
/// a line end.
[[nodiscard]] bool isBlankLine(std::string_view text, std::size_t offset);

/// A position in a markup text and the functions that read from it. Nothing is read past the limit, the
/// end of the argument that contains the position, or of the text.
class MarkupCursor
{
public:
    explicit MarkupCursor(std::string_view text) : m_text(text), m_limit(text.size()), m_braces(text) {}

    [[nodiscard]] std::string_view text() const { return m_text; }
    [[nodiscard]] std::size_t offset() const { return m_offset; }
    [[nodiscard]] std::size_t limit() const { return m_limit; }
    [[nodiscard]] bool atLimit() const { return m_offset >= m_limit; }
    void moveTo(std::size_t offset) { m_offset = offset; }
    void setLimit(std::size_t limit) { m_limit = limit; }

    /// The character at \a ahead characters from here; 0 at or past the limit.
    [[nodiscard]] char peek(std::size_t ahead = 0) const
    {
        return m_offset + ahead < m_limit ? m_text[m_offset + ahead] : '\0';
    }

    /// True at an opening brace, closed or not.
    [[nodiscard]] bool atBrace() const { return peek() == '{'; }
    /// The offset of the closing brace of the argument that begins here. Nothing when no argument
    /// begins here or when it is not closed before the limit.
    [[nodiscard]] std::optional<std::size_t> argumentEnd();
    /// Takes the argument in braces that begins here. Otherwise takes nothing.
    std::optional<std::string_view> takeArgument();
    /// The offset of the end of the current line.
    [[nodiscard]] std::size_t lineEnd() const;
    /// Skips blanks and takes the rest of the line, without its end.
    std::string_view takeLine();

    /// Takes the backslash at the cursor and the name of the command after it: letters and digits,
    /// one punctuation character with the hyphen after it, or "...". Before any other character and
    /// at the limit the name is empty.
    std::string_view takeCommandName();

    void skipBlanks();
    /// Skips blanks and line ends, blank lines too.
    void skipBlanksAndLineEnds();
    void skipLineEnd();
    /// Skips white space.
    void skipSpace();

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
    std::size_t m_limit;
    BraceMatcher m_braces;
};

/// True for ASCII letters and digits, the characters of command names.
[[nodiscard]] constexpr bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

} // namespace tavidoc
