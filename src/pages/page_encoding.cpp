#include "pages/page_encoding.h"

#include <QString>

#include <algorithm>
#include <array>
#include <charconv>

namespace tavidoc {

namespace {

/// The end of the ASCII characters that \a text begins with.
std::size_t asciiLength(std::string_view text)
{
    std::size_t length = 0;
    constexpr std::size_t block = 32; // judged at once
    while (length + block <= text.size()) {
        unsigned char bits = 0;
        for (std::size_t index = 0; index < block; ++index)
            bits |= static_cast<unsigned char>(text[length + index]);
        if (bits >= 0x80)
            break;
        length += block;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

/// Takes the character that \a text begins with, which is not ASCII, off it. Bytes that are no
/// character, which only a cut through one leaves, count as U+FFFD one by one.
char32_t takeCharacter(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || length > text.size()) {
        text.remove_prefix(1);
        return 0xFFFD;
    }
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index)
        character = character << 6 | (static_cast<unsigned char>(text[index]) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

/// Appends the reference to \a character at once: pages in other scripts are full of them.
void appendReference(QByteArray &bytes, char32_t character)
{
    std::array<char, 16> reference{'&', '#', 'x'};
    char *end = std::to_chars(reference.data() + 3, reference.data() + 15, static_cast<quint32>(character), 16).ptr;
    *end++ = ';';
    bytes.append(reference.data(), end - reference.data());
}

} // namespace

void appendLatin1(QByteArray &bytes, std::string_view text)
{
    for (;;) {
        const std::size_t plain = asciiLength(text);
        bytes.append(text.data(), static_cast<qsizetype>(plain));
        text.remove_prefix(plain);
        if (text.empty())
            return;
        const char32_t character = takeCharacter(text);
        if (character < 0x100)
            bytes.append(static_cast<char>(character));
        else
            appendReference(bytes, character);
    }
}

} // namespace tavidoc
