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
