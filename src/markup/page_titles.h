#pragma once

#include "markup/markup_cursor.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// Texts by title or page name.
using PageTitles = std::map<std::string, std::string, std::less<>>;

/// Takes the page name from \a cursor, which is directly after a `\split`: the argument in
/// braces, else the rest of the line, without white space at its ends and without ".htm". An
/// empty name ends the open page and opens none. When the argument is not closed the result
/// is nothing, and nothing is taken. The title pass and the translator both use this, so a
/// link by title leads to the page that is written.
[[nodiscard]] std::optional<std::string_view> takePageName(MarkupCursor &cursor);

/// The titles of a document, gathered before its translation.
struct TitleLists
{
    PageTitles titles;  ///< by page name; the empty name is that of the document. The later one counts.
    PageTitles targets; ///< page name by title, for titles of pages. The later one counts.
};

/// Gathers the titles from the lines of \a text that begin with `\split` or `\title`.
[[nodiscard]] TitleLists titlesOf(std::string_view text);

} // namespace tavidoc
