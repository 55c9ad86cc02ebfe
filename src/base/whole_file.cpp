#include "base/whole_file.h"

#include "base/hexception.h"

#include <QFile>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavidoc {

namespace {

constexpr int s_mostNames = 1000;

/// Closes a file descriptor at the end of a scope.
struct Descriptor
{
    explicit Descriptor(int descriptor) : number(descriptor) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }
    int number;
};

/// Reads to the end of the file; \a expectedSize bytes are read without a second allocation.
std::optional<QByteArray> readToEnd(int descriptor, qsizetype expectedSize)
{
    QByteArray bytes(expectedSize + 1, Qt::Uninitialized); // one more shows the end of the file
    qsizetype size = 0;
    for (;;) {
        if (size == bytes.size())
            bytes.resize(bytes.size() * 2);
        const ssize_t count = ::read(descriptor, bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
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

/// On a full disk a call writes less than it should, and the next one fails.
bool writeAll(int file, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

} // namespace

QStringList *filesRead = nullptr;

std::optional<QByteArray> readRegularFile(const QString &name)
{
    if (filesRead != nullptr)
        filesRead->append(name);
    const QByteArray path = QFile::encodeName(name);
    if (path.contains('\0'))
        return std::nullopt;
    // Not blocking: opening a pipe must not wait for its writer.
    const Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.number < 0 || ::fstat(file.number, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readToEnd(file.number, status.st_size);
}

bool writeAndClose(int file, const QByteArray &bytes)
{
    const bool isWritten = writeAll(file, bytes);
    const bool isClosed = ::close(file) == 0 || errno == EINTR; // closed nevertheless
    return isWritten && isClosed;
}

void writeWholeFile(const QString &fileName, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(fileName);
    QByteArray temporary;
    const int file = openNewFile(target, temporary);
    if (file >= 0) {
        if (writeAndClose(file, bytes) && std::rename(temporary.constData(), target.constData()) == 0)
            return;
        ::unlink(temporary.constData());
    }
    throw HException("cannot write " + fileName.toUtf8());
}

} // namespace tavidoc
