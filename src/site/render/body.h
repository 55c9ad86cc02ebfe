#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The body of \a page for the site. \a body is what the library made, and every byte of it stays except the targets
/// and captions of links and the sources of pictures, which come from \a links. Inserted are:
/// - ids of headings, and links to them;
/// - boxes around listings and outermost tables;
/// - links on the names of declarations in code, as far as they fit into 2,000 bytes;
/// - spans in listings in a language that only the site knows;
/// - the number with which a numbered list continues that only listings separate from the one before it;
/// - an empty description in pictures without one;
/// - marks of errors in the markup and of links that lead nowhere, so that they do not look like text;
/// - the attribute that hides the heading of the group of declarations without a group.
/// - links on the names of base classes; after the body, the list of derived classes.
/// Offsets that do not fit the body are ignored.
[[nodiscard]] std::string siteBody(std::string_view body, const RecordPage &page, const PageLinks &links);

/// The same with nothing inserted: only targets and captions of links and the sources of pictures differ.
[[nodiscard]] std::string relocatedBody(std::string_view body, const RecordPage &page, const PageLinks &links);

/// The headings of \a page with those that siteBody() adds.
[[nodiscard]] std::vector<RecordHeading> siteHeadings(const RecordPage &page, const PageLinks &links);

} // namespace tavidoc
