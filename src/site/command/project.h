#pragma once

#include "site/command/directory_watcher.h"
#include "site/link/link_data.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace tavidoc {

/// An input of a site.
struct ProjectInput
{
    std::string file;     ///< relative to the working directory, or absolute
    std::string folder;   ///< of its pages
    std::string position; ///< FILE:LINE:COLUMN of its name in the project file; empty: from the command line

    /// The beginning of a message about the input.
    [[nodiscard]] const std::string &place() const { return position.empty() ? file : position; }
};

/// What a site is made of.
struct Project
{
    SiteSettings settings;
    std::vector<ProjectInput> inputs; ///< in order; no file twice in the same folder
    WatchedFiles lookedFor;           ///< what the inputs and the names in the project file depend on
};

/// Faults of a project file or of the inputs.
struct ProjectError
{
    std::vector<std::string> messages; ///< "FILE:LINE:COLUMN: error: ..." in order
    int status = 2;                    ///< exit status: 1 when only files cannot be read
    WatchedFiles lookedFor = {};       ///< as in a project
};

/// Whether \a name is that of a project file: it ends with ".toml".
[[nodiscard]] bool isProjectFile(const QString &name);

/// Reads the project file \a file. Paths in it are relative to its directory. Throws ProjectError.
[[nodiscard]] Project readProject(const QString &file);

/// The project of the operands of a verb: a project file or inputs; "site.toml" if there are none and it exists. Throws
/// UsageError and ProjectError.
[[nodiscard]] Project projectOf(const QStringList &operands);

} // namespace tavidoc
