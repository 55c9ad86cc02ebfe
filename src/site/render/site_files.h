#pragma once

#include <QStringList>

#include <string>
#include <string_view>

namespace tavidoc {

/// The names of the style sheet and the scripts of the pages, sorted.
[[nodiscard]] QStringList siteFileNames();
/// The contents of one of them.
[[nodiscard]] std::string siteFile(std::string_view name);

/// What a single page needs after the style sheet of the site.
[[nodiscard]] std::string singleStyleSheet();
/// The style sheet of the pages that tavidoc writes.
[[nodiscard]] std::string plainStyleSheet();

} // namespace tavidoc
