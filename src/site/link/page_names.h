#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// \a path, any bytes with "/" between its components, as a name that works in the file systems of Linux, Windows and
/// macOS and in an address without escapes. ASCII letters, digits, ".", "_" and "-" stay; every other byte becomes "~"
/// and two hexadecimal digits. Where a file system forbids a name for another reason (devices of Windows, a dot at the
/// end, no name at all) one of its characters is written in the same way. Different paths have different names.
[[nodiscard]] std::string encodedPath(std::string_view path);

/// The address of the page \a stem in \a folder, relative to the top of the site: encoded, with ".htm".
[[nodiscard]] std::string pageAddress(std::string_view folder, std::string_view stem);

/// \a name without the ".htm" at its end.
[[nodiscard]] std::string_view withoutPageSuffix(std::string_view name);

/// \a address, which ends in ".htm", with "-" and \a number before that suffix.
[[nodiscard]] std::string numberedAddress(std::string_view address, std::size_t number);

/// \a text with small letters in place of ASCII capitals.
[[nodiscard]] std::string lowerCase(std::string_view text);

/// Whether \a address is that of a page that the site makes itself: contents, names (all of its parts), search.
[[nodiscard]] bool isSitePage(std::string_view address);

} // namespace tavidoc
