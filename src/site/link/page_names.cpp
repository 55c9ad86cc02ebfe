#include "site/link/page_names.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
#include <array>

namespace tavidoc {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t s_longestComponent = 200; // file systems take 255 bytes; ".htm" and temporary names are to fit
constexpr std::size_t s_longestPath = 1'000;
constexpr std::size_t s_keptOfLongName = 120;

constexpr bool isLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

constexpr bool isKept(char c)
{
    return isLetterOrDigit(c) || c == '.' || c == '_' || c == '-';
}

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// "~" needs no escape in an address and is allowed in file names everywhere. Always two digits: Windows gives long
/// names a second, short one with "~" and one digit.
void appendEncoded(std::string &name, char c)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    name += '~';
    name += digits[byte / 16];
    name += digits[byte % 16];
}

/// Whether Windows takes \a component for a device, whatever follows its first dot.
bool isDevice(std::string_view component)
{
    static constexpr std::array devices = {"con"sv, "prn"sv, "aux"sv, "nul"sv};
    const std::size_t length = std::min(component.find('.'), component.size());
    if (length != 3 && length != 4)
        return false;
    std::string name(component.substr(0, length));
    std::ranges::transform(name, name.begin(), lowered);
    if (name.size() == 4 && name[3] >= '0' && name[3] <= '9')
        return name.starts_with("com") || name.starts_with("lpt");
    return std::ranges::find(devices, name) != devices.end();
}

/// The beginning of \a name and a hash of \a original. Two "~" in a row are in no other name.
std::string shortened(std::string_view name, std::string_view original)
{
    const QByteArrayView bytes(original.data(), static_cast<qsizetype>(original.size()));
    const QByteArray hash = QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha256).first(16).toHex();
    std::string_view kept = name.substr(0, s_keptOfLongName);
    if (const std::size_t escape = kept.rfind('~'); escape != std::string_view::npos && escape + 3 > kept.size())
        kept = kept.substr(0, escape);
    return std::string(kept) + "~~" + hash.toStdString();
}

enum class DotAtEnd
{
    Allowed, ///< a suffix follows
    Encoded,
};

void appendComponent(std::string &path, std::string_view component, DotAtEnd dotAtEnd)
{
    if (component.empty()) {
        path += '~'; // a lone "~" is in no other name
        return;
    }
    const bool isReserved = isDevice(component);
    // A folder named like a page would take the place of that page.
    const bool endsLikePage = dotAtEnd == DotAtEnd::Encoded && component.ends_with(".htm");
    const std::size_t lastDot = dotAtEnd == DotAtEnd::Encoded && component.back() == '.' ? component.size() - 1
                                : endsLikePage                                           ? component.size() - 4
                                                                                         : std::string_view::npos;
    if (!isReserved && lastDot == std::string_view::npos && component.size() <= s_longestComponent &&
        std::ranges::all_of(component, isKept)) {
        path += component;
        return;
    }
    std::string name;
    name.reserve(component.size());
    for (std::size_t i = 0; i < component.size(); ++i) {
        if (!isKept(component[i]) || i == lastDot || (i == 0 && isReserved))
            appendEncoded(name, component[i]);
        else
            name += component[i];
    }
    path += name.size() > s_longestComponent ? shortened(name, component) : name;
}

void appendPath(std::string &result, std::string_view path, DotAtEnd dotAtEnd)
{
    while (true) {
        const std::size_t slash = path.find('/');
        if (slash == std::string_view::npos)
            break;
        appendComponent(result, path.substr(0, slash), DotAtEnd::Encoded);
        result += '/';
        path.remove_prefix(slash + 1);
    }
    appendComponent(result, path, dotAtEnd);
}

std::string notTooLong(std::string &&result, std::string_view original)
{
    return result.size() > s_longestPath ? shortened({}, original) : std::move(result);
}

} // namespace

std::string encodedPath(std::string_view path)
{
    std::string result;
    appendPath(result, path, DotAtEnd::Encoded);
    return notTooLong(std::move(result), path);
}

std::string pageAddress(std::string_view folder, std::string_view stem)
{
    std::string result;
    result.reserve(folder.size() + stem.size() + 5);
    if (!folder.empty()) {
        appendPath(result, folder, DotAtEnd::Encoded);
        result += '/';
    }
    appendPath(result, stem, DotAtEnd::Allowed);
    if (result.size() > s_longestPath)
        result = notTooLong(std::move(result), (folder.empty() ? "" : std::string(folder) + '/') + std::string(stem));
    return result + ".htm";
}

std::string_view withoutPageSuffix(std::string_view name)
{
    name.remove_suffix(name.ends_with(".htm") ? 4 : 0);
    return name;
}

std::string numberedAddress(std::string_view address, std::size_t number)
{
    return std::string(withoutPageSuffix(address)) + '-' + std::to_string(number) + ".htm";
}

std::string lowerCase(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), lowered);
    return result;
}

bool isSitePage(std::string_view address)
{
    static constexpr std::array pages = {"contents.htm"sv, "names.htm"sv, "search.htm"sv};
    static constexpr std::string_view part = "names-"; // INITIAL.htm or INITIAL-NUMBER.htm
    if (std::ranges::find(pages, address) != pages.end())
        return true;
    if (!address.starts_with(part))
        return false;
    address.remove_prefix(part.size());
    address.remove_suffix(address.ends_with(".htm") ? 4 : 0);
    const std::string_view initial = address.substr(0, address.find('-'));
    const std::string_view number = address.substr(std::min(initial.size() + 1, address.size()));
    const bool isInitial = initial == "other" || (initial.size() == 1 && isLetterOrDigit(initial.front()));
    return isInitial && std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace tavidoc
