#pragma once

#include <QRegularExpression>
#include <QString>

/// \a text without the numbers of files in what tavidoc-site prints at the end: they depend on what all pages share.
inline QString withoutFileCounts(QString text)
{
    static const QRegularExpression counts(QStringLiteral("[0-9]+ files? \\([0-9]+ written, [0-9]+ removed\\)"));
    return text.replace(counts, QStringLiteral("files"));
}
