#pragma once

#include "site/link/link_data.h"
#include "site/render/render.h"

namespace tavidoc {

/// The parts of renderShared(), each with its files.

/// contents.htm: the whole tree; the branches of a large one are folded.
void renderContentsPage(const SharedLinks &shared, const FileSink &sink);

/// names.htm: the index of names. Past 500 names it lists the pages names-X.htm, one for each initial and every 500 of
/// its names.
void renderNamesPages(const SharedLinks &shared, const FileSink &sink);

/// search.htm, which shows the results of a search when scripts run.
void renderSearchPage(const SharedLinks &shared, const FileSink &sink);

/// Pages that lead to another one: those of the project file, and the start page unless a page has its name.
void renderRedirects(const SharedLinks &shared, const FileSink &sink);

/// sitemap.xml, if the address of the site is known.
void renderSiteMap(const SharedLinks &shared, const FileSink &sink);

/// A page of the site's own, with the uppermost entries of the contents as its navigation.
void renderOwnPage(const SharedLinks &shared, const LinkTarget &page, std::string_view body, const FileSink &sink);

} // namespace tavidoc
