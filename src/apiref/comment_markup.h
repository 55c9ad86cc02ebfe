#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The lines of a documentation comment that hold its text: all but the first and the last,
/// which hold the delimiters. \a comment is UTF-8, without the delimiters.
[[nodiscard]] std::vector<std::string_view> innerLines(std::string_view comment);

/// Removes the decoration of a comment if the first of \a lines that is not blank has it: blanks,
/// asterisks and one blank after them, at most as many asterisks as on that line.
void removeDecoration(std::vector<std::string_view> &lines);

/// True when the inner lines of \a comment contain more than white space and decoration.
[[nodiscard]] bool hasInnerText(std::u16string_view comment);

/// The markup of an overview comment: the lines of \a text, which follows the opening delimiter
/// and marks, without decoration. Line n of the result is line n of the text.
[[nodiscard]] std::string overviewMarkup(std::string_view text);

/// The markup in \a comment, the documentation comment of the declaration \a name: the inner
/// lines without decoration, joined by "\n". Code blocks get the language C unless they have one, and
/// lose the indentation of their first line; `\this` is replaced by the name. Line n of the
/// result, counted from 0, is line n + 1 of the comment.
[[nodiscard]] std::string commentMarkup(std::string_view comment, std::string_view name);

/// The text of the `\h1` with which \a markup begins, a view of it; empty without one.
[[nodiscard]] std::string_view leadingHeading(std::string_view markup);

} // namespace tavidoc
