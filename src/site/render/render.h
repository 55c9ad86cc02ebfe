#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"

#include <QByteArray>

#include <functional>
#include <string_view>

namespace tavidoc {

/// Receives a finished file: its address relative to the top of the site, and its bytes.
using FileSink = std::function<void(const std::string &address, const QByteArray &bytes)>;

/// Renders the pages of one record, and its icons.
void renderRecord(const RecordWithBodies &record, const RecordLinks &links, const SharedLinks &shared,
                  const FileSink &sink);

/// Renders what belongs to no record: contents.htm, names.htm, search.htm, redirects, site map, style sheet, scripts.
void renderShared(const SharedLinks &shared, const FileSink &sink);

/// The page that takes the place of the removed page \a address while a site is watched.
[[nodiscard]] QByteArray removedPage(std::string_view address, const SiteSettings &settings);

} // namespace tavidoc
