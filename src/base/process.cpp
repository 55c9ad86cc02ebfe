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
    // From version 6.5 on Qt warns about locales that are not UTF-8, which may be made fatal. Before that the locale "C"
    // saves loading one.
    ::setenv("LC_ALL", QT_VERSION < QT_VERSION_CHECK(6, 5, 0) ? "C" : "C.UTF-8", 1);
    ::setenv("QT_NO_GLIB", "1", 1); // nothing runs an event loop, so do not set up GLib's
}

} // namespace tavidoc
