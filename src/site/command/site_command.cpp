#include "site/command/site_command.h"

#include "base/hexception.h"
#include "base/process.h"
#include "site/command/arguments.h"
#include "site/command/build.h"
#include "site/command/findings.h"
#include "site/command/project.h"
#include "site/command/verbs.h"
#include "site/command/worker_pool.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <new>

namespace tavidoc {

namespace {

using enum OptionId;

constexpr OptionId s_buildOptions[] = {Output, Jobs, Strict, ExitZero, Progress, Quiet, Cache};
constexpr OptionId s_compileOptions[] = {Output, Folder, Depfile, Target};
constexpr OptionId s_linkOptions[] = {Output, Partial, Strict, ExitZero, Quiet, Depfile, Target};
constexpr OptionId s_renderOptions[] = {Output, Link, Depfile, Target};
constexpr OptionId s_checkOptions[] = {Jobs, Strict, ExitZero, Progress, Quiet, Cache};
constexpr OptionId s_watchOptions[] = {Output, Jobs, Progress, Quiet, Cache};
constexpr OptionId s_exportOptions[] = {Output, Jobs, Strict, ExitZero, Progress, Quiet, Cache};

constexpr Verb s_verbs[] = {
    {"build", "[site.toml | INPUT...] -o DIR", "make the site: compile, link and render what changed", s_buildOptions,
     &buildVerb},
    {"compile", "INPUT -o X.tdr", "compile one input into a record", s_compileOptions, &compileVerb},
    {"link", "[site.toml] X.tdr... -o LINK", "link records: resolve links, join contents, check everything",
     s_linkOptions, &linkVerb},
    {"render", "[X.tdr...] --link LINK -o DIR", "write the pages of records, or without records what all pages share",
     s_renderOptions, &renderVerb},
    {"single", "[site.toml | INPUT...] -o FILE", "make one page of all pages, for print and PDF", s_exportOptions,
     &singleVerb},
    {"check", "[site.toml | INPUT...]", "do everything but the pages", s_checkOptions, &checkVerb},
    {"watch", "[site.toml | INPUT...] -o DIR", "build again when a file changes; open pages reload themselves",
     s_watchOptions, &watchVerb},
    {"export", "inventory|tags|qhp [site.toml | INPUT...] -o FILE",
     "write the names of the site for Sphinx or Doxygen, or a help project for Qt", s_exportOptions, &exportVerb},
    {"dump", "X.tdr", "print a record as text", {}, &dumpVerb},
};

int print(const std::string &text)
{
    std::fputs(text.c_str(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}

int run(QStringList arguments)
{
    if (arguments.isEmpty()) {
        std::fputs(programHelp().c_str(), stderr);
        return 2;
    }
    const QString first = arguments.takeFirst();
    if (first == QLatin1StringView("--help") || first == QLatin1StringView("-h"))
        return print(programHelp());
    const std::string version = "tavidoc-site " TAVIDOC_VERSION "\n";
    if (first == QLatin1StringView("--version"))
        return print(version);
    const Verb &verb = verbNamed(first);
    const Arguments parsed(verb, arguments);
    if (parsed.has(Help))
        return print(verbHelp(verb));
    if (parsed.has(Version))
        return print(version);
    return verb.run(parsed);
}

int fail(const std::vector<std::string> &messages, int status)
{
    std::fflush(stdout); // both streams may be the same file
    for (const std::string &message : messages)
        printLine(message);
    return status;
}

/// Ends the process as \a signal does when nobody handles it, so that a shell knows.
int endBy(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    return 1;
}

} // namespace

std::span<const Verb> siteVerbs()
{
    return s_verbs;
}

int siteCommand(int argc, char *argv[])
{
    prepareProcess();
    const QCoreApplication application(argc, argv);
    watchInterrupts();
    try {
        return run(QCoreApplication::arguments().mid(1));
    } catch (const UsageError &error) {
        return fail({"tavidoc-site: " + error.message}, 2);
    } catch (const ProjectError &error) {
        return fail(error.messages, error.status);
    } catch (const BuildError &error) {
        return fail(error.messages, 1);
    } catch (const HException &exception) {
        return fail({"error: " + exception.message().toStdString()}, 1);
    } catch (const InterruptedError &interrupt) {
        return endBy(interrupt.signal);
    } catch (const std::bad_alloc &) {
        return fail({"error: out of memory"}, 1);
    }
}

} // namespace tavidoc
