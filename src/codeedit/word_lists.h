#pragma once

#include <span>
#include <string_view>

namespace tavidoc {

/// The words that lexers know. A table word is a keyword (for the assembler: a register)
/// wherever it is a word.
namespace WordLists {

[[nodiscard]] std::span<const std::u16string_view> c();
[[nodiscard]] std::span<const std::u16string_view> javaScript();
[[nodiscard]] std::span<const std::u16string_view> basic();
[[nodiscard]] std::span<const std::u16string_view> registers();

} // namespace WordLists

} // namespace tavidoc
