#include "markup/presented_file.h"

#include "base/product.h"
#include "base/source_text.h"
#include "base/whole_file.h"
#include "codeedit/languages.h"

#include <utility>

namespace tavidoc {

namespace {

/// The name of the language of files with the suffix of \a file.
std::string_view languageOf(std::string_view file)
{
    const std::string_view name = file.substr(file.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    const Language *const language =
        dot != std::string_view::npos ? Languages::ofSuffix(name.substr(dot + 1)) : nullptr;
    return language != nullptr ? *language->names.begin() : "plain";
}

} // namespace

QString listedFileName(std::string_view file)
{
    return QString::fromUtf8(file);
}

std::optional<PresentedFile> presentedFile(std::string_view file, std::string_view language)
{
    std::optional<QByteArray> text = copiedFile(file);
    if (!text)
        return std::nullopt;
    normalizeLineEnds(*text);
    if (language == "verbatim")
        return PresentedFile{std::move(*text), "plain"};
    text->replace("$(LICENSE)", QByteArrayView(Product::licenceNotice));
    return PresentedFile{std::move(*text), std::string(language.empty() ? languageOf(file) : language)};
}

std::optional<QByteArray> copiedFile(std::string_view file)
{
    std::optional<QByteArray> bytes = readRegularFile(listedFileName(file));
    if (!bytes)
        return std::nullopt;
    return decodedSource(std::move(*bytes));
}

std::string notFoundText(std::string_view file)
{
    std::string text("***");
    text += file;
    text += " not found ***";
    return text;
}

} // namespace tavidoc
