#include "markup/presented_file.h"

#include "base/product.h"
#include "base/source_text.h"

#include <utility>

namespace tavidoc {

namespace {

struct Extension
{
    std::string_view name;
    std::string_view language;
    bool anyCase = false;
};

constexpr Extension s_extensions[] = {
    {"bas", "basic"},     {"xml", "xml"},       {"emproject", "xml", true},
    {"hzp", "xml", true}, {"cpp", "c"},         {"hpp", "c"},
    {"cxx", "c"},         {"hxx", "c"},         {"cc", "c"},
    {"hh", "c"},          {"js", "javascript"},
};

std::string lowered(std::string_view text)
{
    std::string result(text);
    for (char &c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
    }
    return result;
}

std::string_view languageOf(std::string_view file)
{
    const std::string_view name = file.substr(file.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    const std::string_view extension = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
    const std::string inLowerCase = lowered(extension);
    for (const Extension &row : s_extensions) {
        if (row.name == (row.anyCase ? std::string_view(inLowerCase) : extension))
            return row.language;
    }
    return "plain";
}

QString fileName(std::string_view file)
{
    return QString::fromUtf8(file.data(), static_cast<qsizetype>(file.size()));
}

} // namespace

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
    std::optional<QByteArray> bytes = readRegularFile(fileName(file));
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
