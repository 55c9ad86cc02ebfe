#pragma once

/*!!
 * \h1 line_statistics.h
 *
 * How many lines of each kind a header has.
 */

#include <QtGlobal>

namespace tavidoc {

/*!
 * \h1 \this
 * The lines of one file by kind.
 *
 * \synopsis
 *
 * \param{total} all lines.
 *
 * \param{blank} lines of white space only, inside comments too.
 *
 * \param{comment} lines of block comments, and one for each line comment.
 *
 * \param{preprocessor} directives with their continuation lines.
 * \sa \xref{line_statistics_h}{line_statistics.h}
 * \ingroup Types
 */
struct SourceBrowserLineStatistics
{
    qint32 total = 0;
    qint32 blank = 0;        ///< lines of white space only, inside comments too
    qint32 comment = 0;      ///< lines of block comments, and one for each line comment
    qint32 preprocessor = 0; ///< directives with their continuation lines

    bool operator==(const SourceBrowserLineStatistics &) const = default;
};

} // namespace tavidoc
