#include "site/link/included_records.h"

#include "site/link/addresses.h"

namespace tavidoc {

namespace {

constexpr std::string_view s_suffix = ".xml";

/// \a file without its directory and without what follows its first dot, as contents files are named.
std::string_view baseName(std::string_view file)
{
    file.remove_prefix(directoryOf(file).size() + (file.find('/') == std::string_view::npos ? 0 : 1));
    return file.substr(0, file.find('.'));
}

std::string nameInFolder(std::uint32_t folder, std::string_view name)
{
    return std::to_string(folder) + '/' + std::string(name);
}

std::string nameAnywhere(std::string_view name)
{
    return "*/" + std::string(name);
}

} // namespace

bool includesContents(const RecordEntry &entry)
{
    return entry.kind == RecordEntry::Kind::Include && entry.target.ends_with(s_suffix);
}

IncludedRecords::IncludedRecords(const PageSet &pages) : m_pages(pages)
{
    const std::vector<Record> &records = pages.records();
    for (const bool isMarkup : {true, false}) {
        for (std::uint32_t record = 0; record < records.size(); ++record) {
            if (records[record].input.ends_with(".dg") == isMarkup)
                add(record);
        }
    }
}

void IncludedRecords::add(std::uint32_t record)
{
    const std::string &input = m_pages.records()[record].input;
    const std::string_view base = baseName(input);
    const std::string path = cleanedPath(directoryOf(input), base);
    const auto addTo = [record](Namesakes &namesakes) {
        if (namesakes.count < 2)
            (namesakes.count == 0 ? namesakes.first : namesakes.second) = record;
        ++namesakes.count;
    };
    addTo(m_byPath[path]);
    addTo(m_byName[nameInFolder(m_pages.folder(record), base)]);
    addTo(m_byName[nameAnywhere(base)]);
}

/// The record in \a names with \a name that is not \a record; s_none when there are several of them or none.
std::uint32_t IncludedRecords::onlyOther(const TextMap<Namesakes> &names, std::string_view name, std::uint32_t record)
{
    const auto found = names.find(name);
    if (found == names.end())
        return s_none;
    const Namesakes &namesakes = found->second;
    const bool hasItself = namesakes.first == record || namesakes.second == record;
    if (namesakes.count - (hasItself ? 1 : 0) != 1)
        return s_none;
    return namesakes.first == record ? namesakes.second : namesakes.first;
}

std::uint32_t IncludedRecords::find(std::string_view target, std::uint32_t record) const
{
    target.remove_suffix(s_suffix.size());
    const std::string &input = m_pages.records()[record].input;
    const std::string_view base = baseName(target);
    const std::string_view withoutSuffix = target.substr(0, base.data() + base.size() - target.data());
    const std::string path = cleanedPath(directoryOf(input), withoutSuffix);
    if (const auto beside = m_byPath.find(path); beside != m_byPath.end()) {
        const Namesakes &namesakes = beside->second;
        return namesakes.first == record && namesakes.second != s_none ? namesakes.second : namesakes.first;
    }
    const std::uint32_t inFolder = onlyOther(m_byName, nameInFolder(m_pages.folder(record), base), record);
    return inFolder != s_none ? inFolder : onlyOther(m_byName, nameAnywhere(base), record);
}

} // namespace tavidoc
