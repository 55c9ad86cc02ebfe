#include "sourcebrowser/events.h"

namespace tavidoc {

void SourceBrowserEventInterface::preprocessorLine(const QString &, int, int) {}
void SourceBrowserEventInterface::fixmeComment(const QString &, int) {}
void SourceBrowserEventInterface::declareContainer(SourceBrowserObject::Phylum, const QString &, const QString &,
                                                   const QString &, int)
{
}
void SourceBrowserEventInterface::endContainer() {}
void SourceBrowserEventInterface::declareObject(SourceBrowserObject::Phylum, const QString &, const QString &, int) {}
void SourceBrowserEventInterface::visibilityChange(SourceBrowserObject::Access, int) {}

} // namespace tavidoc
