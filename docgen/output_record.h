#pragma once

#include <QByteArray>
#include <QString>

#include <list>

/// One finished file.
struct OutputRecord
{
    QString fileName; ///< formed under the output directory
    QString header;   ///< the file name of the header that the page documents; empty for others
    QByteArray text;  ///< the complete file as bytes: pages in ISO 8859-1, contents in UTF-8
};

/// Finished files in the order in which they were made. The caller of a run owns it.
using OutputRecords = std::list<OutputRecord>;
