#pragma once

#include <string_view>

/// The names of the product.
namespace tavidoc::Product {

inline constexpr std::string_view title = "Tavi Documentation Tools";
/// Replaces "$(WENDRIX_NAME)" in the texts of actions.
inline constexpr std::string_view displayName = "Tavi";
inline constexpr std::string_view toolName = "tavidoc";
/// Each follows "Copyright (c) ".
inline constexpr std::string_view copyrightHolders[] = {
    "2026 The founders of tavidoc",
    "2026 The contributors to tavidoc",
};
/// Replaces "$(LICENSE)" in a presented file.
inline constexpr std::string_view licenceNotice =
    "Copyright (c) 2026 The founders of tavidoc and its contributors. All rights reserved.";

} // namespace tavidoc::Product
