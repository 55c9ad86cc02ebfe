#pragma once

#include <QStringView>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>
#include <type_traits>

namespace tavidoc {

/// The parts of WordIndex that depend on neither the table nor its rows.
namespace WordIndexDetail {

constexpr std::string_view unitsOf(std::string_view word)
{
    return word;
}

constexpr std::u16string_view unitsOf(std::u16string_view word)
{
    return word;
}

constexpr std::u16string_view unitsOf(QStringView word)
{
    return {word.utf16(), static_cast<std::size_t>(word.size())};
}

/// Where the search for \a word begins, before it is reduced to the number of slots. Four units
/// and the size are enough to tell the words of our tables apart. \a word is not empty.
template <class Unit> constexpr std::uint32_t hashOf(std::basic_string_view<Unit> word)
{
    using Unsigned = std::conditional_t<sizeof(Unit) == 1, unsigned char, char16_t>;
    const auto unit = [word](std::size_t index) { return std::uint32_t{static_cast<Unsigned>(word[index])}; };
    const std::size_t size = word.size();
    // The factors were chosen for short searches in the tables of this program.
    const std::uint32_t hash = unit(0) * 3167 + unit(size / 2) * 4281 + unit(size - 1) * 3383 +
                               unit(size - size / 4 - 1) * 2493 + static_cast<std::uint32_t>(size) * 3721;
    return hash ^ hash >> 7;
}

/// True when the words, which have the same size, are the same.
template <class Unit> constexpr bool haveSameUnits(const Unit *left, const Unit *right, std::size_t size)
{
    for (; size > 0; --size) {
        if (*left++ != *right++)
            return false;
    }
    return true;
}

using Slot = std::uint16_t; // the index of a row plus one; 0 when it is free

/// A power of two. At most a quarter of the slots are used: most words that are looked up are not in the table, and
/// such a search ends at the first free slot.
constexpr std::size_t slotCountFor(std::size_t rowCount)
{
    return std::bit_ceil(4 * rowCount);
}

template <std::size_t SlotCount> struct Slots
{
    std::array<Slot, SlotCount> entries{};
    std::size_t longestWord = 0;  ///< in units
    std::size_t longestProbe = 0; ///< rows that are compared at most to find a word
    bool isSound = true;          ///< no word is empty or occurs twice
};

template <const auto &Rows, auto Word> consteval auto makeSlots()
{
    constexpr std::size_t rowCount = std::size(Rows);
    Slots<slotCountFor(rowCount)> table;
    for (std::size_t row = 0; row < rowCount; ++row) {
        const auto word = unitsOf(std::invoke(Word, Rows[row]));
        if (word.empty()) {
            table.isSound = false;
            break;
        }
        std::size_t slot = hashOf(word) % table.entries.size();
        std::size_t probe = 1;
        for (; table.entries[slot] != 0; slot = (slot + 1) % table.entries.size(), ++probe)
            table.isSound = table.isSound && unitsOf(std::invoke(Word, Rows[table.entries[slot] - 1])) != word;
        table.entries[slot] = static_cast<Slot>(row + 1);
        table.longestWord = std::max(table.longestWord, word.size());
        table.longestProbe = std::max(table.longestProbe, probe);
    }
    return table;
}

template <const auto &Rows, auto Word> struct SlotsOf
{
    static constexpr auto table = makeSlots<Rows, Word>();
};

} // namespace WordIndexDetail

/// Finds the row of a constant table by its word: an open-addressing hash table that is made at
/// compile time, where a word that is empty or occurs twice is an error. \a Word is the member of
/// the row that holds the word, a view of bytes or UTF-16 units; a row may be just a word. A lookup
/// copies and allocates nothing.
///
/// \code
/// constexpr Unit s_units[] = {{u"cm", 1 / 2.54}, {u"in", 1}};
/// constexpr auto s_unitIndex = WordIndex<Unit, &Unit::name>::of<s_units>();
/// const Unit *unit = s_unitIndex.find(word);
/// \endcode
template <class Row, auto Word = std::identity()> class WordIndex
{
public:
    /// The index of \a Rows, an array with static storage duration.
    template <const auto &Rows> static consteval WordIndex of()
    {
        constexpr const auto &table = WordIndexDetail::SlotsOf<Rows, Word>::table;
        static_assert(table.isSound, "a word is empty or occurs twice");
        static_assert(4 * std::size(Rows) <= table.entries.size(), "the table is too full");
        static_assert(table.longestProbe <= s_longestProbe, "too many words collide: change the hash");
        static_assert(std::size(Rows) < 0xFFFF);
        return WordIndex(std::data(Rows), std::size(Rows), table.entries.data(), table.entries.size(),
                         table.longestWord);
    }

    /// The row of \a word; null when there is none.
    template <class Text> [[nodiscard]] constexpr const Row *find(const Text &word) const
    {
        using namespace WordIndexDetail;
        const auto units = unitsOf(word);
        if (units.size() - 1 >= m_longestWord) // no longer than the longest, and not empty
            return nullptr;
        for (std::size_t slot = hashOf(units) & m_mask; m_slots[slot] != 0; slot = (slot + 1) & m_mask) {
            const Row &row = m_rows[m_slots[slot] - 1];
            const auto entry = unitsOf(std::invoke(Word, row));
            if (entry.size() == units.size() && haveSameUnits(entry.data(), units.data(), units.size()))
                return &row;
        }
        return nullptr;
    }

    template <class Text> [[nodiscard]] constexpr bool contains(const Text &word) const
    {
        return find(word) != nullptr;
    }

    /// The whole table, in its own order.
    [[nodiscard]] constexpr std::span<const Row> rows() const { return {m_rows, m_rowCount}; }

private:
    static constexpr std::size_t s_longestProbe = 8;

    consteval WordIndex(const Row *rows, std::size_t rowCount, const WordIndexDetail::Slot *begin,
                        std::size_t slotCount, std::size_t longestWord)
        : m_rows(rows), m_slots(begin), m_mask(slotCount - 1), m_longestWord(longestWord), m_rowCount(rowCount)
    {
    }

    const Row *m_rows;
    const WordIndexDetail::Slot *m_slots;
    std::size_t m_mask;        // the number of slots, a power of two, less one
    std::size_t m_longestWord; // in units
    std::size_t m_rowCount;
};

} // namespace tavidoc
