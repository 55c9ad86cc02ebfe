#pragma once

namespace tavidoc {

/// Runs `tavidoc-site` with the arguments of main(). Returns the exit status: 0, 1 for findings at error level or a
/// failed build, 2 for wrong arguments or a wrong project file.
[[nodiscard]] int siteCommand(int argc, char *argv[]);

} // namespace tavidoc
