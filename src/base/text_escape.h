#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// Appends \a text, which is UTF-8, to \a html with these characters as entities: "&", ">", "<", the
/// double quote, the apostrophe and the middle dot. Text is escaped once, where it enters a page.
void appendEscaped(std::string &html, std::string_view text);

/// The escaped form of \a text, see appendEscaped().
[[nodiscard]] std::string escapedText(std::string_view text);

} // namespace tavidoc
