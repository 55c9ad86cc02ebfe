#pragma once

#include "site/command/project.h"
#include "site/link/link.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tavidoc {

class Progress;

/// What to build.
struct BuildRequest
{
    const Project &project;
    QString cache;  ///< directory of records and links; created
    QString output; ///< directory of the pages; empty: everything but the pages
    int jobs = 1;
    Progress &progress;
    std::function<bool()> isOutdated = {}; ///< whether the pages are not worth writing any more
};

/// What a build did.
struct BuildReport
{
    std::vector<Finding> findings;
    std::size_t inputs = 0;
    std::size_t compiled = 0;           ///< inputs
    std::size_t files = 0;              ///< of the site
    std::size_t written = 0;            ///< files
    std::size_t removed = 0;            ///< files
    std::vector<std::string> lookedFor; ///< all files that the site depends on, if it is watched
};

/// A build that failed; the site is as it was.
struct BuildError
{
    std::vector<std::string> messages; ///< whole lines, in the order of the inputs
};

/// What a build throws that is outdated; the site is as it was.
struct OutdatedBuild
{
};

/// Compiles the inputs that changed, links and renders what depends on them. A build that runs at the same time with the
/// same cache or output waits until this one is finished. Throws BuildError, OutdatedBuild, HException and InterruptedError.
[[nodiscard]] BuildReport build(const BuildRequest &request);

} // namespace tavidoc
