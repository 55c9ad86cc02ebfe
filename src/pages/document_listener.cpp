#include "pages/document_listener.h"

namespace tavidoc {

void DocumentListener::page(const DocumentPage &) {}
void DocumentListener::contentsLine(std::string_view, const DocumentPlace &) {}
void DocumentListener::icon(std::string_view, const QByteArray &) {}
void DocumentListener::file(const QString &, bool) {}
void DocumentListener::finding(const DocumentFinding &) {}

} // namespace tavidoc
