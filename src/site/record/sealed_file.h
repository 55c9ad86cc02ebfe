#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <string_view>

namespace tavidoc {

/// A hash of \a bytes that any single changed bit changes; not for keeping secrets.
[[nodiscard]] std::uint64_t checksum(QByteArrayView bytes);

/// A kind of file: a fixed prefix (magic, format version, sizes and checksums), a head and bodies.
struct SealedFormat
{
    std::string_view magic; ///< eight characters
    std::string_view what;  ///< in messages: "a record"
    std::uint64_t version;
};

/// The parts of a file.
struct SealedParts
{
    QByteArray head;
    QByteArray bodies;            ///< empty unless they were read
    std::uint64_t bodiesSize = 0; ///< read or not
};

/// Whether bodies are read.
enum class SealedRead
{
    Head,
    All,
};

[[nodiscard]] QByteArray sealed(const SealedFormat &format, QByteArrayView head, QByteArrayView bodies = {});

/// The parts of the file \a name. Throws HException "FILE: ..." when it cannot be read, is of another kind or version,
/// has another size than its prefix says, or does not fit the checksum of a part that is read.
[[nodiscard]] SealedParts readSealed(const SealedFormat &format, const QString &name, SealedRead parts);
/// As readSealed() with all parts, from \a bytes.
[[nodiscard]] SealedParts unsealed(const SealedFormat &format, QByteArrayView bytes, const QString &name);

} // namespace tavidoc
