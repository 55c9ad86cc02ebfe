#include "site/command/build_summary.h"

#include "site/command/arguments.h"
#include "site/command/findings.h"

#include <QDir>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// "12 inputs (1 compiled), 240 files (3 written, 0 removed): 1 error, 0 warnings"
std::string summary(const BuildReport &report, const FindingCounts &counts, HasPages hasPages)
{
    std::string text = counted(report.inputs, "input") + " (" + std::to_string(report.compiled) + " compiled)";
    if (hasPages == HasPages::Yes)
        text += ", " + counted(report.files, "file") + " (" + std::to_string(report.written) + " written, " +
                std::to_string(report.removed) + " removed)";
    return text + ": " + counts.text();
}

/// \a directory without a "/" at its end.
QString withoutSlash(QString directory)
{
    while (directory.size() > 1 && directory.endsWith(u'/'))
        directory.chop(1);
    return directory;
}

} // namespace

SitePlaces sitePlaces(const Arguments &arguments)
{
    const QString output = withoutSlash(arguments.required(OptionId::Output));
    // Beside the output, even if its name is "." or ends with "..".
    const QString usualCache = QDir::cleanPath(QDir::current().absoluteFilePath(output)) + u".cache"_s;
    return {output, arguments.has(OptionId::Cache) ? arguments.value(OptionId::Cache) : usualCache};
}

Progress::Mode progressMode(const Arguments &arguments)
{
    if (arguments.has(OptionId::Quiet))
        return Progress::Mode::Never;
    return arguments.has(OptionId::Progress) ? Progress::Mode::Always : Progress::Mode::OnTerminal;
}

int printSummary(const Arguments &arguments, const Project &project, const BuildReport &report, HasPages hasPages)
{
    const FindingCounts counts = printFindings(report.findings, project.settings.levels);
    if (!arguments.has(OptionId::Quiet))
        printLine(summary(report, counts, hasPages));
    return counts.status(arguments);
}

} // namespace tavidoc
