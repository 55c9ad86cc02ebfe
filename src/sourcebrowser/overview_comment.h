#pragma once

/*!!
 * \h1 overview_comment.h
 *
 * The comments of a header that describe it as a whole.
 */

#include <QString>

namespace tavidoc {

/*!
 * \h1 \this
 * A comment that begins with \tt{!!} or \tt{! \\overview}.
 *
 * \synopsis
 *
 * \param{text} the comment without delimiters and leading marks.
 *
 * \param{firstLine} counted from 1.
 * \sa \xref{overview_comment_h}{overview_comment.h}
 * \ingroup Types
 */
struct SourceBrowserOverviewComment
{
    QString text;
    int firstLine = 0; ///< counted from 1
};

} // namespace tavidoc
