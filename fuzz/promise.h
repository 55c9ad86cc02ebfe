#pragma once

#include <string>
#include <string_view>

/// Ends the process when \a holds is false: \a what names the promise that was broken.
/// \a evidence is shown after it.
void promise(bool holds, std::string_view what, std::string_view evidence = {});

/// Ends the process when the two texts differ, and shows where.
void promiseEqual(std::string_view actual, std::string_view expected, std::string_view what);
