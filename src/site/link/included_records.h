#pragma once

#include "base/text_map.h"
#include "site/link/page_set.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Whether \a entry includes the contents of another input, "X.xml".
[[nodiscard]] bool includesContents(const RecordEntry &entry);

/// Finds the input whose contents are included as "X.xml": X.dg or X.h.
class IncludedRecords
{
public:
    static constexpr std::uint32_t s_none = 0xffffffff;

    explicit IncludedRecords(const PageSet &pages);

    /// The record that \a target, "X.xml", means in the contents of \a record: the input of that name beside its own,
    /// else in the same folder, else anywhere. s_none when there is none, or several equally near.
    [[nodiscard]] std::uint32_t find(std::string_view target, std::uint32_t record) const;

private:
    /// The records with one name. Two are enough to choose one that is not the record that includes it.
    struct Namesakes
    {
        std::uint32_t first = s_none;
        std::uint32_t second = s_none;
        std::uint32_t count = 0;
    };

    void add(std::uint32_t record);
    [[nodiscard]] static std::uint32_t onlyOther(const TextMap<Namesakes> &names, std::string_view name,
                                                 std::uint32_t record);

    const PageSet &m_pages;
    TextMap<Namesakes> m_byPath; // without suffix; a markup source before a header
    TextMap<Namesakes> m_byName; // "FOLDER/name", and "name" with "*" for the folder
};

} // namespace tavidoc
