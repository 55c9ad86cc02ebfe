#pragma once

#include "site/link/link_data.h"

#include <QByteArray>
#include <QString>

namespace tavidoc {

/// The name of the ".lnk" file of the record of \a input whose pages go to \a folder, without a directory. Different
/// records have different names.
[[nodiscard]] QString linkFileName(const std::string &folder, const std::string &input);
/// The name of the file with what all pages share.
[[nodiscard]] QString sharedLinkFileName();

[[nodiscard]] QByteArray encodedLinks(const RecordLinks &links);
[[nodiscard]] QByteArray encodedLinks(const SharedLinks &links);

/// Throws HException "FILE: ..." when the file cannot be read or is damaged.
[[nodiscard]] RecordLinks readRecordLinks(const QString &file);
[[nodiscard]] SharedLinks readSharedLinks(const QString &file);

} // namespace tavidoc
