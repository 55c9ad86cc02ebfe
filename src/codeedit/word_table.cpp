#include "codeedit/word_table.h"

#include <algorithm>

namespace tavidoc {

WordTable::WordTable(std::span<const std::u16string_view> words)
{
    for (const std::u16string_view word : words) {
        std::size_t slot = slotOf(word);
        while (m_slots[slot].data() != nullptr)
            slot = (slot + 1) % s_slotCount;
        m_slots[slot] = word;
        m_longest = std::max(m_longest, word.size());
    }
}

} // namespace tavidoc
