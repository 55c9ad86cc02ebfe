#pragma once

#include <string_view>

namespace tavidoc {

/// False when it is certain that translating \a text neither fails nor reads a file: it has no command that copies a
/// file into a page or saves an icon. \a text may also be a header with comments, in which `\this` stands for a name.
[[nodiscard]] bool mayUseFiles(std::string_view text);

} // namespace tavidoc
