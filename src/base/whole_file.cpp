#include "base/whole_file.h"

#include "base/hexception.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace tavidoc {

namespace {

constexpr int s_mostNames = 1000;
constexpr std::size_t s_mostParts = 8;

/// Creates a file under a name that is not in use, not even by a process of the same number in another container or by
/// what such a process left behind. Sets \a name; -1 on failure.
int openNewFile(const QByteArray &target, QByteArray &name)
{
    for (int attempt = 0; attempt < s_mostNames; ++attempt) {
        name = target + '.' + QByteArray::number(::getpid()) + '.' + QByteArray::number(attempt) + ".tmp";
        const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

/// Removes the first \a count bytes of \a parts.
std::span<iovec> withoutBeginning(std::span<iovec> parts, std::size_t count)
{
    while (!parts.empty() && count >= parts.front().iov_len) {
        count -= parts.front().iov_len;
        parts = parts.subspan(1);
    }
    if (!parts.empty()) {
        parts.front().iov_base = static_cast<char *>(parts.front().iov_base) + count;
        parts.front().iov_len -= count;
    }
    return parts;
}

/// On a full disk a call writes less than it should, and the next one fails.
bool writeAll(int file, std::span<iovec> parts)
{
    parts = withoutBeginning(parts, 0);
    while (!parts.empty()) {
        const ssize_t count = ::writev(file, parts.data(), static_cast<int>(parts.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        parts = withoutBeginning(parts, static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

QStringList *filesRead = nullptr;

RegularFile::RegularFile(const QString &name)
{
    const QByteArray path = QFile::encodeName(name);
    if (path.contains('\0'))
        return;
    // Not blocking: opening a pipe must not wait for its writer.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status = {};
    if (descriptor >= 0 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        m_descriptor = descriptor;
        m_size = status.st_size;
    } else if (descriptor >= 0) {
        ::close(descriptor);
    }
}

RegularFile::~RegularFile()
{
    if (isOpen())
        ::close(m_descriptor);
}

std::optional<QByteArray> RegularFile::bytes(qsizetype offset, qsizetype count) const
{
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype done = 0; done < count;) {
        const ssize_t size =
            ::pread(m_descriptor, bytes.data() + done, static_cast<std::size_t>(count - done), offset + done);
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return std::nullopt;
        done += size;
    }
    return bytes;
}

std::optional<QByteArray> RegularFile::allBytes() const
{
    QByteArray bytes(m_size + 1, Qt::Uninitialized); // one more shows the end of the file
    qsizetype size = 0;
    for (;;) {
        if (size == bytes.size())
            bytes.resize(bytes.size() * 2);
        const ssize_t count = ::read(m_descriptor, bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        size += count;
    }
    bytes.truncate(size);
    return bytes;
}

std::optional<QByteArray> readRegularFile(const QString &name)
{
    if (filesRead != nullptr)
        filesRead->append(name);
    const RegularFile file(name);
    return file.isOpen() ? file.allBytes() : std::nullopt;
}

bool writeAndClose(int file, std::span<const std::string_view> parts)
{
    std::array<iovec, s_mostParts> vectors; // not initialised
    Q_ASSERT(parts.size() <= vectors.size());
    std::ranges::transform(parts, vectors.begin(), [](std::string_view part) {
        return iovec{const_cast<char *>(part.data()), part.size()};
    });
    const bool isWritten = writeAll(file, std::span(vectors).first(parts.size()));
    const bool isClosed = ::close(file) == 0 || errno == EINTR; // closed nevertheless
    return isWritten && isClosed;
}

void writeWholeFile(const QString &fileName, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(fileName);
    QByteArray temporary;
    const int file = openNewFile(target, temporary);
    if (file >= 0) {
        const std::string_view whole(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        if (writeAndClose(file, {&whole, 1}) && std::rename(temporary.constData(), target.constData()) == 0)
            return;
        ::unlink(temporary.constData());
    }
    throw HException("cannot write " + fileName.toUtf8());
}

void writeNewFile(const QString &fileName, const QByteArray &bytes)
{
    const QByteArray name = QFile::encodeName(fileName);
    const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const std::string_view parts[] = {{bytes.constData(), static_cast<std::size_t>(bytes.size())}};
    if (file >= 0 && writeAndClose(file, parts))
        return;
    if (file >= 0)
        ::unlink(name.constData());
    throw HException("cannot write " + fileName.toUtf8());
}

bool updateWholeFile(const QString &fileName, const QByteArray &bytes)
{
    const RegularFile file(fileName);
    if (file.isOpen() && file.size() == bytes.size() && file.bytes(0, bytes.size()) == bytes)
        return false;
    writeWholeFile(fileName, bytes);
    return true;
}

} // namespace tavidoc
