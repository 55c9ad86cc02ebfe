#pragma once

#include <QByteArray>
#include <QString>

namespace tavidoc {

/// Writes \a bytes to the file \a name, replacing an existing one. Throws HException "cannot open NAME",
/// or "cannot write NAME" when not all bytes can be written, after removing the incomplete file.
void writeOutputFile(const QString &name, const QByteArray &bytes);

} // namespace tavidoc
