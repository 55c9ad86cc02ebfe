#include "base/process.h"

#include <QtGlobal>

#include <csignal>
#include <cstdlib>

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
    ::setenv("LC_ALL", "C.UTF-8", 1); // Qt warns about other character sets, which may be made fatal
}

} // namespace tavidoc
