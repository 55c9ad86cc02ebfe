#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The string literals of the C++ text \a source with their escapes undone; literals that stand directly after each
/// other are one. Escapes beyond the simple ones, hexadecimal bytes and \\u are kept as they stand.
[[nodiscard]] std::vector<std::string> stringLiterals(std::string_view source);
