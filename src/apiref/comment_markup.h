#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The lines of a documentation comment that hold its text: all but the first and the last,
/// which hold the delimiters. \a comment is UTF-8, without the delimiters.
[[nodiscard]] std::vector<std::string_view> innerLines(std::string_view comment);

/// Removes the decoration of a comment: when the first of \a lines that is not blank begins
/// with "*", the blanks before it, the "*" and one blank after it go from every line that
/// has one.
void removeDecoration(std::vector<std::string_view> &lines);

/// True when something other than white space and decoration stands in the inner lines of
/// \a comment.
[[nodiscard]] bool hasInnerText(std::u16string_view comment);

/// The markup in one overview comment, of which \a text is what follows the marks it begins
/// with: its lines without decoration. Line n of the result is line n of the text.
[[nodiscard]] std::string overviewMarkup(std::string_view text);

/// The markup in \a comment, the documentation comment of the declaration \a name: the inner
/// lines without decoration, joined by "\n". A code block without a language is one of C, its
/// lines lose the indentation of the first, and `\this` stands for the name. Line n of the
/// result, counted from 0, is line n + 1 of the comment.
[[nodiscard]] std::string commentMarkup(std::string_view comment, std::string_view name);

} // namespace tavidoc
