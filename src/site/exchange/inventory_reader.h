#pragma once

#include "site/link/foreign_names.h"
#include "site/link/link_data.h"

#include <QByteArrayView>

#include <vector>

namespace tavidoc {

/// The names in \a inventories, which are in Sphinx's format ("objects.inv", version 2). If a name is in several, the
/// first inventory counts, and in it a declaration of C++ before one of C, one of Python, a label and a document. Throws
/// HException with the name of the file if one cannot be read, is damaged, or has more than 256 MB of names.
[[nodiscard]] ForeignNames readInventories(const std::vector<SiteInventory> &inventories);

/// Adds the names in \a bytes, those of \a inventory, to \a names; their ranks begin at \a rank and are less than
/// \a rank + 8.
void addInventory(ForeignNames &names, std::size_t rank, const SiteInventory &inventory, QByteArrayView bytes);

} // namespace tavidoc
