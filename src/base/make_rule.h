#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tavidoc {

/// A rule for make by which \a target depends on \a files, and an empty one for each file, so that make continues when
/// it has been deleted.
[[nodiscard]] QByteArray makeRule(const QString &target, const QStringList &files);

/// The absolute path \a name if it exists, else the nearest directory above it that does: build programs rebuild at once
/// for a missing file, while the directory changes when the file appears.
[[nodiscard]] QString presentPath(QString name);

} // namespace tavidoc
