#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace tavidoc {

/// What the open pages of a site that is watched ask for again and again.
struct WatchStamp
{
    std::int64_t changed = 0;          ///< when a page last changed, in ms since 1970
    std::vector<std::string> messages; ///< errors
};

/// The stamp in the site \a output: a script, since pages may load nothing else from a file.
[[nodiscard]] QString watchStampFile(const QString &output);

/// The text of the stamp, in ASCII. Of very many messages the first are taken, and long ones are shortened.
[[nodiscard]] std::string watchStampText(const WatchStamp &stamp);

} // namespace tavidoc
