#include "site/record/sealed_file.h"

#include "base/hexception.h"
#include "base/whole_file.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <optional>
#include <string>

namespace tavidoc {

namespace {

constexpr qsizetype s_magicSize = 8;
constexpr qsizetype s_prefixSize = 48;

/// The numbers of the prefix after the magic, each little-endian in eight bytes.
struct Prefix
{
    quint64 version;
    quint64 headSize;
    quint64 bodiesSize;
    quint64 headSum;
    quint64 bodiesSum;
};
static_assert(s_magicSize + sizeof(Prefix) == s_prefixSize);

[[noreturn]] void fail(const QString &name, const std::string &reason)
{
    throw HException(name.toUtf8() + ": " + QByteArray::fromStdString(reason));
}

quint64 toSize(qsizetype size)
{
    return static_cast<quint64>(size);
}

qsizetype toSignedSize(quint64 size)
{
    return static_cast<qsizetype>(size);
}

/// Checks what \a bytes, the beginning of a file of \a fileSize bytes, says of the whole.
Prefix checkedPrefix(const SealedFormat &format, QByteArrayView bytes, qsizetype fileSize, const QString &name)
{
    const std::string what(format.what);
    if (bytes.first(std::min(bytes.size(), s_magicSize)) != QByteArrayView(format.magic))
        fail(name, "not " + what);
    if (bytes.size() < s_prefixSize)
        fail(name, "truncated");
    Prefix prefix = {};
    quint64 *numbers[] = {&prefix.version, &prefix.headSize, &prefix.bodiesSize, &prefix.headSum, &prefix.bodiesSum};
    const char *at = bytes.data() + s_magicSize;
    for (quint64 *number : numbers) {
        *number = qFromLittleEndian<quint64>(at);
        at += sizeof(quint64);
    }
    if (prefix.version != format.version)
        fail(name, what + " of another version of the program");
    const quint64 size = toSize(fileSize - s_prefixSize);
    if (prefix.headSize > size || prefix.bodiesSize > size - prefix.headSize)
        fail(name, "truncated");
    if (prefix.headSize + prefix.bodiesSize != size)
        fail(name, "damaged");
    return prefix;
}

/// The bytes \a part of a file, which must have the checksum \a sum.
QByteArrayView verified(QByteArrayView part, quint64 sum, const QString &name)
{
    if (checksum(part) != sum)
        fail(name, "damaged");
    return part;
}

} // namespace

std::uint64_t checksum(QByteArrayView bytes)
{
    // Each step is a bijection of the sum, so what differs stays different. Four sums hide the latency of multiplying.
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    constexpr std::size_t lanes = 4;
    std::uint64_t sums[lanes] = {1, 2, 3, 4};
    const auto mixed = [](std::uint64_t state, std::uint64_t next) { return std::rotl((state ^ next) * factor, 29); };
    const char *at = bytes.data();
    auto left = static_cast<std::size_t>(bytes.size());
    for (; left >= sizeof sums; left -= sizeof sums) {
        for (std::uint64_t &sum : sums) {
            sum = mixed(sum, qFromLittleEndian<quint64>(at));
            at += sizeof sum;
        }
    }
    auto total = static_cast<std::uint64_t>(bytes.size());
    for (const std::uint64_t sum : sums)
        total = mixed(total, sum);
    for (; left != 0; --left)
        total = mixed(total, static_cast<unsigned char>(*at++));
    return total;
}

QByteArray sealed(const SealedFormat &format, QByteArrayView head, QByteArrayView bodies)
{
    QByteArray bytes;
    bytes.reserve(s_prefixSize + head.size() + bodies.size());
    bytes.append(format.magic.data(), s_magicSize);
    for (const quint64 number : {quint64{format.version}, toSize(head.size()), toSize(bodies.size()),
                                 quint64{checksum(head)}, quint64{checksum(bodies)}}) {
        const quint64 stored = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
    }
    return bytes.append(head).append(bodies);
}

SealedParts readSealed(const SealedFormat &format, const QString &name, SealedRead parts)
{
    const RegularFile file(name);
    if (!file.isOpen())
        fail(name, "cannot be read");
    QByteArray bytes = file.bytes(0, s_prefixSize).value_or(QByteArray());
    const Prefix prefix = checkedPrefix(format, bytes, file.size(), name);
    const qsizetype headSize = toSignedSize(prefix.headSize);
    const std::optional<QByteArray> head = file.bytes(s_prefixSize, headSize);
    if (!head)
        fail(name, "cannot be read");
    SealedParts result;
    result.head = *head;
    result.bodiesSize = prefix.bodiesSize;
    verified(result.head, prefix.headSum, name);
    if (parts == SealedRead::Head)
        return result;
    const std::optional<QByteArray> bodies = file.bytes(s_prefixSize + headSize, toSignedSize(prefix.bodiesSize));
    if (!bodies)
        fail(name, "cannot be read");
    result.bodies = *bodies;
    verified(result.bodies, prefix.bodiesSum, name);
    return result;
}

SealedParts unsealed(const SealedFormat &format, QByteArrayView bytes, const QString &name)
{
    const Prefix prefix = checkedPrefix(format, bytes.first(std::min(bytes.size(), s_prefixSize)), bytes.size(), name);
    const qsizetype headSize = toSignedSize(prefix.headSize);
    const QByteArrayView head = verified(bytes.sliced(s_prefixSize, headSize), prefix.headSum, name);
    const QByteArrayView bodies = verified(bytes.sliced(s_prefixSize + headSize), prefix.bodiesSum, name);
    return {head.toByteArray(), bodies.toByteArray(), prefix.bodiesSize};
}

} // namespace tavidoc
