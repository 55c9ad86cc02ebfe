#pragma once

#include <string_view>
#include <vector>

namespace tavidoc {

/// For each character of a line whether a regular expression that begins there has an end. This is found
/// from behind, once: then a slash without an end costs no look at the rest of the line.
class RegularExpressionEnds
{
public:
    /// False when it is known that no expression begins at \a index.
    [[nodiscard]] bool mayHave(std::size_t index) const { return m_ends.empty() || m_ends[index]; }
    void find(std::u16string_view line);

private:
    std::vector<bool> m_ends; // whether a slash ends what begins behind this character
};

} // namespace tavidoc
