#pragma once

#include "pages/output_record.h"

#include <string_view>

using namespace tavidoc;

// Promises that pages, contents files and messages keep for every input.

/// Checks that a framed page has its frame and that each line closes the spans that it opens. The latter is not
/// checked in pages with raw HTML.
void checkPage(std::string_view page, bool isFramed, bool holdsRawHtml);

/// Checks that a contents file closes the entries that it opens. Not for files with raw lines.
void checkContents(std::string_view contents);

/// Checks that \a message is one line that begins with its kind.
void checkMessage(std::string_view message);
