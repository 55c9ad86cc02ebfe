#pragma once

#include "site/link/link_data.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace tavidoc {

/// A version of a site in the list of all.
struct ListedVersion
{
    std::string folder; ///< of its pages, relative to that of the list
    std::string title;
};

/// The versions in \a script; none when it is empty. Throws HException "\a name: ..." when it is not a list of versions.
[[nodiscard]] std::vector<ListedVersion> versionsIn(const QByteArray &script, const QString &name);

/// The script that lists \a versions, the newest first: numbers in titles count as such, and names come before numbers.
[[nodiscard]] QByteArray versionScript(std::vector<ListedVersion> versions);

/// Notes the site with \a settings in the directory \a output in its list of versions, if it has one. A build of another
/// version that does so at the same time waits. Throws HException.
void listVersion(const SiteSettings &settings, const QString &output);

} // namespace tavidoc
