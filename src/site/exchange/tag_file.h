#pragma once

#include "site/link/link_data.h"

#include <QByteArray>

namespace tavidoc {

/// The tag file of a site through which Doxygen links to its declarations and pages.
[[nodiscard]] QByteArray tagFile(const SharedLinks &shared);

} // namespace tavidoc
