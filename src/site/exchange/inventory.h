#pragma once

#include "site/link/link_data.h"

#include <QByteArray>

namespace tavidoc {

/// The inventory of a site ("objects.inv", version 2) through which Sphinx links to its declarations and pages: the
/// declarations as objects of C and C++, the pages as documents.
[[nodiscard]] QByteArray inventoryFile(const SharedLinks &shared);

} // namespace tavidoc
