#pragma once

#include <string>
#include <string_view>

/// Appends the listing \a text (UTF-8) in \a language to \a html. It is escaped only when no
/// lexer has that name.
void appendListing(std::string &html, std::string_view text, std::string_view language);
