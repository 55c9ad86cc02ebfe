#include "site/link/finding_list.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tavidoc {

namespace {

constexpr std::size_t s_longestQuote = 200; // bytes

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

auto placeOf(const Finding &finding)
{
    return std::tie(finding.file, finding.line, finding.column);
}

bool isSame(const Finding &left, const Finding &right)
{
    return left.text == right.text && left.check == right.check && placeOf(left) == placeOf(right);
}

} // namespace

std::string inQuotes(std::string_view text)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string_view shown = text.substr(0, s_longestQuote);
    if (shown.size() < text.size()) {
        while (!shown.empty() && isContinuation(text[shown.size()]))
            shown.remove_suffix(1);
    }
    std::string result = "\"";
    for (const char c : shown) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7f)
            result += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
        else
            result += c;
    }
    result += shown.size() < text.size() ? "...\"" : "\"";
    return result;
}

const std::string &FindingList::fileOf(std::uint32_t record, const RecordPlace &place) const
{
    const Record &owner = m_records[record];
    return place.file < owner.files.size() ? owner.files[place.file].name : owner.input;
}

std::string FindingList::placeText(std::uint32_t record, const RecordPlace &place) const
{
    const std::string &file = fileOf(record, place);
    return place.line > 0 ? file + ':' + std::to_string(place.line) : file;
}

void FindingList::add(std::string_view check, std::uint32_t record, const RecordPlace &place, std::string text)
{
    m_findings.push_back({std::string(check), fileOf(record, place), place.line, std::move(text)});
}

void FindingList::addWithoutLine(std::string_view check, std::string file, std::string text)
{
    m_findings.push_back({std::string(check), std::move(file), 0, std::move(text)});
}

void FindingList::addInProject(std::string_view check, std::string file, const ProjectPlace &place, std::string text)
{
    m_findings.push_back({std::string(check), std::move(file), place.line, std::move(text), place.column});
}

void FindingList::addThoseOfRecords()
{
    for (std::uint32_t record = 0; record < m_records.size(); ++record) {
        for (const RecordFinding &finding : m_records[record].findings) {
            add(finding.check, record, finding.place, finding.text);
            m_findings.back().isRaised = finding.isRaised;
        }
    }
}

std::vector<Finding> FindingList::takeSorted()
{
    std::ranges::stable_sort(m_findings,
                             [](const Finding &left, const Finding &right) { return placeOf(left) < placeOf(right); });
    // A file that several inputs include is compiled with each of them. Findings of one place are few.
    const auto last = std::unique(m_findings.begin(), m_findings.end(), isSame);
    m_findings.erase(last, m_findings.end());
    return std::exchange(m_findings, {});
}

} // namespace tavidoc
