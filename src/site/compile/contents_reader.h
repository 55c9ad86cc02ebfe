#pragma once

#include "site/record/record.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A line of a contents file.
struct ContentsLine
{
    std::string text;
    RecordPlace place;
};

/// Called with the place and the text of a fault.
using ContentsFault = std::function<void(const RecordPlace &, std::string)>;

/// The entries of a contents file with these \a lines, without its root element. An address without ".htm" is the stem
/// of a page; an entry is one of a page when \a isPage holds for it, else it includes a page made elsewhere. What comes
/// after a fault in the XML is left out.
[[nodiscard]] std::vector<RecordEntry> contentsEntries(const std::vector<ContentsLine> &lines,
                                                       const std::function<bool(const std::string &)> &isPage,
                                                       const ContentsFault &fault);

} // namespace tavidoc
