#include "base/hexception.h"
#include "driver/command_line.h"
#include "driver/run.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include <fcntl.h>
#include <unistd.h>

using namespace tavidoc;

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

/// A broken pipe or a file size limit makes writing fail instead of ending the process.
void ignoreWriteSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// The arguments after the program's path. There is no application object: it would take a tenth of the time of a short
/// run, mainly for the locale, which must change nothing.
QStringList argumentsOf(int count, char **arguments)
{
    QStringList result;
    for (int index = 1; index < count; ++index)
        result.append(QString::fromLocal8Bit(arguments[index])); // UTF-8 in every locale
    return result;
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
    ignoreWriteSignals();
    qInstallMessageHandler(keepQuiet);
    // Deliberate: arguments are parsed outside the try block, so a missing directory after "-o"
    // terminates the process through the C++ runtime.
    const Settings settings = parseArguments(ArgumentQueue(argumentsOf(argc, argv)));
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
