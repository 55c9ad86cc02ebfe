#include "driver/output_file.h"

#include "base/hexception.h"
#include "base/whole_file.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace tavidoc {

namespace {

constexpr int s_flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK; // do not wait for the reader of a pipe
constexpr mode_t s_permissions = 0666;                               // reduced by the umask

/// Replaces the file \a path by a new one and opens it for writing; negative on failure.
int openInPlace(const char *path)
{
    constexpr int attempts = 4; // another run may create the file in between
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int file = ::open(path, s_flags | O_EXCL, s_permissions);
        if (file >= 0)
            return file;
        if (errno != EEXIST || ::unlink(path) != 0)
            break;
    }
    return ::open(path, s_flags | O_TRUNC, s_permissions);
}

} // namespace

void writeOutputFile(const QString &name, const QByteArray &bytes)
{
    const QByteArray path = QFile::encodeName(name);
    const int file = path.contains('\0') ? -1 : openInPlace(path.constData());
    if (file < 0)
        throw HException("cannot open " + name.toUtf8());
    if (writeAndClose(file, bytes))
        return;
    ::unlink(path.constData());
    throw HException("cannot write " + name.toUtf8());
}

} // namespace tavidoc
