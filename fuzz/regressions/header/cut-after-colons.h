#pragma once

#include <QByteArray>

#include <optional>
#include <string>
#include <string_view>

/// A file that a page shows as a listing.
struct PresentedFile
{
    QByteArray text;      ///< UTF-8 with "\n" line ends
    std::string language; ///< the name of its lexer
};

/// Reads \a file for a listing. Without a \a language the extension decides. "$(LICENSE)" in
/// the text becomes the copyright notice; the language "verbatim" is plain text in which it
/// does not. A name that is not absolute starts at the working directory. Nothing when the
/// file cannot be read.
[[nodiscard]] std::optional<PresentedFile> presentedFile(std::string_view file, std::