#pragma once

#include "site/link/contents_tree.h"
#include "site/link/link_data.h"
#include "site/link/navigation.h"

namespace tavidoc {

/// What all pages share. Reports redirects that lead nowhere (`dead-link`) and redirects of pages that exist
/// (`duplicate-page`); those are left out.
[[nodiscard]] SharedLinks sharedLinks(const PageSet &pages, const ContentsTree &tree, const Navigation &navigation,
                                      const SiteSettings &settings, FindingList &findings);

} // namespace tavidoc
