#pragma once

#include "site/link/link.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// \a text in double quotes, as it is shown in a finding: on one line, and shortened when it is very long.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// Collects the findings of a link.
class FindingList
{
public:
    explicit FindingList(const std::vector<Record> &records) : m_records(records) {}

    /// Adds what compiling the records found.
    void addThoseOfRecords();

    void add(std::string_view check, std::uint32_t record, const RecordPlace &place, std::string text);
    void addWithoutLine(std::string_view check, std::string file, std::string text);
    void addInProject(std::string_view check, std::string file, const ProjectPlace &place, std::string text);

    /// \a place as it is shown within the text of a finding: "FILE:LINE", or "FILE".
    [[nodiscard]] std::string placeText(std::uint32_t record, const RecordPlace &place) const;

    /// All findings, by file and line; equal ones only once.
    [[nodiscard]] std::vector<Finding> takeSorted();

private:
    [[nodiscard]] const std::string &fileOf(std::uint32_t record, const RecordPlace &place) const;

    const std::vector<Record> &m_records;
    std::vector<Finding> m_findings;
};

} // namespace tavidoc
