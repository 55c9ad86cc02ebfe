#pragma once

#include <string_view>

namespace tavidoc {

/// True when what follows \a html, the text of a block so far, begins a sentence for the
/// reader: at the start of the block, and after a full stop, an exclamation mark or a question
/// mark with white space after it. Tags and quotes in between do not count, nor do closing
/// parentheses and brackets before the white space.
[[nodiscard]] bool endsBeforeSentence(std::string_view html);

} // namespace tavidoc
