#pragma once

#include "site/compile/compile.h"
#include "tests/support/markup_run.h"

#include <QDir>
#include <QFileInfo>

#include <string>
#include <string_view>

/// Writes \a text to the file \a name, whose directory is created, below \a directory.
inline void writeBelow(const QTemporaryDir &directory, const QString &name, std::string_view text)
{
    QDir().mkpath(QFileInfo(directory.filePath(name)).path());
    writeFile(directory.filePath(name), text);
}

/// The record of the file \a name in \a directory, compiled there.
inline RecordWithBodies recordOf(const QTemporaryDir &directory, const QString &name)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(directory.path());
    RecordWithBodies record = compiled(name, {});
    QDir::setCurrent(before);
    return record;
}

/// The record of a file \a name with the text \a source.
inline RecordWithBodies recordOf(const QString &name, std::string_view source)
{
    const QTemporaryDir directory;
    writeBelow(directory, name, source);
    return recordOf(directory, name);
}

inline std::string placeText(const RecordWithBodies &record, const RecordPlace &place)
{
    return record.head.files[place.file].name + ":" + std::to_string(place.line);
}

/// The findings as "FILE:LINE: CHECK: TEXT", each on a line. Which definition files are missing is left out: the
/// documents of a process share definitions, so it depends on the tests before.
inline std::string findingsOf(const RecordWithBodies &record)
{
    std::string text;
    for (const RecordFinding &finding : record.head.findings)
        if (!finding.text.ends_with("in the directory of the input"))
            text += placeText(record, finding.place) + ": " + finding.check + ": " + finding.text + "\n";
    return text;
}

inline std::string_view bodyOf(const RecordWithBodies &record, const RecordPage &page)
{
    return std::string_view(record.bodies).substr(page.bodyOffset, page.bodyLength);
}

/// The part of the body of \a page that \a item, a link or an image, is about.
template <typename Item>
std::string_view partOf(const RecordWithBodies &record, const RecordPage &page, const Item &item)
{
    return bodyOf(record, page).substr(item.offset, item.length);
}
