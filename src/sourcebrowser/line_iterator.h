#pragma once

/*!!
 * \h1 line_iterator.h
 *
 * The source of the parser's lines.
 */

#include <QString>

namespace tavidoc {

/*!
 * \h1 \this
 * Delivers the lines of a file.
 * \sa \xref{line_iterator_h}{line_iterator.h}
 * \ingroup \this
 */
class SourceBrowserLineIterator
{
public:
    virtual ~SourceBrowserLineIterator() = default;
    /*!
     * \h1 SourceBrowserLineIterator::\this
     * Stores the next line without its end in \a{line}; false at the end of the file.
     * \synopsis
     * \sa \xref{SourceBrowserLineIterator}
     * \ingroup SourceBrowserLineIterator
     */
    virtual bool readLine(QString &line) = 0;
};

} // namespace tavidoc
