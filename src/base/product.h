#pragma once

#include <string_view>

namespace tavidoc {

/// How the product calls itself.
namespace Product {

inline constexpr std::string_view title = "Tavi Documentation Tools";
/// What "$(WENDRIX_NAME)" in the texts of actions stands for.
inline constexpr std::string_view displayName = "Tavi";
inline constexpr std::string_view toolName = "tavidoc";
/// Each follows "Copyright (c) ".
inline constexpr std::string_view copyrightHolders[] = {
    "2026 The founders of tavidoc",
    "2026 The contributors to tavidoc",
};
/// What "$(LICENSE)" in a presented file stands for.
inline constexpr std::string_view licenceNotice =
    "Copyright (c) 2026 The founders of tavidoc and its contributors. All rights reserved.";

} // namespace Product

} // namespace tavidoc
