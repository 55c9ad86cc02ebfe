#include "codeedit/listing.h"

#include "docgen/text_escape.h"

void appendListing(std::string &html, std::string_view text, std::string_view /*language*/)
{
    appendEscaped(html, text);
}
