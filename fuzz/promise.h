#pragma once

#include <string>
#include <string_view>

/// Ends the process if \a holds is false. Prints \a what, the broken promise, followed by \a evidence.
void promise(bool holds, std::string_view what, std::string_view evidence = {});

/// Ends the process if the two texts differ. Prints the place of the first difference.
void promiseEqual(std::string_view actual, std::string_view expected, std::string_view what);
