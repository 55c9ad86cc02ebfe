#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Returns the unescaped string literals of the C++ text \a source. Adjacent literals are joined. Escapes other than the
/// simple ones, hexadecimal bytes and \\u are left unchanged.
[[nodiscard]] std::vector<std::string> stringLiterals(std::string_view source);
