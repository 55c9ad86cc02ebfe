#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavidoc {

/// The offset of the last command in \a text that copies a file into a page or saves an icon. Nothing else makes a
/// translation fail or read a file. \a text may also be a header with comments, in which `\this` stands for a name.
[[nodiscard]] std::optional<std::size_t> lastFileCommand(std::string_view text);

} // namespace tavidoc
