#pragma once

#include <cstdint>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Numbers terms from 0 on in the order in which they are first met.
class TermTable
{
public:
    static constexpr std::size_t s_longest = 255; ///< in bytes

    /// The number of \a term, which is at most s_longest bytes long.
    std::uint32_t number(std::string_view term);

    [[nodiscard]] std::string_view text(std::uint32_t number) const;
    [[nodiscard]] std::size_t size() const { return m_terms.size(); }

    /// All numbers, by text as the script compares strings: by UTF-16 units.
    [[nodiscard]] std::vector<std::uint32_t> sorted() const;

private:
    void grow();
    const char *kept(std::string_view term);

    std::pmr::monotonic_buffer_resource m_arena;
    std::vector<const char *> m_terms;  ///< a byte with the length, and the bytes
    std::vector<std::uint64_t> m_slots; ///< half of the hash, and the number plus one; 0: free
};

/// Whether \a left comes before \a right by UTF-16 units. Both are UTF-8.
[[nodiscard]] bool isBefore(std::string_view left, std::string_view right);

/// The indices of \a texts in that order.
[[nodiscard]] std::vector<std::uint32_t> sortedOrder(const std::vector<std::string_view> &texts);

} // namespace tavidoc
