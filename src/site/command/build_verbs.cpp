// The verbs that do everything: build, check and export.

#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/build.h"
#include "site/command/findings.h"
#include "site/command/progress.h"
#include "site/command/verbs.h"
#include "site/exchange/inventory.h"
#include "site/exchange/tag_file.h"
#include "site/link/link_files.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

Progress::Mode progressMode(const Arguments &arguments)
{
    if (arguments.has(OptionId::Quiet))
        return Progress::Mode::Never;
    return arguments.has(OptionId::Progress) ? Progress::Mode::Always : Progress::Mode::OnTerminal;
}

/// "12 inputs (1 compiled), 240 files (3 written, 0 removed): 1 error, 0 warnings"
std::string summary(const BuildReport &report, const FindingCounts &counts, bool hasPages)
{
    std::string text = counted(report.inputs, "input") + " (" + std::to_string(report.compiled) + " compiled)";
    if (hasPages)
        text += ", " + counted(report.files, "file") + " (" + std::to_string(report.written) + " written, " +
                std::to_string(report.removed) + " removed)";
    return text + ": " + counts.text();
}

int finish(const Arguments &arguments, const Project &project, const BuildReport &report, bool hasPages)
{
    const FindingCounts counts = printFindings(report.findings, project.settings.levels);
    if (!arguments.has(OptionId::Quiet))
        printLine(summary(report, counts, hasPages));
    return counts.status(arguments);
}

/// \a directory without a "/" at its end.
QString withoutSlash(QString directory)
{
    while (directory.size() > 1 && directory.endsWith(u'/'))
        directory.chop(1);
    return directory;
}

/// What the names of a site are exported as.
struct ExportFormat
{
    QLatin1StringView name;
    QByteArray (*bytes)(const SharedLinks &shared);
};

constexpr ExportFormat s_exportFormats[] = {{"inventory"_L1, &inventoryFile}, {"tags"_L1, &tagFile}};

/// Compiles and links the project or inputs \a operands and calls \a use with the cache where the links are.
template <typename Use> int buildWithoutPages(const Arguments &arguments, const QStringList &operands, const Use &use)
{
    const int jobs = arguments.jobs();
    const Project project = projectOf(operands);
    std::optional<QTemporaryDir> temporary;
    if (!arguments.has(OptionId::Cache))
        temporary.emplace();
    const QString cache = temporary ? temporary->path() : arguments.value(OptionId::Cache);
    Progress progress(progressMode(arguments));
    const BuildReport report = build({project, cache, {}, jobs, progress});
    use(cache);
    return finish(arguments, project, report, false);
}

} // namespace

int buildVerb(const Arguments &arguments)
{
    const QString output = withoutSlash(arguments.required(OptionId::Output));
    const int jobs = arguments.jobs();
    const Project project = projectOf(arguments.operands());
    // Beside the output, even if its name is "." or ends with "..".
    const QString usualCache = QDir::cleanPath(QDir::current().absoluteFilePath(output)) + u".cache"_s;
    const QString cache = arguments.has(OptionId::Cache) ? arguments.value(OptionId::Cache) : usualCache;
    Progress progress(progressMode(arguments));
    const BuildReport report = build({project, cache, output, jobs, progress});
    return finish(arguments, project, report, true);
}

int checkVerb(const Arguments &arguments)
{
    return buildWithoutPages(arguments, arguments.operands(), [](const QString &) {});
}

int exportVerb(const Arguments &arguments)
{
    QStringList operands = arguments.operands();
    const QString output = arguments.required(OptionId::Output);
    const auto *const format =
        std::ranges::find(s_exportFormats, operands.isEmpty() ? QString() : operands.takeFirst(), &ExportFormat::name);
    if (format == std::end(s_exportFormats))
        throw UsageError{"export: expected \"inventory\" or \"tags\""};
    return buildWithoutPages(arguments, operands, [&](const QString &cache) {
        updateWholeFile(output, format->bytes(readSharedLinks(cache + u"/link/"_s + sharedLinkFileName())));
    });
}

} // namespace tavidoc
