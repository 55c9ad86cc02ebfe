#include "site/search/term_table.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace tavidoc {

namespace {

/// Characters past U+FFFF are surrogates in UTF-16 and come before U+E000, unlike their bytes in UTF-8.
constexpr unsigned orderOf(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value == 0xee || value == 0xef ? value + 0x10U : value;
}

struct Key
{
    std::uint64_t beginning; ///< the first eight bytes, so that most comparisons need no text
    std::uint32_t index;
};

std::uint64_t beginningOf(std::string_view text)
{
    std::uint64_t beginning = 0;
    for (std::size_t i = 0; i < sizeof beginning; ++i)
        beginning = beginning << 8U | (i < text.size() ? orderOf(text[i]) : 0U);
    return beginning;
}

} // namespace

bool isBefore(std::string_view left, std::string_view right)
{
    const auto [l, r] = std::ranges::mismatch(left, right);
    if (r == right.end())
        return false;
    return l == left.end() || orderOf(*l) < orderOf(*r);
}

std::vector<std::uint32_t> sortedOrder(const std::vector<std::string_view> &texts)
{
    std::vector<Key> keys(texts.size());
    for (std::uint32_t i = 0; i < keys.size(); ++i)
        keys[i] = {.beginning = beginningOf(texts[i]), .index = i};
    std::ranges::sort(keys, [&texts](const Key &left, const Key &right) {
        if (left.beginning != right.beginning)
            return left.beginning < right.beginning;
        if (texts[left.index] != texts[right.index])
            return isBefore(texts[left.index], texts[right.index]);
        return left.index < right.index;
    });
    std::vector<std::uint32_t> order(keys.size());
    std::ranges::transform(keys, order.begin(), &Key::index);
    return order;
}

std::uint32_t TermTable::number(std::string_view term)
{
    if (m_terms.size() * 2 >= m_slots.size())
        grow();
    const std::uint64_t hash = std::hash<std::string_view>{}(term);
    const std::uint64_t tag = hash >> 32U << 32U;
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const std::uint64_t entry = m_slots[slot];
        if (entry == 0) {
            m_terms.push_back(kept(term));
            m_slots[slot] = tag | m_terms.size();
            return static_cast<std::uint32_t>(m_terms.size() - 1);
        }
        const auto number = static_cast<std::uint32_t>(entry - 1);
        if (entry >> 32U == hash >> 32U && text(number) == term)
            return number;
    }
}

std::string_view TermTable::text(std::uint32_t number) const
{
    const char *bytes = m_terms[number];
    return {bytes + 1, static_cast<unsigned char>(*bytes)};
}

std::vector<std::uint32_t> TermTable::sorted() const
{
    std::vector<std::string_view> texts(m_terms.size());
    for (std::uint32_t i = 0; i < texts.size(); ++i)
        texts[i] = text(i);
    return sortedOrder(texts);
}

void TermTable::grow()
{
    std::vector<std::uint64_t> slots(std::max<std::size_t>(m_slots.size() * 2, 1024));
    const std::size_t mask = slots.size() - 1;
    for (const std::uint64_t entry : m_slots) {
        if (entry == 0)
            continue;
        std::size_t slot = std::hash<std::string_view>{}(text(static_cast<std::uint32_t>(entry - 1))) & mask;
        while (slots[slot] != 0)
            slot = (slot + 1) & mask;
        slots[slot] = entry;
    }
    m_slots = std::move(slots);
}

const char *TermTable::kept(std::string_view term)
{
    char *bytes = static_cast<char *>(m_arena.allocate(term.size() + 1, 1));
    *bytes = static_cast<char>(term.size());
    std::memcpy(bytes + 1, term.data(), term.size());
    return bytes;
}

} // namespace tavidoc
