#pragma once

#include "site/link/link.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tavidoc {

class Arguments;

/// How many findings there are at each level.
struct FindingCounts
{
    std::size_t errors = 0;
    std::size_t warnings = 0;

    /// "2 errors, 1 warning", or "no errors".
    [[nodiscard]] std::string text() const;
    /// The exit status that \a arguments ask for: 1 for errors, with "--strict" for warnings too, 0 with "--exit-zero".
    [[nodiscard]] int status(const Arguments &arguments) const;
};

/// Prints \a findings to the standard error, "FILE:LINE: error: text [check]", in their order, without those whose check
/// is off. \a levels are those that the project file sets.
FindingCounts printFindings(const std::vector<Finding> &findings, const std::map<std::string, CheckLevel> &levels);

/// The lines of the findings at error level.
[[nodiscard]] std::vector<std::string> errorLines(const std::vector<Finding> &findings,
                                                  const std::map<std::string, CheckLevel> &levels);

/// "1 error", "2 errors"; \a plural is the word for several, unless it is \a what with "s".
[[nodiscard]] std::string counted(std::size_t count, const char *what, const char *plural = nullptr);

/// Prints a line to the standard error. Line ends in \a text, which names in sources may have, become blanks.
void printLine(std::string text);

} // namespace tavidoc
