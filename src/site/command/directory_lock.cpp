#include "site/command/directory_lock.h"

#include "base/hexception.h"
#include "site/command/worker_pool.h"

#include <QDir>
#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tavidoc {

DirectoryLock::DirectoryLock(const QString &directory)
{
    QDir().mkpath(directory);
    m_descriptor = ::open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_descriptor < 0)
        throw HException("cannot write " + directory.toUtf8());
    // A file system without locks is used without them.
    while (::flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR)
        checkInterrupt();
}

DirectoryLock::~DirectoryLock()
{
    ::close(m_descriptor);
}

} // namespace tavidoc
