#pragma once

#include "site/lexers/listing_scanner.h"

namespace tavidoc {

/// The lexers of the languages that only the site colours. Each reads a listing to its end, whatever its bytes.
void lexShell(ListingScanner &scanner);
void lexPython(ListingScanner &scanner);
void lexJson(ListingScanner &scanner);
void lexYaml(ListingScanner &scanner);
void lexToml(ListingScanner &scanner);
void lexCMake(ListingScanner &scanner);
void lexHtml(ListingScanner &scanner);
void lexCss(ListingScanner &scanner);
void lexDiff(ListingScanner &scanner);

} // namespace tavidoc
