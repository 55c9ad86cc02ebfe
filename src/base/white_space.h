#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// White space: blank, tab, line feed, vertical tab, form feed, carriage return.
[[nodiscard]] constexpr bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// A blank or a tab.
[[nodiscard]] constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// \a text without white space at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);
/// \a text without white space at its end.
[[nodiscard]] std::string_view trimmedEnd(std::string_view text);

/// \a text, UTF-8, from its first character that is not white space. Unicode's white space counts.
[[nodiscard]] std::string_view afterLeadingSpace(std::string_view text);
/// The same, but fast for a text that begins with a visible ASCII character.
[[nodiscard]] inline std::string_view afterWhiteSpace(std::string_view text)
{
    return !text.empty() && text.front() > ' ' && text.front() < '\x7f' ? text : afterLeadingSpace(text);
}

/// \a text, UTF-8, without white space at its ends and with one blank for each run of it inside.
/// Unicode's white space counts.
[[nodiscard]] std::string simplified(std::string_view text);

/// \a text without white space, except for one blank between two words: how types in C are compared. Words are made of
/// letters, digits, "_" and characters beyond ASCII.
[[nodiscard]] std::string tightened(std::string_view text);

} // namespace tavidoc
