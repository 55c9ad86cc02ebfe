#include "site/link/name_index.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tavidoc {

namespace {

constexpr int s_mostBareNames = 8;             // of one declaration: deeper names are found by their ends only
constexpr std::size_t s_shortestCorrected = 3; // bytes: every shorter name is near to some other one
constexpr std::size_t s_longestCorrected = 64;

auto orderOf(const NamedPage &page)
{
    return std::tie(page.kind, page.folder, page.record, page.page, page.member);
}

/// Calls \a take with the ends of the qualified name \a name, from the last one on: "push" and "Buffer::push" of
/// "tools::Buffer::push". The whole name is none of them.
template <typename Take> void forEachEnd(std::string_view name, Take take)
{
    std::size_t end = name.size();
    for (int count = 0; count < s_mostBareNames && end > 0; ++count) {
        const std::size_t separator = name.rfind("::", end - 1);
        if (separator == std::string_view::npos)
            break;
        take(name.substr(separator + 2));
        end = separator;
    }
}

} // namespace

NameIndex::NameIndex(const PageSet &pages) : m_pages(pages), m_names(pages.count())
{
    groupByName(collectedEntries());
}

std::vector<NameIndex::Entry> NameIndex::collectedEntries()
{
    std::vector<Entry> entries;
    entries.reserve(std::size_t(3) * m_pages.count());
    for (PageId page = 0; page < m_pages.count(); ++page) {
        if (m_pages.isWritten(page))
            addPage(entries, page);
    }
    return entries;
}

void NameIndex::addPage(std::vector<Entry> &entries, PageId page)
{
    const std::uint32_t record = m_pages.recordOf(page);
    const auto add = [&](NameKind kind, std::string_view name) {
        if (!name.empty())
            entries.push_back({m_names.insert(name), {kind, m_pages.folder(record), record, page}});
    };
    const RecordPage &named = m_pages.page(page);
    add(NameKind::Stem, named.stem);
    add(NameKind::Title, named.title);
    const std::string_view name = named.qualifiedName;
    add(NameKind::Qualified, name);
    forEachEnd(name, [&](std::string_view bare) { add(NameKind::Bare, bare); });
    if (name.find("::") == std::string_view::npos)
        add(NameKind::Bare, name);
    addMembers(entries, page);
}

/// Adds the names of what has a row on \a page: all ends of its qualified names.
void NameIndex::addMembers(std::vector<Entry> &entries, PageId page)
{
    const std::vector<RecordMember> &members = m_pages.page(page).members;
    const std::uint32_t record = m_pages.recordOf(page);
    for (std::uint32_t member = 0; member < members.size(); ++member) {
        const auto add = [&](std::string_view name) {
            entries.push_back({m_names.insert(name), {NameKind::Member, m_pages.folder(record), record, page, member}});
        };
        const RecordMember &named = members[member];
        add(named.qualifiedName);
        forEachEnd(named.qualifiedName, add);
        if (!named.outerName.empty()) { // its last end is one already
            add(named.outerName);
            forEachEnd(named.outerName, [&](std::string_view end) {
                if (!named.qualifiedName.ends_with(end))
                    add(end);
            });
        }
    }
}

void NameIndex::groupByName(const std::vector<Entry> &entries)
{
    m_firstOfName.assign(m_names.count() + 1, 0);
    for (const Entry &entry : entries)
        ++m_firstOfName[entry.name + 1];
    for (std::size_t i = 1; i < m_firstOfName.size(); ++i)
        m_firstOfName[i] += m_firstOfName[i - 1];
    m_namedPages.resize(entries.size());
    std::vector<std::uint32_t> next(m_firstOfName.begin(), m_firstOfName.end() - 1);
    for (const Entry &entry : entries)
        m_namedPages[next[entry.name]++] = entry.page;
    for (std::size_t i = 0; i + 1 < m_firstOfName.size(); ++i) {
        if (m_firstOfName[i + 1] - m_firstOfName[i] > 1) {
            std::sort(m_namedPages.begin() + m_firstOfName[i], m_namedPages.begin() + m_firstOfName[i + 1],
                      [](const NamedPage &left, const NamedPage &right) { return orderOf(left) < orderOf(right); });
        }
    }
}

std::span<const NamedPage> NameIndex::find(NameKind kind, std::string_view name, NameSeeker seeker) const
{
    const std::uint32_t id = m_names.find(name);
    if (id == StringIds::s_none)
        return {};
    const std::span<const NamedPage> all(m_namedPages.data() + m_firstOfName[id],
                                         m_firstOfName[id + 1] - m_firstOfName[id]);
    const auto equal = [](std::span<const NamedPage> range, auto member, auto value) {
        const auto begin = std::ranges::lower_bound(range, value, {}, member);
        return std::span<const NamedPage>(begin, std::ranges::upper_bound(begin, range.end(), value, {}, member));
    };
    const auto ofKind = equal(all, &NamedPage::kind, kind);
    const auto inFolder = equal(ofKind, &NamedPage::folder, seeker.folder);
    const auto inRecord = equal(inFolder, &NamedPage::record, seeker.record);
    return !inRecord.empty() ? inRecord : !inFolder.empty() ? inFolder : ofKind;
}

std::string NameIndex::neighbourOf(std::string_view name) const
{
    if (name.size() < s_shortestCorrected || name.size() > s_longestCorrected)
        return {};
    std::string text(name);
    const auto isKnown = [&] { return m_names.find(text) != StringIds::s_none; };
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        std::swap(text[i], text[i + 1]);
        if (isKnown())
            return text;
        std::swap(text[i], text[i + 1]);
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        text = name;
        text.erase(i, 1);
        if (isKnown())
            return text;
        text.insert(i, 1, ' ');
        for (text[i] = ' '; text[i] <= '~'; ++text[i]) {
            if (isKnown())
                return text;
        }
    }
    for (std::size_t i = 0; i <= name.size(); ++i) {
        text = name;
        text.insert(i, 1, ' ');
        for (; text[i] <= '~'; ++text[i]) {
            if (isKnown())
                return text;
        }
    }
    return {};
}

} // namespace tavidoc
