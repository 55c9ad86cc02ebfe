#include "base/hexception.h"
#include "driver/command_line.h"
#include "driver/run.h"

#include <QCoreApplication>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include <fcntl.h>
#include <langinfo.h>
#include <unistd.h>

using namespace tavidoc;

namespace {

/// Qt prints a warning to the standard error when the locale's character set is not UTF-8.
void makeLocaleUtf8()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0)
        ::setenv("LC_ALL", "C.UTF-8", 1);
}

/// A file that is opened while a standard one is closed gets its number, and messages would be written to it.
void openStandardFiles()
{
    int file = 0;
    while (file >= 0 && file <= STDERR_FILENO)
        file = ::open("/dev/null", O_RDWR);
    if (file > STDERR_FILENO)
        ::close(file);
}

/// A broken pipe or a file size limit makes writing fail instead of ending the process.
void ignoreWriteSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void keepQuiet(QtMsgType, const QMessageLogContext &, const QString &) {}

/// Prints the fatal error \a message after all earlier output.
int fail(const char *message)
{
    std::fflush(stdout); // both streams may be the same file
    std::fprintf(stderr, "error: %s\n", message);
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    openStandardFiles();
    makeLocaleUtf8();
    ignoreWriteSignals();
    qInstallMessageHandler(keepQuiet);
    const QCoreApplication application(argc, argv);
    // Deliberate: arguments are parsed outside the try block, so a missing directory after "-o"
    // terminates the process through the C++ runtime.
    const Settings settings = parseArguments(ArgumentQueue(QCoreApplication::arguments().mid(1)));
    if (settings.inputs.isEmpty()) {
        std::fputs(usageText().constData(), stderr);
        return EXIT_FAILURE;
    }
    try {
        documentInputs(settings);
    } catch (const HException &exception) {
        return fail(exception.message().constData());
    } catch (const std::bad_alloc &) {
        return fail("out of memory");
    }
    return EXIT_SUCCESS;
}
