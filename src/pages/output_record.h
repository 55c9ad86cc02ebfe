#pragma once

/*!!
 * \h1 output_record.h
 *
 * The output of a run of the generator.
 */

#include <QByteArray>
#include <QString>

#include <list>

namespace tavidoc {

/*!
 * \h1 \this
 * One finished file.
 *
 * \synopsis
 *
 * \param{fileName} its name, formed under the output directory.
 *
 * \param{header} the file name of the header that the page documents; empty for others.
 *
 * \param{text} the complete file as bytes: pages in ISO 8859-1, contents in UTF-8.
 * \sa \xref{output_record_h}{output_record.h}
 * \ingroup Types
 */
struct OutputRecord
{
    QString fileName; ///< formed under the output directory
    QString header;   ///< the file name of the header that the page documents; empty for others
    QByteArray text;  ///< the complete file as bytes: pages in ISO 8859-1, contents in UTF-8
};

/// Finished files in the order in which they were made.
using OutputRecords = std::list<OutputRecord>;

} // namespace tavidoc
