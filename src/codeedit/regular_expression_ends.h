#pragma once

#include <string_view>
#include <vector>

namespace tavidoc {

/// For each character of a line, whether a regular expression that begins there has an end. All are computed in one
/// pass from the end of the line, so that many slashes without an end do not each search the rest of the line.
class RegularExpressionEnds
{
public:
    /// False when it is known that no expression begins at \a index.
    [[nodiscard]] bool mayHave(std::size_t index) const { return m_ends.empty() || m_ends[index]; }
    /// Computes the ends for the whole \a line.
    void find(std::u16string_view line);

private:
    std::vector<bool> m_ends; // whether a slash ends an expression that begins after this character
};

} // namespace tavidoc
