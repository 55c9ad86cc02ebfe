#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// Whether \a path, with "/", leads to a place below where it begins: it is relative, and no name in it is empty, "." or
/// "..". Nor may it have characters that Windows does not allow in paths or that end a C string.
[[nodiscard]] bool isInside(std::string_view path);

/// The directory of the file \a path with "/" at its end; empty without one.
[[nodiscard]] std::string_view directoryWithSlash(std::string_view path);
/// The name of the file \a path without directories.
[[nodiscard]] std::string_view fileNameOf(std::string_view path);

} // namespace tavidoc
