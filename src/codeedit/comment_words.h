#pragma once

#include "codeedit/styled_line.h"

#include <QtGlobal>

namespace tavidoc {

/// Styles the inside of comments: words that ask for attention, and in documentation comments
/// the commands of the documentation, their arguments and the code they enclose.
namespace CommentWords {

/// Whether a comment documents, and whether code stands in it at this place.
enum class Kind : std::uint8_t
{
    Plain,
    Documentation,
    DocumentationCode,
};

/// What ends a comment, besides the end of the line.
enum class Ending
{
    None,
    Mark, ///< an asterisk and a slash
};

/// Styles the text of a comment from where \a out stands up to its end, which is looked for from
/// \a at on and is the result; the mark that ends it is not styled. \a kind is what holds at the
/// beginning, and then what holds at the end.
const char16_t *style(StyledLine &out, const char16_t *at, Ending ending, Kind &kind);

} // namespace CommentWords

} // namespace tavidoc
