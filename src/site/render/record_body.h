#pragma once

#include "site/record/record.h"

#include <string>
#include <string_view>

namespace tavidoc {

/// The bytes of the body of \a page; empty when its place is not in the bodies.
[[nodiscard]] std::string_view recordBody(const RecordWithBodies &record, const RecordPage &page);

/// Where the icon \a icon of \a record goes, relative to the top of the site.
[[nodiscard]] std::string iconAddress(const Record &record, const RecordIcon &icon);

} // namespace tavidoc
