#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tavidoc {

/// Makes the ids of the headings of one page.
class HeadingIds
{
public:
    /// Notes an id that the page has already.
    void reserve(std::string_view id) { m_used.emplace(id); }

    /// The id of a heading with the plain text \a text, UTF-8: its letters, lower case ASCII, and digits, with "-" for
    /// what is between words. Accents are dropped, and so are other letters. Unique by "-2", "-3", ...; never empty.
    [[nodiscard]] std::string idOf(std::string_view text);

private:
    std::unordered_set<std::string> m_used;
    std::unordered_map<std::string, int> m_counts; // of the ids asked for, without a number
};

} // namespace tavidoc
