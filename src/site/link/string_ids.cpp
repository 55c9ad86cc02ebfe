#include "site/link/string_ids.h"

#include <bit>
#include <functional>

namespace tavidoc {

namespace {

std::uint32_t hashOf(std::string_view text)
{
    const std::size_t hash = std::hash<std::string_view>()(text);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

} // namespace

StringIds::StringIds(std::size_t expectedCount)
{
    m_texts.reserve(expectedCount);
    m_hashes.reserve(expectedCount);
    resize(std::bit_ceil(2 * expectedCount + 1));
}

std::size_t StringIds::slotOf(std::string_view text, std::uint32_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hash & mask;
    while (m_slots[slot] != s_none && (m_hashes[m_slots[slot]] != hash || m_texts[m_slots[slot]] != text))
        slot = (slot + 1) & mask;
    return slot;
}

void StringIds::resize(std::size_t slotCount)
{
    m_slots.assign(slotCount, s_none);
    const std::size_t mask = slotCount - 1;
    for (std::uint32_t id = 0; id < m_texts.size(); ++id) {
        std::size_t slot = m_hashes[id] & mask;
        while (m_slots[slot] != s_none)
            slot = (slot + 1) & mask;
        m_slots[slot] = id;
    }
}

std::uint32_t StringIds::insert(std::string_view text)
{
    if (2 * (m_texts.size() + 1) > m_slots.size())
        resize(m_slots.empty() ? 16 : 2 * m_slots.size());
    const std::uint32_t hash = hashOf(text);
    const std::size_t slot = slotOf(text, hash);
    if (m_slots[slot] == s_none) {
        m_slots[slot] = static_cast<std::uint32_t>(m_texts.size());
        m_texts.push_back(text);
        m_hashes.push_back(hash);
    }
    return m_slots[slot];
}

std::uint32_t StringIds::find(std::string_view text) const
{
    return m_slots.empty() ? s_none : m_slots[slotOf(text, hashOf(text))];
}

} // namespace tavidoc
