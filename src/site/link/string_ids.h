#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Numbers texts from 0 in the order in which they come. Holds views only: what they refer to must outlive the table.
class StringIds
{
public:
    static constexpr std::uint32_t s_none = 0xffffffff;

    StringIds() = default;
    explicit StringIds(std::size_t expectedCount);

    /// The number of \a text, which is a new one when the text is new.
    std::uint32_t insert(std::string_view text);
    /// The number of \a text; s_none when it was never inserted.
    [[nodiscard]] std::uint32_t find(std::string_view text) const;

    [[nodiscard]] std::string_view text(std::uint32_t id) const { return m_texts[id]; }
    [[nodiscard]] std::size_t count() const { return m_texts.size(); }

private:
    /// The slot of \a text, or the empty slot where it belongs.
    [[nodiscard]] std::size_t slotOf(std::string_view text, std::uint32_t hash) const;
    void resize(std::size_t slotCount);

    std::vector<std::string_view> m_texts;
    std::vector<std::uint32_t> m_hashes; // of the texts
    std::vector<std::uint32_t> m_slots;  // ids; their count is a power of two and at most half of them are in use
};

} // namespace tavidoc
