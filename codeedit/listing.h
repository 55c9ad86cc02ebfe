#pragma once

#include <string>
#include <string_view>

/// Appends the listing \a text (UTF-8) in \a language to \a html. With a lexer of that name each
/// run of characters of one kind becomes a span, every line closes its spans and ends with
/// "\n"; the line numbers of "basic" are left out, and "\vdots", "\hdots" and "\..." become
/// ellipses. Without one the text is escaped and nothing else.
void appendListing(std::string &html, std::string_view text, std::string_view language);
