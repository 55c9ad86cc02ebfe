#pragma once

#include <QStringList>

namespace tavidoc {

/// What every program does first: opens standard files that are closed, lets writing to a broken pipe or past a limit of
/// the file size fail instead of ending the process, and drops warnings of Qt.
void prepareProcess();

/// The arguments of main() after the program's path. Made without an application object, which would take a tenth of the
/// time of a short run, mainly for the locale, which must change nothing.
[[nodiscard]] QStringList argumentsOf(int count, char **arguments);

} // namespace tavidoc
