#include "codeedit/utf16_lines.h"

#include "codeedit/styled_line.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace tavidoc {

namespace {

constexpr char16_t s_replacement = u'\uFFFD';
constexpr std::size_t s_pieceSize = 8192; // in bytes; a longer line is a piece of its own

/// True when each of the eight bytes at \a text is an ASCII character other than 0.
bool areEightPlain(const char *text)
{
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);
    constexpr std::uint64_t ones = ~std::uint64_t(0) / 255;
    return ((bytes | (bytes - ones)) & ones << 7) == 0; // the lowest byte that is 0 borrows
}

/// True when each byte of \a text is an ASCII character other than 0.
bool isPlain(std::string_view text)
{
    unsigned char bits = 0;
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80 && text.find('\0') == std::string_view::npos;
}

/// Takes the ASCII characters other than 0 at the beginning of \a text and copies them to \a to. Returns the end of the
/// copies.
char16_t *takePlain(std::string_view &text, char16_t *to)
{
    constexpr std::size_t block = 8; // bytes that are checked and copied at once
    const char *at = text.data();
    const char *const end = at + text.size();
    while (end - at >= static_cast<std::ptrdiff_t>(block) && areEightPlain(at)) {
        to = std::copy_n(at, block, to);
        at += block;
    }
    while (at != end && static_cast<unsigned char>(*at - 1) < 0x7F)
        *to++ = static_cast<char16_t>(*at++);
    text.remove_prefix(static_cast<std::size_t>(at - text.data()));
    return to;
}

/// The number of bytes of a character that begins with the byte \a lead; 0 when no character does.
std::size_t characterLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    return lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

/// Takes one character off \a text, which is not empty; one byte, as U+FFFD, if it does not begin with a character.
char32_t takeCharacter(std::string_view &text)
{
    static constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000}; // the smallest character of each length
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = characterLength(lead);
    char32_t character = length < 2 ? lead : lead & (0x7FU >> length);
    bool valid = length > 0 && length <= text.size();
    for (std::size_t index = 1; valid && index < length; ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        valid = (byte & 0xC0) == 0x80;
        character = character << 6 | (byte & 0x3FU);
    }
    valid = valid && character >= least[length] && character < 0x110000;
    text.remove_prefix(valid ? length : 1);
    return valid ? character : s_replacement;
}

} // namespace

bool Utf16Lines::next()
{
    if (!m_inPiece) {
        if (m_lastPiece)
            return false;
        takePiece();
    }
    const std::string_view line = m_piece.substr(0, m_piece.find('\n'));
    m_begin = m_isPlain ? m_pieceSize - m_piece.size() : 0;
    m_end = m_isPlain ? m_begin + line.size() : convert(line);
    m_units[m_end] = 0;
    m_inPiece = line.size() != m_piece.size();
    m_piece.remove_prefix(m_inPiece ? line.size() + 1 : line.size());
    return true;
}

/// Takes the next whole lines: as many as fit into a piece, and at least one.
void Utf16Lines::takePiece()
{
    std::size_t length = m_rest.size();
    if (length > s_pieceSize) {
        length = m_rest.rfind('\n', s_pieceSize);
        if (length == std::string_view::npos)
            length = std::min(m_rest.find('\n', s_pieceSize), m_rest.size());
    }
    m_piece = m_rest.substr(0, length);
    m_pieceSize = length;
    m_inPiece = true;
    m_lastPiece = length == m_rest.size();
    m_rest.remove_prefix(m_lastPiece ? length : length + 1);
    if (m_units.size() < length + 1)
        m_units.resize(length + 1);
    m_isPlain = isPlain(m_piece);
    if (m_isPlain)
        std::copy(m_piece.begin(), m_piece.end(), m_units.begin());
}

/// Converts \a line and returns the number of its units.
std::size_t Utf16Lines::convert(std::string_view line)
{
    char16_t *to = m_units.data();
    for (;;) {
        to = takePlain(line, to);
        if (line.empty())
            return static_cast<std::size_t>(to - m_units.data());
        const char32_t character = takeCharacter(line);
        if (character > 0xFFFF) {
            *to++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
            *to++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        } else {
            const bool hasMeaning = character == 0 || character == s_styleMarker;
            *to++ = hasMeaning ? s_replacement : static_cast<char16_t>(character);
        }
    }
}

} // namespace tavidoc
