#pragma once

#include "site/link/finding_list.h"
#include "site/link/string_ids.h"
#include "site/record/record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// A page of the set, counted over all records in their order.
using PageId = std::uint32_t;
inline constexpr PageId s_noPage = 0xffffffff;

/// All pages of a set and their addresses. Of pages with one address only one is written: the last of the record that
/// makes it first.
class PageSet
{
public:
    /// Reports `duplicate-page` and `case-clash`. Refers to \a records for its whole life.
    PageSet(const std::vector<Record> &records, FindingList &findings);

    [[nodiscard]] const std::vector<Record> &records() const { return m_records; }
    [[nodiscard]] PageId count() const { return m_firstPages.back(); }
    /// The first page of \a record; one past its last page is that of the next one.
    [[nodiscard]] PageId firstPage(std::uint32_t record) const { return m_firstPages[record]; }

    [[nodiscard]] std::uint32_t recordOf(PageId page) const { return m_recordOfPage[page]; }
    [[nodiscard]] const RecordPage &page(PageId page) const
    {
        const std::uint32_t record = m_recordOfPage[page];
        return m_records[record].pages[page - m_firstPages[record]];
    }
    /// Whether the page is part of the site: false when another one has its address.
    [[nodiscard]] bool isWritten(PageId page) const { return m_isWritten[page]; }
    /// The address of a page that is written, relative to the top of the site.
    [[nodiscard]] const std::string &address(PageId page) const;
    /// The title of a page, which is never empty: its own, else that of its document, else its name.
    [[nodiscard]] std::string_view title(PageId page) const;

    /// The number of the folder of \a record: the same for the same folders.
    [[nodiscard]] std::uint32_t folder(std::uint32_t record) const { return m_folderOfRecord[record]; }

    /// The page named \a stem in \a folder; s_noPage when there is none.
    [[nodiscard]] PageId named(std::string_view folder, std::string_view stem) const;
    /// The page with \a address, as it is or as it would be without other pages; s_noPage when there is none.
    [[nodiscard]] PageId atAddress(std::string_view address) const;

private:
    void addPages(FindingList &findings);
    void addPage(PageId page, FindingList &findings);
    void separateCases(FindingList &findings);
    void renumber(PageId page, std::string_view other, std::string address, FindingList &findings);

    const std::vector<Record> &m_records;
    std::vector<PageId> m_firstPages; // of each record, and the count of all pages
    std::vector<std::uint32_t> m_recordOfPage;
    std::vector<std::uint32_t> m_folderOfRecord;
    std::vector<std::string> m_addresses; // of each page as it would be without other pages
    StringIds m_addressIds;               // of pages that are written
    std::vector<PageId> m_pageOfAddress;  // by address id
    std::vector<bool> m_isWritten;
    std::unordered_map<PageId, std::string> m_otherAddresses; // of pages whose address would differ in case only
};

} // namespace tavidoc
