#include "pages/page_encoding.h"

#include <QStringDecoder>
#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>

namespace tavidoc {

namespace {

constexpr bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

/// Formats without an allocation: pages in other scripts consist of references.
void appendReference(QByteArray &bytes, char32_t character)
{
    std::array<char, 16> reference{'&', '#', 'x'};
    char *end = std::to_chars(reference.data() + 3, reference.data() + 15, static_cast<quint32>(character), 16).ptr;
    *end++ = ';';
    bytes.append(reference.data(), end - reference.data());
}

/// Each surrogate is part of a pair. Characters from \a firstReference on are written as references.
void appendCharacters(QByteArray &bytes, QStringView characters, char32_t firstReference)
{
    char16_t high = 0;
    for (const QChar character : characters) {
        if (character.isHighSurrogate()) {
            high = character.unicode();
            continue;
        }
        const char32_t code =
            character.isLowSurrogate() ? QChar::surrogateToUcs4(high, character.unicode()) : character.unicode();
        if (code < firstReference)
            bytes.append(static_cast<char>(code));
        else
            appendReference(bytes, code);
    }
}

void appendEncoded(QByteArray &bytes, std::string_view text, char32_t firstReference)
{
    const std::size_t ascii = asciiLength(text);
    bytes.append(text.data(), static_cast<qsizetype>(ascii));
    text.remove_prefix(ascii);
    if (text.empty())
        return; // nearly always; a decoder is not free
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QVarLengthArray<QChar, 256> characters;
    for (;;) {
        const std::size_t plain = asciiLength(text);
        bytes.append(text.data(), static_cast<qsizetype>(plain));
        text.remove_prefix(plain);
        if (text.empty())
            return;
        const QByteArrayView run(text.begin(), std::ranges::find_if(text, isAscii));
        text.remove_prefix(static_cast<std::size_t>(run.size()));
        characters.resize(decoder.requiredSpace(run.size()));
        const QChar *const end = decoder.appendToBuffer(characters.data(), run);
        appendCharacters(bytes, QStringView(characters.data(), end), firstReference);
    }
}

} // namespace

std::size_t asciiLength(std::string_view text)
{
    std::size_t length = 0;
    constexpr std::size_t block = 32; // tested at once
    while (length + block <= text.size()) {
        unsigned char bits = 0;
        for (std::size_t index = 0; index < block; ++index)
            bits |= static_cast<unsigned char>(text[length + index]);
        if (bits >= 0x80)
            break;
        length += block;
    }
    while (length < text.size() && isAscii(text[length]))
        ++length;
    return length;
}

void appendLatin1(QByteArray &bytes, std::string_view text)
{
    appendEncoded(bytes, text, 0x100);
}

void appendAscii(QByteArray &bytes, std::string_view text)
{
    appendEncoded(bytes, text, 0x80);
}

} // namespace tavidoc
