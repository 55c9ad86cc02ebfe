#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// The name among \a names that \a name was probably meant to be: the first of those with the fewest edits, at most one
/// for every three characters and at least one. Empty when none is near enough. Neighbouring characters that were
/// exchanged count as one edit.
[[nodiscard]] std::string_view nearestName(std::string_view name, std::span<const std::string_view> names);

/// The end of a message about the unknown \a name: `; did you mean "NAME"?`, or nothing.
[[nodiscard]] std::string suggestion(std::string_view name, std::span<const std::string_view> names);

} // namespace tavidoc
