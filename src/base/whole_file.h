#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <span>
#include <string_view>

namespace tavidoc {

/// Where the names of all files that the process tries to read are appended, as they were given.
/// Null, as initially: they are not recorded. Borrowed; whoever sets it resets it.
extern QStringList *filesRead;

/// A regular file that is open for reading.
class RegularFile
{
public:
    /// Opens \a name. Not open when it is missing, cannot be read, or is a directory, a pipe or a device.
    explicit RegularFile(const QString &name);
    RegularFile(const RegularFile &) = delete;
    RegularFile &operator=(const RegularFile &) = delete;
    ~RegularFile();

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    /// The size when the file was opened.
    [[nodiscard]] qsizetype size() const { return m_size; }
    /// The \a count bytes from \a offset on. Nothing when they cannot be read or the file is shorter.
    [[nodiscard]] std::optional<QByteArray> bytes(qsizetype offset, qsizetype count) const;
    /// All bytes, even if the file has grown; may be called once.
    [[nodiscard]] std::optional<QByteArray> allBytes() const;

private:
    int m_descriptor = -1;
    qsizetype m_size = 0;
};

/// The bytes of the regular file \a name. Nothing when it is missing, cannot be read, or is a
/// directory, a pipe or a device.
[[nodiscard]] std::optional<QByteArray> readRegularFile(const QString &name);

/// Writes \a parts, at most eight, one after the other to the open file descriptor \a file and closes it. False when
/// not all bytes were written, even if only closing reports it.
[[nodiscard]] bool writeAndClose(int file, std::span<const std::string_view> parts);

/// Writes \a bytes to \a fileName, completely or not at all: they are written to a temporary file in
/// the same directory, which must exist, and that is renamed. Throws HException, "cannot write " and
/// the name, after removing the temporary file.
void writeWholeFile(const QString &fileName, const QByteArray &bytes);

/// Writes \a bytes to \a fileName, which must not exist. Throws HException, "cannot write " and the name, after removing
/// the incomplete file.
void writeNewFile(const QString &fileName, const QByteArray &bytes);

/// As writeWholeFile(), unless the file has these bytes already. True if it was written.
bool updateWholeFile(const QString &fileName, const QByteArray &bytes);

} // namespace tavidoc
