#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"

#include <QByteArray>

#include <optional>
#include <string_view>
#include <vector>

namespace tavidoc {

/// What a page shows around its body. Everything is borrowed.
struct PageFrame
{
    std::string_view address; ///< of the page, relative to the top of the site
    std::string_view title;   ///< plain text
    const std::vector<LinkTarget> *ancestors = nullptr;
    const std::vector<NavigationEntry> *navigation = nullptr;
    const std::vector<RecordHeading> *headings = nullptr;
    const LinkTarget *previous = nullptr;
    const LinkTarget *next = nullptr;
};

/// The file of a page: \a body, UTF-8 HTML, in its frame. The frame adds at most 9,000 bytes, however long titles are.
[[nodiscard]] QByteArray framedSitePage(const PageFrame &frame, std::string_view body, const SiteSettings &settings);

} // namespace tavidoc
