#pragma once

#include <array>
#include <cstdint>

/// Character classes for lexers.
namespace tavidoc::Characters {

enum Class : std::uint16_t
{
    Blank = 1,  ///< space, tab and other white space within a line
    Digit = 2,  ///< 0 to 9
    Upper = 4,  ///< A to Z
    Letter = 8, ///< A to Z, a to z, the underscore and everything beyond ASCII
    Dollar = 16,
    Dot = 32,
    NameMark = 64,     ///< the colon and the hyphen in XML names
    Operator = 128,    ///< characters of operators in the C family
    Punctuation = 256, ///< brackets and separators of the C family
    Noted = 512,       ///< first characters of what ends or is highlighted in a comment
    WordStart = Letter | Dollar,
    Word = WordStart | Digit,
};

constexpr std::array<std::uint16_t, 128> classTable()
{
    std::array<std::uint16_t, 128> table{};
    for (const char c : {' ', '\t', '\v', '\f', '\r'})
        table[static_cast<unsigned char>(c)] = Blank;
    for (std::size_t c = '0'; c <= '9'; ++c)
        table[c] = Digit;
    for (std::size_t c = 'A'; c <= 'Z'; ++c)
        table[c] = Letter | Upper | Noted;
    for (std::size_t c = 'a'; c <= 'z'; ++c)
        table[c] = Letter;
    table['_'] = Letter;
    table['$'] = Dollar;
    for (const char c : {'+', '-', '*', '/', '%', '=', '<', '>', '!', '&', '|', '^', '~', '?', ':', '.'})
        table[static_cast<unsigned char>(c)] = Operator;
    for (const char c : {'(', ')', '[', ']', '{', '}', ';', ','})
        table[static_cast<unsigned char>(c)] = Punctuation;
    for (const char c : {'\0', '\\', '@', '*'})
        table[static_cast<unsigned char>(c)] |= Noted;
    for (const char c : {':', '-'})
        table[static_cast<unsigned char>(c)] |= NameMark;
    table['.'] |= Dot;
    return table;
}

inline constexpr std::array<std::uint16_t, 128> s_classes = classTable();

/// True when \a c is in one of \a classes. Everything beyond ASCII is a letter.
constexpr bool is(char16_t c, unsigned classes)
{
    return c < 128 ? (s_classes[c] & classes) != 0 : (classes & Letter) != 0;
}

constexpr bool isWord(char16_t c)
{
    return is(c, Word);
}

/// The first character from \a at on that is in none of \a classes.
constexpr const char16_t *skip(const char16_t *at, unsigned classes)
{
    while (is(*at, classes))
        ++at;
    return at;
}

} // namespace tavidoc::Characters
