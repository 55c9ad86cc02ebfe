#include "base/process.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tavidoc {

namespace {

/// A file that is opened while a standard one is closed gets its number, and messages would be written to it.
void openStandardFiles()
{
    int file = 0;
    while (file >= 0 && file <= STDERR_FILENO)
        file = ::open("/dev/null", O_RDWR);
    if (file > STDERR_FILENO)
        ::close(file);
}

void keepQuiet(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

void prepareProcess()
{
    openStandardFiles();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    qInstallMessageHandler(keepQuiet);
}

QStringList argumentsOf(int count, char **arguments)
{
    QStringList result;
    for (int index = 1; index < count; ++index)
        result.append(QString::fromLocal8Bit(arguments[index])); // UTF-8 in every locale
    return result;
}

} // namespace tavidoc
