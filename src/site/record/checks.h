#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace tavidoc {

enum class CheckLevel
{
    Off,
    Warning,
    Error,
};

/// A check of a documentation set.
struct Check
{
    std::string_view name;  ///< in findings and in the project file
    CheckLevel level;       ///< unless the project file sets another one
    std::string_view finds; ///< for the manual and the help: a noun phrase
};

/// All checks, in the order in which the manual lists them.
[[nodiscard]] std::span<const Check> checks();

/// The check \a name; nothing when there is none.
[[nodiscard]] std::optional<Check> checkNamed(std::string_view name);

} // namespace tavidoc
