#pragma once

/*!!
 * \h1 parser.h
 *
 * What a lexer is: derive from it to colour another language.
 */

#include <QtGlobal>

namespace tavidoc {

/*!
 * \h1 \this
 * The base of all lexers. A lexer styles a listing line by line.
 *
 * The function \tt{styleLine} turns a line into a styled line: runs of text, each after a marker and its style. It
 * must keep these rules. A lexer that writes through \xref{../styled_line/styled_line_h.htm}{StyledLine} keeps them by
 * construction:
 *
 * \item The text of the styled line is the text of the line: nothing is added, lost or moved.
 * \item The first character of text has a marker before it. After each marker and its style comes at least one
 * character of text, and a marker never chooses the style that holds already.
 * \item The styled line ends with a 0 unit, and for a line of n units it has at most 3n + 1 units, this one included. An
 * empty line is the 0 unit alone.
 *
 * A lexer can rely on these:
 *
 * \item A line ends with a 0 unit and has no other. It contains neither line feeds nor markers (U+FDD0), but any other
 * unit, also half a surrogate pair. It may have any length.
 * \item The lines of a listing come in order. What must carry over from line to line fits into the state word, which is
 * 0 before the first line and changed by nobody else. A lexer may keep more in itself, since one lexer serves all
 * listings of a language name, one after the other. It then forgets that when the state is 0, and never leaves 0
 * itself. (Deliberate: the XML lexer does not forget.)
 * \item The marks of parts that are left out (\tt{\\vdots}, \tt{\\hdots}, \tt{\\...}) and line numbers are handled
 * outside of it.
 *
 * A lexer takes time in proportion to the length of the line, and no recursion whose depth depends on the text.
 *
 * To add a language, write its lexer, add a row to the table in \file{languages.cpp}, and write golden listings.
 * \sa \xref{parser_h}{parser.h}
 * \ingroup \this
 */
class CodeEditParser
{
public:
    /*!
     * \h1 CodeEditParser::\this
     * Styles one line. \a{line} ends with a 0 unit; \a{out} holds 3n + 1 units for a line of n.
     * \a{state} is 0 at the start of a listing and belongs to the lexer after that.
     * \synopsis
     * \sa \xref{CodeEditParser}
     * \ingroup CodeEditParser
     */
    virtual void styleLine(const char16_t *line, char16_t *out, quint32 &state) = 0;

    CodeEditParser() = default;
    CodeEditParser(const CodeEditParser &) = delete;
    CodeEditParser &operator=(const CodeEditParser &) = delete;
    virtual ~CodeEditParser() = default;
};

} // namespace tavidoc
