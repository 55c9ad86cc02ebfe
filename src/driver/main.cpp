#include "base/hexception.h"
#include "base/process.h"
#include "driver/command_line.h"
#include "driver/run.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <new>

using namespace tavidoc;

namespace {

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
    prepareProcess();
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
