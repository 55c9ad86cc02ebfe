// The verbs that do everything: build, check and export.

#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/build_summary.h"
#include "site/command/verbs.h"
#include "site/exchange/inventory.h"
#include "site/exchange/tag_file.h"
#include "site/link/link_files.h"

#include <QTemporaryDir>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

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
    return printSummary(arguments, project, report, HasPages::No);
}

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
