#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a character is to the search. search.js has the same classes as a regular expression.
enum class CharacterClass : std::uint8_t
{
    Other,
    Space,
    Lower,
    Upper,
    Digit, ///< also marks and letters without case
    Underscore,
    Ideograph, ///< Han, Kana, Hangul: written without spaces, so indexed in pairs
};

[[nodiscard]] CharacterClass characterClass(char32_t character);

/// Whether \a character is part of a word: a letter, digit, mark or "_", but not an ideograph.
[[nodiscard]] bool isWordCharacter(char32_t character);

/// A character of a text in UTF-8.
struct DecodedCharacter
{
    char32_t character = 0;
    std::size_t length = 1; ///< in bytes; of a byte that is not UTF-8, 1
    bool isValid = true;
};

[[nodiscard]] DecodedCharacter decodedCharacter(std::string_view text, std::size_t at);

/// \a text as code points. Bytes that are not UTF-8 become line ends, which separate words.
[[nodiscard]] std::u32string codePoints(std::string_view text);

/// Appends \a text as UTF-8.
void appendUtf8(std::string &bytes, std::u32string_view text);

} // namespace tavidoc
