#pragma once

#include "site/link/link_data.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tavidoc {

/// What the sections of a single page can lead to.
struct SectionTargets
{
    const SharedLinks &shared;
    std::string filesFolder;                   ///< the address of the directory of copied files, with "/" at its end
    std::unordered_set<std::string> files;     ///< the addresses of copied files, relative to the top of the site
    std::unordered_set<std::string> anchors{}; ///< the ids of all places in sections
};

/// A page that becomes a section.
struct SectionPage
{
    std::string_view address; ///< of the page, relative to the top of the site
    std::string_view title;   ///< plain text
    std::size_t level = 1;    ///< of its heading; more than 6 counts as 6
};

/// The id of the contents of a single page. No page has this name.
inline constexpr std::string_view s_contentsId = "contents";

/// The id of the section of the page at \a address: the address without ".htm". Ids of places in it have that and ":"
/// before them, so the ids of different pages differ.
[[nodiscard]] std::string_view sectionId(std::string_view address);

/// Adds the ids of all places in \a body, which is that of the page at \a address, to \a anchors.
void addAnchors(std::string_view body, std::string_view address, std::unordered_set<std::string> &anchors);

/// \a body, that of \a page for the site, as a part of a single page: ids are made unique, links between pages lead to
/// sections and those to copied files to the directory of these. The headings get levels at and below that of the
/// page, and a page without a heading gets its title. Elements that the body leaves open are closed, and ends without
/// a beginning are removed, so that no section changes another one. Any bytes are fine.
[[nodiscard]] std::string sectionBody(std::string_view body, const SectionPage &page, const SectionTargets &targets);

} // namespace tavidoc
