#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// The listing \a html, which is escaped text without tags, with spans around its runs: the classes are those of the
/// library's listings. \a language is a name or the suffix of a file. Empty when the site has no lexer for it.
/// Without its spans the result is \a html, byte for byte.
[[nodiscard]] std::string highlighted(std::string_view html, std::string_view language);

} // namespace tavidoc
