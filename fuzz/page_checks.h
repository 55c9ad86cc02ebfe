#pragma once

#include "pages/output_record.h"
#include "reading/message.h"

#include <string_view>

using namespace tavidoc;

// Promises that pages, contents files and messages keep for every input.

/// Checks that a framed page has its frame and that each line closes the spans that it opens. The latter is not
/// checked in pages with raw HTML.
void checkPage(std::string_view page, bool isFramed, bool holdsRawHtml);

/// Checks that a contents file closes the entries that it opens. Not for files with raw lines.
void checkContents(std::string_view contents);

/// A message is one line and has a text, and a position unless it is about a choose phrase.
void checkMessage(const Message &message);
