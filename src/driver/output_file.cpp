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

QByteArray bytesOf(const std::string &text)
{
    return QByteArray::fromStdString(text);
}

} // namespace

OutputDirectory::OutputDirectory(const QString &path)
    : m_path(path.toStdString()),
      m_directory(::open(QFile::encodeName(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC))
{
}

OutputDirectory::~OutputDirectory()
{
    if (m_directory >= 0)
        ::close(m_directory);
}

std::string OutputDirectory::pathOf(std::string_view name) const
{
    std::string path = m_path;
    path += '/';
    return path += name;
}

/// Replaces the file \a name in \a directory by a new one and opens it for writing; negative on failure. Where pages
/// exist, they are removed first: creating a file that exists would be a call in vain.
int OutputDirectory::openPage(int directory, const char *name)
{
    constexpr int attempts = 4; // another run may create the file in between
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (m_unlinksFirst && ::unlinkat(directory, name, 0) != 0) {
            m_unlinksFirst = false;
            if (errno != ENOENT)
                break;
        }
        const int file = ::openat(directory, name, s_flags | O_EXCL, s_permissions);
        if (file >= 0)
            return file;
        if (errno != EEXIST)
            break;
        m_unlinksFirst = true;
    }
    return ::openat(directory, name, s_flags | O_TRUNC, s_permissions);
}

void OutputDirectory::write(std::string_view name, std::span<const std::string_view> parts)
{
    const bool isInside = m_directory >= 0;
    const std::string file = isInside ? std::string(name) : pathOf(name);
    const int directory = isInside ? m_directory : AT_FDCWD;
    const int descriptor = file.find('\0') == std::string::npos ? openPage(directory, file.c_str()) : -1;
    if (descriptor < 0)
        throw HException("cannot open " + bytesOf(pathOf(name)));
    if (writeAndClose(descriptor, parts))
        return;
    ::unlinkat(directory, file.c_str(), 0);
    throw HException("cannot write " + bytesOf(pathOf(name)));
}

} // namespace tavidoc
