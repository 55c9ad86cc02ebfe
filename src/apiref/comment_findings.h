#pragma once

#include "pages/document_listener.h"
#include "sourcebrowser/model.h"

#include <string>
#include <vector>

namespace tavidoc {

/// Tells \a listener about text of \a comment that is not used: text on the line of the opening delimiter, and on that
/// of the closing one. \a comment is UTF-8, without the delimiters; it begins at \a place. False when there is none.
bool tellUnusedText(const std::string &comment, const DocumentPlace &place, DocumentListener &listener);

/// Tells \a listener about the comments of the header \a file that document no declaration of \a model. They begin on
/// \a commentLines, counted from 1.
void tellStrayComments(const QString &file, const std::vector<int> &commentLines, const SourceBrowserModel &model,
                       DocumentListener &listener);

/// The kind of \a object for readers: "function", "class", "enum", ...
[[nodiscard]] std::string_view declarationKind(const SourceBrowserObject &object);

} // namespace tavidoc
