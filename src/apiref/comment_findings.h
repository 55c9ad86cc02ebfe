#pragma once

#include "apiref/synopsis_source.h"
#include "pages/document_listener.h"
#include "sourcebrowser/model.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Tells \a listener about text of \a comment that is not used: text on the line of the opening delimiter, and on that
/// of the closing one. \a comment is UTF-8, without the delimiters; it begins at \a place. False when there is none.
bool tellUnusedText(const std::string &comment, const DocumentPlace &place, DocumentListener &listener);

/// Tells \a listener about the comments of the header \a file that document no declaration of \a model. They begin on
/// \a commentLines, counted from 1.
void tellStrayComments(const QString &file, const std::vector<int> &commentLines, const SourceBrowserModel &model,
                       DocumentListener &listener);

/// Tells \a listener about the public functions, classes, enumerations and macros of \a model, the declarations of the
/// header \a file, that have no documentation comment. Nothing is told about a header without any such comment.
/// Nor is anything about macros that say nothing to readers: that which keeps the header from being read twice, and those
/// that stand for attributes of other declarations. \a text is that of the header. \a source, if it is not null,
/// distinguishes overloads by all their qualifiers.
void tellUndocumented(const QString &file, std::string_view text, const SourceBrowserModel &model,
                      const SynopsisSource *source, DocumentListener &listener);

/// Tells \a listener where the parameters and the result that \a comment describes are not those of \a object, a
/// function or macro. \a comment is UTF-8, without the delimiters; it begins at \a place.
void tellParameterMismatches(const SourceBrowserObject &object, std::string_view comment, const DocumentPlace &place,
                             DocumentListener &listener);

/// Tells \a listener about commands of other documentation tools in \a comment, which begins at \a place, and what to
/// write instead. Three or more in one comment are told as raised.
void tellForeignCommands(std::string_view comment, const DocumentPlace &place, DocumentListener &listener);

/// Tells \a listener about the first documentation comment of another tool in \a text, the header \a file: one that
/// begins with "///", "//!" or "/**". If one of them holds three or more commands of such a tool, about the first of
/// those, as raised. Comments after a declaration, "///<" and the like, are left out.
void tellForeignComments(const QString &file, std::string_view text, DocumentListener &listener);

/// The kind of \a object for readers: "function", "class", "enum", ...
[[nodiscard]] std::string_view declarationKind(const SourceBrowserObject &object);

} // namespace tavidoc
