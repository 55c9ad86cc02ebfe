#pragma once

#include "site/command/build.h"
#include "site/command/progress.h"

#include <QString>

namespace tavidoc {

class Arguments;

/// Where a build writes.
struct SitePlaces
{
    QString output;
    QString cache;
};

/// The values of "--output" and "--cache"; the cache is beside the output unless given. Throws UsageError.
[[nodiscard]] SitePlaces sitePlaces(const Arguments &arguments);

[[nodiscard]] Progress::Mode progressMode(const Arguments &arguments);

enum class HasPages
{
    No,
    Yes,
};

/// Prints the findings of a build and, unless it is to be quiet, a line with its figures. Returns the exit status.
int printSummary(const Arguments &arguments, const Project &project, const BuildReport &report, HasPages hasPages);

} // namespace tavidoc
