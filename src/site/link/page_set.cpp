#include "site/link/page_set.h"

#include "site/link/page_names.h"

#include <algorithm>
#include <deque>

namespace tavidoc {

namespace {

bool isCapital(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool hasCapitals(std::string_view text)
{
    return std::ranges::any_of(text, isCapital);
}

std::vector<PageId> firstPagesOf(const std::vector<Record> &records)
{
    std::vector<PageId> firstPages;
    firstPages.reserve(records.size() + 1);
    PageId first = 0;
    for (const Record &record : records) {
        firstPages.push_back(first);
        first += static_cast<PageId>(record.pages.size());
    }
    firstPages.push_back(first);
    return firstPages;
}

std::vector<std::uint32_t> foldersOf(const std::vector<Record> &records)
{
    StringIds ids;
    std::vector<std::uint32_t> folders;
    folders.reserve(records.size());
    for (const Record &record : records)
        folders.push_back(ids.insert(record.folder));
    return folders;
}

} // namespace

PageSet::PageSet(const std::vector<Record> &records, FindingList &findings)
    : m_records(records), m_firstPages(firstPagesOf(records)), m_folderOfRecord(foldersOf(records)),
      m_addressIds(m_firstPages.back()), m_isWritten(m_firstPages.back())
{
    addPages(findings);
    separateCases(findings);
}

void PageSet::addPages(FindingList &findings)
{
    m_recordOfPage.reserve(count());
    m_addresses.reserve(count());
    m_pageOfAddress.reserve(count());
    for (std::uint32_t record = 0; record < m_records.size(); ++record) {
        for (const RecordPage &page : m_records[record].pages) {
            m_recordOfPage.push_back(record);
            m_addresses.push_back(pageAddress(m_records[record].folder, page.stem));
            addPage(static_cast<PageId>(m_addresses.size() - 1), findings);
        }
    }
}

void PageSet::addPage(PageId page, FindingList &findings)
{
    const std::uint32_t record = recordOf(page);
    const RecordPage &added = this->page(page);
    if (isSitePage(m_addresses[page])) {
        findings.add("duplicate-page", record, added.place,
                     "page " + inQuotes(added.stem) + ": the site has a page of its own with this name");
        return;
    }
    const std::uint32_t id = m_addressIds.insert(m_addresses[page]);
    if (id == m_pageOfAddress.size()) {
        m_pageOfAddress.push_back(page);
        m_isWritten[page] = true;
        return;
    }
    const PageId other = m_pageOfAddress[id];
    const std::string otherPlace = findings.placeText(recordOf(other), this->page(other).place);
    // Within one document the last page counts; pages of other documents do not replace it.
    if (recordOf(other) == record) {
        findings.add("duplicate-page", record, added.place,
                     "page " + inQuotes(added.stem) + " replaces the page made at " + otherPlace);
        m_isWritten[other] = false;
        m_isWritten[page] = true;
        m_pageOfAddress[id] = page;
    } else {
        // A source that is an input and is also included by one makes its pages twice.
        const bool isSamePlace = otherPlace == findings.placeText(record, added.place);
        findings.add("duplicate-page", record, added.place,
                     "page " + inQuotes(added.stem) + " is not written: it was made at " + otherPlace +
                         (isSamePlace ? ", which is part of two inputs" : ""));
    }
}

/// Where case does not count, one of two files that differ in case only would replace the other one. So the later of
/// such pages get numbers, everywhere. Pages of the site's own come before all others.
void PageSet::separateCases(FindingList &findings)
{
    static constexpr std::string_view sitePages[] = {"contents.htm", "names.htm", "search.htm"};
    std::deque<std::string> lowered; // of addresses with capitals
    StringIds ids(m_pageOfAddress.size());
    std::vector<std::string_view> first; // address, by id
    const auto add = [&](std::string_view address) {
        if (hasCapitals(address))
            lowered.push_back(lowerCase(address));
        const std::uint32_t id = ids.insert(hasCapitals(address) ? lowered.back() : address);
        if (id == first.size())
            first.push_back(address);
        return id;
    };
    for (const std::string_view address : sitePages)
        add(address);
    std::vector<std::pair<PageId, std::uint32_t>> clashing; // with the ids of their addresses
    for (const PageId page : m_pageOfAddress) {
        const std::uint32_t id = add(m_addresses[page]);
        if (first[id] != m_addresses[page])
            clashing.emplace_back(page, id);
    }
    std::unordered_map<std::uint32_t, std::size_t> lastNumbers; // by id
    for (const auto &[page, id] : clashing) {
        std::size_t &number = lastNumbers.try_emplace(id, 1).first->second;
        std::string address;
        do {
            address = numberedAddress(m_addresses[page], ++number);
        } while (ids.find(lowerCase(address)) != StringIds::s_none || isSitePage(lowerCase(address)));
        lowered.push_back(lowerCase(address));
        ids.insert(lowered.back());
        renumber(page, first[id], std::move(address), findings);
    }
}

void PageSet::renumber(PageId page, std::string_view other, std::string address, FindingList &findings)
{
    findings.add("case-clash", recordOf(page), this->page(page).place,
                 inQuotes(m_addresses[page]) + " differs from " + inQuotes(other) + " in case only: written as " +
                     inQuotes(address));
    const auto renumbered = m_otherAddresses.emplace(page, std::move(address)).first;
    // Nothing else may take the new address.
    if (m_addressIds.insert(renumbered->second) == m_pageOfAddress.size())
        m_pageOfAddress.push_back(page);
}

const std::string &PageSet::address(PageId page) const
{
    if (!m_otherAddresses.empty()) {
        if (const auto other = m_otherAddresses.find(page); other != m_otherAddresses.end())
            return other->second;
    }
    return m_addresses[page];
}

std::string_view PageSet::title(PageId page) const
{
    const RecordPage &shown = this->page(page);
    if (!shown.title.empty())
        return shown.title;
    if (!shown.qualifiedName.empty())
        return shown.qualifiedName;
    const std::string &ofDocument = shown.documentTitle.empty() ? m_records[recordOf(page)].title : shown.documentTitle;
    if (!ofDocument.empty())
        return ofDocument;
    return shown.stem.empty() ? std::string_view("?") : std::string_view(shown.stem);
}

PageId PageSet::named(std::string_view folder, std::string_view stem) const
{
    return atAddress(pageAddress(folder, stem));
}

PageId PageSet::atAddress(std::string_view address) const
{
    const std::uint32_t id = m_addressIds.find(address);
    return id == StringIds::s_none ? s_noPage : m_pageOfAddress[id];
}

} // namespace tavidoc
