// The verbs that begin with the inputs: build, check and export.

#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/build_summary.h"
#include "site/command/verbs.h"
#include "site/command/whole_set.h"
#include "site/exchange/inventory.h"
#include "site/exchange/tag_file.h"

#include <QTemporaryDir>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// What a site is exported as.
struct ExportFormat
{
    QLatin1StringView name;
    void (*write)(const WholeSet &set, const QString &file);
};

template <QByteArray (*bytes)(const SharedLinks &shared)> void writeNames(const WholeSet &set, const QString &file)
{
    updateWholeFile(file, bytes(set.shared()));
}

constexpr ExportFormat s_exportFormats[] = {
    {"inventory"_L1, &writeNames<inventoryFile>}, {"tags"_L1, &writeNames<tagFile>}, {"qhp"_L1, &writeHelpProject}};

} // namespace

int buildVerb(const Arguments &arguments)
{
    const SitePlaces places = sitePlaces(arguments);
    const int jobs = arguments.jobs();
    const Project project = projectOf(arguments.operands());
    Progress progress(progressMode(arguments));
    const BuildReport report = build({project, places.cache, places.output, jobs, progress});
    return printSummary(arguments, project, report, HasPages::Yes);
}

int buildWithoutPages(const Arguments &arguments, const QStringList &operands,
                      const std::function<void(const WholeSet &set)> &use)
{
    const int jobs = arguments.jobs();
    const Project project = projectOf(operands);
    std::optional<QTemporaryDir> temporary;
    if (!arguments.has(OptionId::Cache))
        temporary.emplace();
    const QString cache = temporary ? temporary->path() : arguments.value(OptionId::Cache);
    Progress progress(progressMode(arguments));
    const BuildReport report = build({project, cache, {}, jobs, progress});
    if (use)
        use(WholeSet(project, cache));
    return printSummary(arguments, project, report, HasPages::No);
}

int checkVerb(const Arguments &arguments)
{
    return buildWithoutPages(arguments, arguments.operands(), {});
}

int exportVerb(const Arguments &arguments)
{
    QStringList operands = arguments.operands();
    const QString output = arguments.required(OptionId::Output);
    const auto *const format =
        std::ranges::find(s_exportFormats, operands.isEmpty() ? QString() : operands.takeFirst(), &ExportFormat::name);
    if (format == std::end(s_exportFormats))
        throw UsageError{"export: expected \"inventory\", \"tags\" or \"qhp\""};
    return buildWithoutPages(arguments, operands, [&](const WholeSet &set) { format->write(set, output); });
}

} // namespace tavidoc
