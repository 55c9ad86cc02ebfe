#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// What leads from the page \a from to \a to, both addresses relative to the top of the site.
[[nodiscard]] std::string relativeAddress(std::string_view from, std::string_view to);

/// The directory of \a path, without a "/" at its end; empty when there is none.
[[nodiscard]] std::string_view directoryOf(std::string_view path);

/// \a relative, seen from \a directory, without "." and ".." and doubled slashes. Nothing when it leads out of the
/// directory at the top.
[[nodiscard]] std::optional<std::string> joinedPath(std::string_view directory, std::string_view relative);

/// \a relative, seen from \a directory, cleaned; may begin with ".." or "/".
[[nodiscard]] std::string cleanedPath(std::string_view directory, std::string_view relative);

/// The scheme with which \a target begins, in small letters and without ":"; empty when there is none. "a::b" has none.
[[nodiscard]] std::string schemeOf(std::string_view target);

/// \a text with its escapes, "%" and two hexadecimal digits, undone.
[[nodiscard]] std::string percentDecoded(std::string_view text);

} // namespace tavidoc
