#include "base/whole_file.h"

#include "base/hexception.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace tavidoc {

namespace {

constexpr int s_mostNames = 1000;

/// Opens a file that nobody else has, not even a process of the same number in another
/// container or what such a process left behind. Its name is put into \a name; -1 on failure.
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

/// A full disk shows as a count that is too small; the next call then fails.
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

bool writeAndClose(int file, const QByteArray &bytes)
{
    const bool isWritten = writeAll(file, bytes);
    const bool isClosed = ::close(file) == 0 || errno == EINTR; // closed all the same
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
