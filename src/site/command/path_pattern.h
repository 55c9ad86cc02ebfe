#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Whether \a pattern has wildcards.
[[nodiscard]] bool isPattern(std::string_view pattern);

/// The regular files that \a pattern matches, relative to \a directory as the pattern is, sorted by their bytes. "*" and
/// "?" match characters of a name, but not a dot at its beginning; "**" as a whole name matches any directories, itself
/// included, and at the end all files below. Links to directories are not followed by "**".
/// The directories that were looked at, whether they exist or not, are appended to \a visited.
[[nodiscard]] std::vector<std::string> matchingFiles(const std::string &directory, std::string_view pattern,
                                                     std::vector<std::string> *visited = nullptr);

} // namespace tavidoc
