#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavidoc {

/// Suggests a command where the source has one that does not exist.
class CommandSuggestions
{
public:
    /// The end of a message about the unknown command \a name, which has no backslash: `; did you mean "\NAME"?`, or
    /// nothing. After many different names it stops suggesting, which bounds the time.
    [[nodiscard]] const std::string &about(std::string_view name);

private:
    std::unordered_map<std::string, std::string> m_suggestions; // by unknown name
};

} // namespace tavidoc
