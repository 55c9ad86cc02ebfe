#pragma once

#include "codeedit/styled_line.h"

#include <QtGlobal>

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

/// Styles the text of a comment from where \a out stands up to \a end, which is inside the line
/// or at its end. \a kind is what holds at the beginning; the result holds at the end.
Kind style(StyledLine &out, const char16_t *end, Kind kind);

} // namespace CommentWords
