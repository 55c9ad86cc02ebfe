#pragma once

#include <QByteArray>

namespace tavidoc {

/// The text of a source file as UTF-8. A byte order mark is dropped. Bytes that are not valid UTF-8
/// are read as ISO 8859-1, all of them, so none is lost. Line ends are kept.
[[nodiscard]] QByteArray decodedSource(QByteArray bytes);

/// Replaces each "\r\n" by "\n" in place. A lone "\r" stays.
void normalizeLineEnds(QByteArray &text);

} // namespace tavidoc
