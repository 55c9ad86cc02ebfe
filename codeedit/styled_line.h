#pragma once

#include "codeedit/code_style.h"

#include <cstddef>
#include <cstring>

/// The character that starts a run in a styled line; the unit after it is the style.
inline constexpr char16_t s_styleMarker = u'\uFDD0';

/// Writes a styled line: the text of a line in runs, each with a marker and its style before
/// it, and a 0 at the end. The text is taken from the line itself, in order and once, and a
/// run has at least one character: a line of n characters never fills more than 3n + 1.
class StyledLine
{
public:
    /// \a line ends with a 0 unit. \a out is borrowed and has room for 3n + 1 units.
    StyledLine(const char16_t *line, char16_t *out) : m_from(line), m_held(line), m_out(out) {}
    StyledLine(const StyledLine &) = delete;
    StyledLine &operator=(const StyledLine &) = delete;
    /// Writes what is left of the line as text, and the end.
    ~StyledLine();

    /// Writes the text from where the last run ended up to \a end in \a style. Without any text
    /// it writes nothing; a run that goes on in the same style gets no second marker.
    void writeTo(const char16_t *end, CodeStyle style)
    {
        if (m_held > m_from && !takesBlanks(style))
            copyTo(m_held, takesBlanks(m_style) ? m_style : CodeStyle::Text);
        copyTo(end, style);
    }

    /// Leaves the blanks up to \a end to the run after them or before them, where these show no
    /// colour: most blanks get no run of their own.
    void holdBlanksTo(const char16_t *end) { m_held = end; }

    /// Where the next run begins; blanks that are held belong to it.
    [[nodiscard]] const char16_t *from() const { return m_from; }

private:
    static bool takesBlanks(CodeStyle style) { return style == CodeStyle::Text || style == CodeStyle::Punctuation; }

    void copyTo(const char16_t *end, CodeStyle style)
    {
        if (end == m_from)
            return;
        if (style != m_style) {
            *m_out++ = s_styleMarker;
            *m_out++ = static_cast<char16_t>(style);
            m_style = style;
        }
        const auto length = static_cast<std::size_t>(end - m_from);
        if (length > 3) {
            std::memcpy(m_out, m_from, length * sizeof(char16_t));
            m_out += length;
            m_from = end;
        }
        while (m_from != end)
            *m_out++ = *m_from++;
    }

    const char16_t *m_from;
    const char16_t *m_held;
    char16_t *m_out;
    CodeStyle m_style = CodeStyle::None;
};
