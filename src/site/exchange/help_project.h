#pragma once

#include "site/link/link_data.h"

#include <QByteArray>

#include <map>
#include <set>
#include <string>

namespace tavidoc {

/// A project file of Qt's help system (".qhp"), which lists files beside it: the contents, keywords (declarations by name
/// and by qualified name, and titles), and \a files. \a names has the file of each page by its address in the site.
[[nodiscard]] QByteArray helpProjectFile(const SharedLinks &shared, const std::map<std::string, std::string> &names,
                                         const std::set<std::string> &files);

} // namespace tavidoc
