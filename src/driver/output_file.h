#pragma once

#include <QByteArray>
#include <QString>

namespace tavidoc {

/// Writes \a bytes to the file \a name; one that exists is removed first. Throws HException
/// "cannot open NAME", or "cannot write NAME" when not all bytes can be written; then what was
/// written is removed.
void writeOutputFile(const QString &name, const QByteArray &bytes);

} // namespace tavidoc
