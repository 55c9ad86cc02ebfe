#pragma once

/*!!
 * \h1 styled_line.h
 *
 * Styled lines, the output of lexers: the text of a line, cut into runs of one kind.
 *
 * \code
 * StyledLine out(line, buffer);
 * out.writeTo(endOfComment, CodeStyle::Comment);
 * out.writeTo(endOfWord, CodeStyle::Keyword);
 * \endcode
 */

#include "codeedit/code_style.h"

#include <cstddef>
#include <cstring>

namespace tavidoc {

/*!
 * \h1 \this
 * The character that starts a run in a styled line; the unit after it is the style.
 * \synopsis
 * \sa \xref{styled_line_h}{styled_line.h}
 * \ingroup Constants
 */
inline constexpr char16_t s_styleMarker = u'\uFDD0';

/*!
 * \h1 \this
 * Writes a styled line: the text of a line in runs, each with a marker and its style before
 * it, and a 0 at the end. The text is taken from the line itself, in order and once, and a
 * run has at least one character: a line of n characters never fills more than 3n + 1.
 * \sa \xref{styled_line_h}{styled_line.h}
 * \ingroup \this
 */
class StyledLine
{
public:
    /// \a line ends with a 0 unit. \a out is borrowed and holds 3n + 1 units.
    StyledLine(const char16_t *line, char16_t *out) : m_from(line), m_held(line), m_out(out) {}
    StyledLine(const StyledLine &) = delete;
    StyledLine &operator=(const StyledLine &) = delete;
    /// Writes the rest of the line as text, and the 0 unit.
    ~StyledLine();

    /*!
     * \h1 StyledLine::\this
     * Writes the text from the end of the last run up to \a{end} in \a{style}. Without any text
     * it writes nothing; a run that continues in the same style gets no second marker.
     * \synopsis
     * \sa \xref{StyledLine}
     * \ingroup StyledLine
     */
    void writeTo(const char16_t *end, CodeStyle style)
    {
        if (m_held > m_from && !takesBlanks(style))
            copyTo(m_held, takesBlanks(m_style) ? m_style : CodeStyle::Text);
        copyTo(end, style);
    }

    /*!
     * \h1 StyledLine::\this
     * Leaves the blanks up to \a{end} to the next run, or else to the previous one, if that is one of
     * text, brackets or operators: most blanks get no run of their own.
     * \synopsis
     * \sa \xref{StyledLine}
     * \ingroup StyledLine
     */
    void holdBlanksTo(const char16_t *end) { m_held = end; }

private:
    static bool takesBlanks(CodeStyle style)
    {
        return style == CodeStyle::Text || style == CodeStyle::Punctuation || style == CodeStyle::Operator;
    }

    /// Copies \a length units, at least one. Most runs are short: overlapping blocks are faster than a
    /// loop or a call.
    static void copyUnits(char16_t *to, const char16_t *from, std::size_t length)
    {
        if (length > 16)
            std::memcpy(to, from, length * sizeof(char16_t));
        else if (length >= 4)
            copyBlocks<4>(to, from, length);
        else if (length >= 2)
            copyBlocks<2>(to, from, length);
        else
            *to = *from;
    }

    template <std::size_t Size> static void copyBlocks(char16_t *to, const char16_t *from, std::size_t length)
    {
        for (std::size_t at = 0; at + Size < length; at += Size)
            std::memcpy(to + at, from + at, Size * sizeof(char16_t));
        std::memcpy(to + length - Size, from + length - Size, Size * sizeof(char16_t));
    }

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
        copyUnits(m_out, m_from, length);
        m_out += length;
        m_from = end;
    }

    const char16_t *m_from;
    const char16_t *m_held;
    char16_t *m_out;
    CodeStyle m_style = CodeStyle::None;
};

} // namespace tavidoc
