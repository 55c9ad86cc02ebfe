#pragma once

#include <string_view>
#include <vector>

namespace tavidoc {

/// The lines of a text in UTF-16 as lexers need them, one after the other, each with a 0 at its
/// end. They are converted some thousand characters at a time into a buffer that is reused.
class Utf16Lines
{
public:
    /// \a text is UTF-8 and borrowed.
    explicit Utf16Lines(std::string_view text) : m_rest(text) {}

    /// Goes to the next line; false after the last one. A text has one more line than line feeds.
    /// U+0000 and U+FDD0, which have a meaning in styled lines, become U+FFFD, as does each byte
    /// that is not part of a character.
    bool next();

    /// The line, until next() is called.
    [[nodiscard]] const char16_t *line() const { return m_units.data() + m_begin; }
    /// In units, without the 0.
    [[nodiscard]] std::size_t size() const { return m_end - m_begin; }

private:
    void takePiece();
    std::size_t convert(std::string_view line);

    std::string_view m_rest;       // the text after the piece
    std::string_view m_piece;      // the lines of the piece that are not taken yet
    std::vector<char16_t> m_units; // the piece if it is plain, otherwise one line
    std::size_t m_pieceSize = 0;   // in bytes
    std::size_t m_begin = 0;       // of the line, an index of m_units
    std::size_t m_end = 0;         // of the line, an index of m_units: its 0
    bool m_isPlain = false;        // each byte of the piece is one unit
    bool m_inPiece = false;        // a line of it is not taken yet
    bool m_lastPiece = false;
};

} // namespace tavidoc
