#pragma once

#include "site/link/foreign_names.h"
#include "site/link/link_data.h"
#include "site/record/record.h"

#include <cstddef>
#include <functional>
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
    std::int64_t column = 0; ///< counted from 1; 0: unknown, as in all files but the project file
    bool isRaised = false;   ///< see RecordFinding
};

/// The outcome of linking, but for what was handed out record by record.
struct LinkSummary
{
    SharedLinks shared;
    std::vector<Finding> findings; ///< of the records and of linking, sorted by file and line, whatever their level
};

/// The outcome of linking.
struct LinkResult : LinkSummary
{
    std::vector<RecordLinks> records; ///< in the order of the records
};

/// Receives what rendering the record with \a index needs.
using LinkSink = std::function<void(std::size_t index, RecordLinks links)>;
/// Reports whether \a file, relative to the working directory or absolute, is a file that can be read.
using FileProbe = std::function<bool(const std::string &file)>;

[[nodiscard]] bool isReadableFile(const std::string &file);

/// Joins the contents of \a records, names their pages and resolves their links over the whole set and
/// then over the names of other projects. Hands out the links
/// of each record, in the order of the records, as soon as they are made, so that they need not be in memory together.
[[nodiscard]] LinkSummary link(const std::vector<Record> &records, const SiteSettings &settings, const LinkSink &sink,
                               const FileProbe &isReadable = isReadableFile, const ForeignNames &foreign = {});

/// As above, all at once.
[[nodiscard]] LinkResult link(const std::vector<Record> &records, const SiteSettings &settings,
                              const FileProbe &isReadable = isReadableFile, const ForeignNames &foreign = {});

} // namespace tavidoc
