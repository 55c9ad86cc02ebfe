#pragma once

#include <QByteArray>
#include <QString>

/// Writes \a bytes to \a fileName, all of them or nothing: they go to a new file beside it that
/// takes its place when it is complete. Its directory must exist. Throws HException, "cannot
/// write " and the name, and leaves nothing behind.
void writeWholeFile(const QString &fileName, const QByteArray &bytes);
