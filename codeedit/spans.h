#pragma once

#include <string>

/// Appends the styled line \a styled, which ends with a 0 unit, to \a html: each run in a span
/// with the class of its style, the text escaped. No span is open after it.
void appendSpans(std::string &html, const char16_t *styled);
