#pragma once

#include "codeedit/styled_line.h"

#include <QtGlobal>

/// Styles the text of comments: words that ask for attention and, in documentation comments,
/// commands, their arguments and the code that they enclose.
namespace tavidoc::CommentWords {

/// The kind of a comment, and whether this place in it is code.
enum class Kind : std::uint8_t
{
    Plain,
    Documentation,
    DocumentationCode,
};

/// What ends a comment before the end of the line.
enum class Ending
{
    None,
    Mark, ///< an asterisk and a slash
};

/// Styles the text of a comment from the current position of \a out up to the end of the comment,
/// and returns that end; the search for it begins at \a at. The mark that ends the comment is not
/// styled. \a kind is the kind at the beginning, and is set to the kind at the end.
const char16_t *style(StyledLine &out, const char16_t *at, Ending ending, Kind &kind);

} // namespace tavidoc::CommentWords
