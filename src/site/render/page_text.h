#pragma once

#include <QByteArray>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Appends \a pieces, which are HTML already.
void appendHtml(std::string &html, std::initializer_list<std::string_view> pieces);

/// \a text, cut after \a limit characters at most, with an ellipsis if something was cut.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t limit);

/// \a text, cut where a line may be broken: between the parts of a qualified name, and between the parts of a long
/// identifier.
[[nodiscard]] std::vector<std::string_view> breakableParts(std::string_view text);

/// \a text as HTML that may be broken there.
[[nodiscard]] std::string breakable(std::string_view text);

/// \a html, UTF-8, as a file: pure ASCII, every other character as a reference.
[[nodiscard]] QByteArray asciiFile(std::string_view html);

} // namespace tavidoc
