#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// Where the names of the files are noted that the process reads or finds missing, as they were
/// asked for, once for each time. Null, as at first: nowhere. Borrowed; whoever wants to know
/// sets it and takes it back.
extern QStringList *filesRead;

/// The bytes of the regular file \a name as they are on disk. Nothing when there is no such
/// file, when it cannot be read, or when it is a directory, a pipe or a device.
[[nodiscard]] std::optional<QByteArray> readRegularFile(const QString &name);

/// True when \a bytes are well-formed UTF-8.
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// The text of a source as UTF-8: a byte order mark is dropped; bytes that are not UTF-8 are
/// taken as ISO 8859-1, all of them, so none is lost. Line ends are left alone.
[[nodiscard]] QByteArray decodedSource(QByteArray bytes);

/// Makes every "\r\n" a "\n" in place. A lone "\r" stays.
void normalizeLineEnds(QByteArray &text);

/// White space: blank, tab, line feed, vertical tab, form feed, carriage return.
[[nodiscard]] constexpr bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// A blank or a tab.
[[nodiscard]] constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// \a text without blanks and tabs, and other white space, at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);
/// \a text without white space at its end.
[[nodiscard]] std::string_view trimmedEnd(std::string_view text);

/// \a text from its first character that is not white space, Unicode's white space included.
[[nodiscard]] std::string_view afterLeadingSpace(std::string_view text);
/// The same, quick for a text that begins with another ASCII character.
[[nodiscard]] inline std::string_view afterWhiteSpace(std::string_view text)
{
    return !text.empty() && text.front() > ' ' && text.front() < '\x7f' ? text : afterLeadingSpace(text);
}

/// \a text without white space at its ends and with one blank for every run of it inside.
/// Unicode's white space counts.
[[nodiscard]] std::string simplified(std::string_view text);

} // namespace tavidoc
