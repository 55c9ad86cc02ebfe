#pragma once

#include "apiref/synopsis_tokens.h"

#include <QString>

#include <cstddef>
#include <vector>

/// Tokens as text with one blank, or none, between them: as the source has it, except that white space becomes one
/// blank and there is none inside parentheses and before commas. Directives other than conditionals are left out;
/// a conditional is on a line of its own.
namespace tavidoc::SynopsisLayout {

using Tokens = std::vector<SynopsisToken>;

/// The longest line of a synopsis, if it can be broken.
inline constexpr qsizetype longestLine = 80;
/// The columns of one level.
inline constexpr qsizetype indentation = 4;

/// \a tokens on one line.
[[nodiscard]] QString line(SynopsisTokens::Range tokens);
/// \a tokens of a function, whose argument list begins at the index \a open: on one line if it is short enough, otherwise
/// with one argument per line.
[[nodiscard]] QString function(const Tokens &tokens, std::size_t open);
/// \a tokens of a class head: on one line if it is short enough, otherwise with one base per line.
[[nodiscard]] QString head(const Tokens &tokens);
/// \a tokens with braces: on one line if it is short enough and \a separator is a comma, otherwise with one member or
/// enumerator, which \a separator ends, per line.
[[nodiscard]] QString block(const Tokens &tokens, char16_t separator);

/// The index of the ">" for the "<" at \a open; the number of tokens if there is none.
[[nodiscard]] std::size_t closingAngle(SynopsisTokens::Range tokens, std::size_t open);
/// The number of tokens in the template heads that \a tokens begin with, with the constraints after them.
[[nodiscard]] std::size_t templateHeads(SynopsisTokens::Range tokens);
/// The index of the "(" of the arguments of the function whose name is at \a name; the number of tokens if there is none.
[[nodiscard]] std::size_t argumentsAfter(SynopsisTokens::Range tokens, std::size_t name);
/// The parts of \a tokens between commas outside brackets; none of no tokens.
[[nodiscard]] std::vector<SynopsisTokens::Range> parts(SynopsisTokens::Range tokens);

} // namespace tavidoc::SynopsisLayout
