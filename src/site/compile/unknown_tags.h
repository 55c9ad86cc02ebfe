#pragma once

#include "pages/document_listener.h"

#include <functional>
#include <string>

namespace tavidoc {

/// Calls \a tell for each place of \a page where the author wrote text that a browser takes for a tag and does not
/// show, such as the "<int>" of "vector<int>", with what to write instead.
void tellUnknownTags(const DocumentPage &page,
                     const std::function<void(const DocumentPlace &place, const std::string &text)> &tell);

} // namespace tavidoc
