#pragma once

#include <string_view>

namespace tavidoc {

/// True when the next word after \a html, the text of a block so far, begins a sentence: at the start
/// of the block, and after a full stop, exclamation mark or question mark and white space. Tags and quotes in between do not count, nor do closing
/// parentheses and brackets before the white space.
[[nodiscard]] bool endsBeforeSentence(std::string_view html);

} // namespace tavidoc
