#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A token of code in C or C++ that is written as HTML.
struct CodeToken
{
    enum class Kind : std::uint8_t
    {
        Name,    ///< an identifier that may be that of a declaration
        Keyword, ///< a keyword, or an identifier in a link
        Scope,   ///< "::"
        Arrow,   ///< "->"
        Mark,    ///< any other character, which is the text
        Literal, ///< a number, string or character
    };

    Kind kind = Kind::Mark;
    bool hasBlankBefore = false;
    std::size_t offset = 0; ///< in the HTML
    std::string_view text;  ///< of a name, keyword or mark; a view of the HTML or of static memory

    [[nodiscard]] bool isMark(char c) const { return kind == Kind::Mark && text.front() == c; }
    [[nodiscard]] bool isWord() const { return kind == Kind::Name || kind == Kind::Keyword; }
};

/// Whether an identifier may begin with \a c, an ASCII character.
[[nodiscard]] constexpr bool beginsIdentifier(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

/// The tokens of \a html without comments, any bytes, in one pass. In a coloured listing the classes of spans tell
/// what is a comment, a literal or a keyword.
[[nodiscard]] std::vector<CodeToken> codeTokens(std::string_view html);

} // namespace tavidoc
