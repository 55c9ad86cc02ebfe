#pragma once

#include "codeedit/code_style.h"

#include <cstddef>

/// The character that starts a run in a styled line; the unit after it is the style.
inline constexpr char16_t s_styleMarker = u'\uFDD0';

/// Writes a styled line: the text of a line in runs, each with a marker and its style before
/// it, and a 0 at the end. The text is taken from the line itself, in order and once, and a
/// run has at least one character: a line of n characters never fills more than 3n + 1.
class StyledLine
{
public:
    /// \a line ends with a 0 unit. \a out is borrowed and has room for 3n + 1 units.
    StyledLine(const char16_t *line, char16_t *out) : m_from(line), m_out(out) {}
    StyledLine(const StyledLine &) = delete;
    StyledLine &operator=(const StyledLine &) = delete;
    /// Writes what is left of the line as text, and the end.
    ~StyledLine();

    /// Writes the text from where the last run ended up to \a end in \a style. Without any text
    /// it writes nothing; a run that goes on in the same style gets no second marker.
    void writeTo(const char16_t *end, CodeStyle style)
    {
        if (end == m_from)
            return;
        if (!m_any || style != m_style) {
            *m_out++ = s_styleMarker;
            *m_out++ = static_cast<char16_t>(style);
            m_style = style;
            m_any = true;
        }
        while (m_from != end)
            *m_out++ = *m_from++;
    }

    /// Where the next run begins.
    [[nodiscard]] const char16_t *from() const { return m_from; }

private:
    const char16_t *m_from;
    char16_t *m_out;
    CodeStyle m_style = CodeStyle::Text;
    bool m_any = false;
};
