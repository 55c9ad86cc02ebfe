#pragma once

#include <string>
#include <string_view>

namespace tavidoc {

/// Appends the text of \a html, which has no tags, to \a text: character references are replaced by the characters, a
/// no-break space by a blank. What is not a known reference stays as it is. All is UTF-8.
void appendDecoded(std::string &text, std::string_view html);

/// The decoded text of \a html, see appendDecoded().
[[nodiscard]] std::string decoded(std::string_view html);

} // namespace tavidoc
