#pragma once

#include <QByteArray>

#include <string_view>

namespace tavidoc {

/// The number of ASCII characters that \a text begins with.
[[nodiscard]] std::size_t asciiLength(std::string_view text);

/// Appends \a text, which is UTF-8, to \a bytes in ISO 8859-1. A character that this encoding
/// lacks is written as a hexadecimal character reference ("&#x2026;"); each byte of a malformed
/// sequence counts as U+FFFD.
void appendLatin1(QByteArray &bytes, std::string_view text);

/// As appendLatin1(), but every character that is not ASCII is written as a reference.
void appendAscii(QByteArray &bytes, std::string_view text);

} // namespace tavidoc
