#pragma once

#include "pages/output_record.h"

#include <string_view>

using namespace tavidoc;

/// What pages and contents files promise, whatever they were made from.

/// A framed page has its frame, and each of its lines closes the spans that it opens. The second does not hold for
/// pages that hold raw HTML.
void checkPage(std::string_view page, bool isFramed, bool holdsRawHtml);

/// A contents file closes the entries that it opens. Does not hold for one with raw lines.
void checkContents(std::string_view contents);

/// Each message is one line that says what it is. \a messages are all of a run.
void checkMessage(std::string_view message);
