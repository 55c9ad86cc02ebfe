#pragma once

#include <QByteArray>
#include <QString>

namespace tavidoc {

/// Writes all \a bytes to the open file descriptor \a file and closes it. False when not all
/// of them could be written, be it that only the closing shows it.
[[nodiscard]] bool writeAndClose(int file, const QByteArray &bytes);

/// Writes \a bytes to \a fileName, all of them or nothing: they go to a new file beside it that
/// takes its place when it is complete. Its directory must exist. Throws HException, "cannot
/// write " and the name, and leaves nothing behind.
void writeWholeFile(const QString &fileName, const QByteArray &bytes);

} // namespace tavidoc
