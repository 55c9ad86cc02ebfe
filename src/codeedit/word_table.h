#pragma once

#include <array>
#include <cstring>
#include <span>
#include <string_view>

namespace tavidoc {

/// A set of words that is looked up by view, without a copy. Words are borrowed.
class WordTable
{
public:
    /// \a words must outlive the table and be at most 400.
    explicit WordTable(std::span<const std::u16string_view> words);

    [[nodiscard]] bool contains(std::u16string_view word) const
    {
        if (word.size() > m_longest)
            return false;
        for (std::size_t slot = slotOf(word); m_slots[slot].data() != nullptr; slot = (slot + 1) % s_slotCount) {
            const std::u16string_view entry = m_slots[slot];
            if (entry.size() == word.size() &&
                std::memcmp(entry.data(), word.data(), word.size() * sizeof(char16_t)) == 0)
                return true;
        }
        return false;
    }

private:
    static constexpr std::size_t s_slotCount = 1024; // a power of two, well above the number of words

    static std::size_t slotOf(std::u16string_view word)
    {
        if (word.empty())
            return 0;
        const std::size_t middle = word[word.size() / 2];
        const std::size_t first = word.front();
        const std::size_t last = word.back();
        const std::size_t hash = first * 31 + middle * 131 + last * 683 + word.size() * 2053;
        return (hash ^ hash >> 7) % s_slotCount;
    }

    std::array<std::u16string_view, s_slotCount> m_slots{};
    std::size_t m_longest = 0;
};

} // namespace tavidoc
