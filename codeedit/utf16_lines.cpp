#include "codeedit/utf16_lines.h"

#include "codeedit/styled_line.h"

#include <algorithm>
#include <string>

namespace {

constexpr char16_t s_replacement = u'\uFFFD';
constexpr std::size_t s_pieceSize = 8192; // in bytes; a piece is longer when a line is

/// True when each byte of \a text is a character, and none is 0.
bool isPlain(std::string_view text)
{
    unsigned char bits = 0;
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80 && text.find('\0') == std::string_view::npos;
}

/// Takes one character off \a text, which is not empty.
char32_t takeCharacter(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (length > text.size() || (lead >= 0x80 && lead < 0xC2)) {
        text.remove_prefix(1);
        return s_replacement;
    }
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index)
        character = character << 6 | (static_cast<unsigned char>(text[index]) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

} // namespace

bool Utf16Lines::next()
{
    m_begin = m_started ? m_end + 1 : 0;
    if (m_begin >= m_size) {
        if (m_lastPiece)
            return false;
        convertPiece();
        m_begin = 0;
    }
    m_started = true;
    m_end = lineEnd(m_begin);
    m_units[m_end] = 0;
    return true;
}

/// The place of the end of the line that begins at \a begin in the piece.
std::size_t Utf16Lines::lineEnd(std::size_t begin) const
{
    if (!m_plainPiece.empty())
        return std::min(m_plainPiece.find('\n', begin), m_plainPiece.size());
    return begin + std::char_traits<char16_t>::length(m_units.data() + begin);
}

/// Converts the next whole lines: as many as a piece has room for, and one at least.
void Utf16Lines::convertPiece()
{
    std::size_t length = m_rest.size();
    if (length > s_pieceSize) {
        length = m_rest.rfind('\n', s_pieceSize);
        if (length == std::string_view::npos)
            length = std::min(m_rest.find('\n', s_pieceSize), m_rest.size());
    }
    const std::string_view piece = m_rest.substr(0, length);
    m_lastPiece = length == m_rest.size();
    m_rest.remove_prefix(m_lastPiece ? length : length + 1);
    if (m_units.size() < length + 1)
        m_units.resize(length + 1);
    m_size = length + 1;
    m_plainPiece = piece;
    if (isPlain(piece))
        std::copy(piece.begin(), piece.end(), m_units.begin());
    else
        convertAny(piece);
    m_units[m_size - 1] = 0;
}

void Utf16Lines::convertAny(std::string_view piece)
{
    m_size = 0;
    m_plainPiece = {};
    while (!piece.empty()) {
        const char32_t character = takeCharacter(piece);
        if (character > 0xFFFF) {
            m_units[m_size++] = static_cast<char16_t>(0xD7C0 + (character >> 10));
            m_units[m_size++] = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        } else if (character == u'\n') {
            m_units[m_size++] = 0;
        } else {
            const bool meansSomething = character == 0 || character == s_styleMarker;
            m_units[m_size++] = meansSomething ? s_replacement : static_cast<char16_t>(character);
        }
    }
    ++m_size; // the last 0
}
