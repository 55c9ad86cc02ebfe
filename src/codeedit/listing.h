#pragma once

/*!!
 * \h1 listing.h
 *
 * A listing as HTML, in one call.
 */

#include <string>
#include <string_view>

namespace tavidoc {

/*!
 * \h1 \this
 * Appends the listing \a{text} (UTF-8) in \a{language} to \a{html}.
 *
 * If the language has a lexer, each run of characters of one kind becomes a span, every line closes its spans and ends
 * with a line feed; the line numbers of \tt{basic} are left out, and \tt{\\vdots}, \tt{\\hdots} and \tt{\\...} become
 * ellipses. Otherwise the text is only escaped.
 * \synopsis
 * \sa \xref{listing_h}{listing.h}
 * \ingroup Functions
 */
void appendListing(std::string &html, std::string_view text, std::string_view language);

} // namespace tavidoc
