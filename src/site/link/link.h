#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A finding with its position, as it is printed.
struct Finding
{
    std::string check;
    std::string file;      ///< relative to the directory where the build was started
    std::int64_t line = 0; ///< counted from 1; 0: the file as a whole
    std::string text;
};

/// The outcome of linking.
struct LinkResult
{
    std::vector<RecordLinks> records; ///< in the order of the records
    SharedLinks shared;
    std::vector<Finding> findings; ///< of the records and of linking, sorted by file and line, whatever their level
};

/// Joins the contents of \a records, names their pages and resolves their links over the whole set.
[[nodiscard]] LinkResult link(const std::vector<Record> &records, const SiteSettings &settings);

} // namespace tavidoc
