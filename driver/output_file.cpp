#include "driver/output_file.h"

#include "driver/hexception.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int s_flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK; // not blocking: a pipe must not wait
constexpr mode_t s_permissions = 0666;                               // the umask takes from them

/// Opens the file \a path for writing in place of any that exists; negative when that fails.
int openInPlace(const char *path)
{
    constexpr int attempts = 4; // another run may make the file between the removal and the opening
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int file = ::open(path, s_flags | O_EXCL, s_permissions);
        if (file >= 0)
            return file;
        if (errno != EEXIST || ::unlink(path) != 0)
            break;
    }
    return ::open(path, s_flags | O_TRUNC, s_permissions);
}

/// Writes all \a bytes; a full disk shows as a short count or as an error.
bool writeAll(int file, const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(file, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

/// Closes \a file; false when that shows that its bytes were not written.
bool closeFile(int file)
{
    return ::close(file) == 0 || errno == EINTR;
}

} // namespace

void writeOutputFile(const QString &name, const QByteArray &bytes)
{
    const QByteArray path = QFile::encodeName(name);
    const int file = path.contains('\0') ? -1 : openInPlace(path.constData());
    if (file < 0)
        throw HException("cannot open " + name.toUtf8());
    const bool written = writeAll(file, bytes);
    if (closeFile(file) && written)
        return;
    ::unlink(path.constData());
    throw HException("cannot write " + name.toUtf8());
}
