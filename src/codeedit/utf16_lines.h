#pragma once

#include <string_view>
#include <vector>

namespace tavidoc {

/// The lines of a text in UTF-16 as lexers want them, one after the other, each with a 0 at its
/// end. They are converted some thousand characters at a time into room that is used again.
class Utf16Lines
{
public:
    /// \a text is UTF-8 and borrowed.
    explicit Utf16Lines(std::string_view text) : m_rest(text) {}

    /// Goes to the next line; false after the last one. A text has one more line than "\n"s.
    /// U+0000 and U+FDD0, which mean something in styled lines, become U+FFFD, as does each byte
    /// that is part of no character.
    bool next();

    /// The line, until next() is called.
    [[nodiscard]] const char16_t *line() const { return m_units.data() + m_begin; }
    /// In units, without the 0.
    [[nodiscard]] std::size_t size() const { return m_end - m_begin; }

private:
    void takePiece();
    std::size_t convert(std::string_view line);

    std::string_view m_rest;       // what no piece was made of yet
    std::string_view m_piece;      // the lines of the piece that are still to come
    std::vector<char16_t> m_units; // the piece if it is plain, else one line
    std::size_t m_pieceSize = 0;   // in bytes
    std::size_t m_begin = 0;       // of the line, in the units
    std::size_t m_end = 0;         // of the line: its 0
    bool m_isPlain = false;        // each byte of the piece is a unit
    bool m_inPiece = false;        // a line of it is still to come
    bool m_lastPiece = false;
};

} // namespace tavidoc
