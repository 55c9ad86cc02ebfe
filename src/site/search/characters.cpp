#include "site/search/characters.h"

#include <QChar>

#include <algorithm>
#include <array>

namespace tavidoc {

namespace {

constexpr std::array<CharacterClass, 128> asciiClasses()
{
    std::array<CharacterClass, 128> classes{};
    for (std::size_t c = 0; c < classes.size(); ++c) {
        if (c <= ' ' || c == 127)
            classes[c] = CharacterClass::Space;
        else if (c >= 'a' && c <= 'z')
            classes[c] = CharacterClass::Lower;
        else if (c >= 'A' && c <= 'Z')
            classes[c] = CharacterClass::Upper;
        else if (c >= '0' && c <= '9')
            classes[c] = CharacterClass::Digit;
        else if (c == '_')
            classes[c] = CharacterClass::Underscore;
    }
    return classes;
}

struct Range
{
    char32_t first;
    char32_t last;
};

bool isIdeograph(char32_t c)
{
    static constexpr Range ranges[] = {
        {0x3040, 0x30ff}, {0x3400, 0x4dbf}, {0x4e00, 0x9fff}, {0xac00, 0xd7a3}, {0xf900, 0xfaff}, {0x20000, 0x3ffff},
    };
    return std::ranges::any_of(ranges, [&](const Range &range) { return c >= range.first && c <= range.last; });
}

CharacterClass unicodeClass(char32_t c)
{
    if (isIdeograph(c))
        return CharacterClass::Ideograph;
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Titlecase:
        return CharacterClass::Upper;
    case QChar::Letter_Lowercase:
        return CharacterClass::Lower;
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Number_DecimalDigit:
    case QChar::Number_Letter:
    case QChar::Number_Other:
        return CharacterClass::Digit;
    default:
        return QChar::isSpace(c) || QChar::category(c) == QChar::Other_Control ? CharacterClass::Space
                                                                               : CharacterClass::Other;
    }
}

} // namespace

CharacterClass characterClass(char32_t character)
{
    static constexpr auto ascii = asciiClasses();
    return character < ascii.size() ? ascii[character] : unicodeClass(character);
}

bool isWordCharacter(char32_t character)
{
    const CharacterClass found = characterClass(character);
    return found >= CharacterClass::Lower && found <= CharacterClass::Underscore;
}

DecodedCharacter decodedCharacter(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    constexpr DecodedCharacter invalid = {.character = U'\n', .isValid = false};
    if (byte(0) < 0x80)
        return {.character = byte(0)};
    const std::size_t length = byte(0) >= 0xf0 ? 4 : byte(0) >= 0xe0 ? 3 : 2;
    if (byte(0) < 0xc2 || byte(0) > 0xf4 || length > text.size() - at)
        return invalid;
    char32_t character = byte(0) & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80)
            return invalid;
        character = character << 6U | (byte(i) & 0x3fU);
    }
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < smallest[length] || character > 0x10ffff || isSurrogate)
        return invalid;
    return {.character = character, .length = length};
}

std::u32string codePoints(std::string_view text)
{
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const DecodedCharacter next = decodedCharacter(text, at);
        characters.push_back(next.character);
        at += next.length;
    }
    return characters;
}

void appendUtf8(std::string &bytes, std::u32string_view text)
{
    const auto append = [&bytes](char32_t bits) { bytes.push_back(static_cast<char>(bits)); };
    for (const char32_t c : text) {
        if (c < 0x80) {
            append(c);
        } else if (c < 0x800) {
            append(0xc0 | c >> 6U);
            append(0x80 | (c & 0x3fU));
        } else if (c < 0x10000) {
            append(0xe0 | c >> 12U);
            append(0x80 | (c >> 6U & 0x3fU));
            append(0x80 | (c & 0x3fU));
        } else {
            append(0xf0 | c >> 18U);
            append(0x80 | (c >> 12U & 0x3fU));
            append(0x80 | (c >> 6U & 0x3fU));
            append(0x80 | (c & 0x3fU));
        }
    }
}

} // namespace tavidoc
