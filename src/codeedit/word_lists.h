#pragma once

#include "base/word_index.h"

#include <array>
#include <string_view>

namespace tavidoc {

/// A set of words.
using Words = WordIndex<std::u16string_view>;

/// The words that lexers know. Such a word is a keyword (for the assembler: a register) wherever
/// it is a word.
namespace WordLists {

extern const Words c;
extern const Words javaScript;
extern const Words basic;
extern const Words registers; ///< each in lower and in upper case

/// All of them.
extern const std::array<const Words *, 4> all;

} // namespace WordLists

} // namespace tavidoc
