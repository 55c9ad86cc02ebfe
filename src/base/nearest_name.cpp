#include "base/nearest_name.h"

#include <algorithm>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_longest = 100; // characters of a name worth comparing

/// The number of edits that make \a left of \a right.
std::size_t editDistance(std::string_view left, std::string_view right)
{
    std::vector<std::size_t> before;
    std::vector<std::size_t> last(right.size() + 1);
    for (std::size_t column = 0; column <= right.size(); ++column)
        last[column] = column;
    std::vector<std::size_t> row(last.size());
    for (std::size_t line = 1; line <= left.size(); ++line) {
        row[0] = line;
        for (std::size_t column = 1; column <= right.size(); ++column) {
            const bool isSame = left[line - 1] == right[column - 1];
            row[column] = std::min({last[column] + 1, row[column - 1] + 1, last[column - 1] + (isSame ? 0 : 1)});
            if (line > 1 && column > 1 && left[line - 1] == right[column - 2] && left[line - 2] == right[column - 1])
                row[column] = std::min(row[column], before[column - 2] + 1);
        }
        before = last;
        last.swap(row);
    }
    return last.back();
}

} // namespace

std::string_view nearestName(std::string_view name, std::span<const std::string_view> names)
{
    if (name.size() > s_longest)
        return {};
    std::size_t fewest = std::max<std::size_t>(1, name.size() / 3) + 1;
    std::string_view nearest;
    for (const std::string_view candidate : names) {
        const std::size_t edits = editDistance(name, candidate);
        if (edits >= fewest)
            continue;
        fewest = edits;
        nearest = candidate;
    }
    return nearest;
}

std::string suggestion(std::string_view name, std::span<const std::string_view> names)
{
    const std::string_view nearest = nearestName(name, names);
    return nearest.empty() ? std::string() : "; did you mean \"" + std::string(nearest) + "\"?";
}

} // namespace tavidoc
