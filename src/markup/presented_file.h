#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// A file that a page shows as a listing.
struct PresentedFile
{
    QByteArray text;      ///< UTF-8 with "\n" line ends
    std::string language; ///< the name of its lexer
};

/// Reads \a file for a listing. Without a \a language the extension decides. "$(LICENSE)" in
/// the text becomes the copyright notice; the language "verbatim" is plain text without this
/// replacement. A relative name starts at the working directory. Nothing when the
/// file cannot be read.
[[nodiscard]] std::optional<PresentedFile> presentedFile(std::string_view file, std::string_view language);

/// Reads \a file to be copied into a page: UTF-8, its line ends as they are. Nothing when it
/// cannot be read.
[[nodiscard]] std::optional<QByteArray> copiedFile(std::string_view file);

/// The name of \a file, which is UTF-8.
[[nodiscard]] QString listedFileName(std::string_view file);

/// What a page says in place of a \a file that cannot be read.
[[nodiscard]] std::string notFoundText(std::string_view file);

} // namespace tavidoc
