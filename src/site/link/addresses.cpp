#include "site/link/addresses.h"

#include <algorithm>
#include <vector>

namespace tavidoc {

namespace {

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    const char small = static_cast<char>(c | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

using Components = std::vector<std::string_view>;

/// Adds the components of \a path to \a components. Leading ".." stay.
void addComponents(Components &components, std::string_view path)
{
    while (!path.empty()) {
        const std::size_t slash = std::min(path.find('/'), path.size());
        const std::string_view component = path.substr(0, slash);
        path.remove_prefix(std::min(slash + 1, path.size()));
        if (component.empty() || component == ".")
            continue;
        if (component == ".." && !components.empty() && components.back() != "..")
            components.pop_back();
        else
            components.push_back(component);
    }
}

std::string joined(const Components &components)
{
    std::string path;
    for (const std::string_view component : components) {
        if (!path.empty())
            path += '/';
        path += component;
    }
    return path;
}

} // namespace

std::string relativeAddress(std::string_view from, std::string_view to)
{
    const std::size_t shorter = std::min(from.size(), to.size());
    std::size_t common = 0; // the length of the directories that both have
    for (std::size_t i = 0; i < shorter && from[i] == to[i]; ++i) {
        if (from[i] == '/')
            common = i + 1;
    }
    const auto up = static_cast<std::size_t>(std::ranges::count(from.substr(common), '/'));
    std::string address;
    address.reserve(3 * up + to.size() - common);
    for (std::size_t i = 0; i < up; ++i)
        address += "../";
    address += to.substr(common);
    return address;
}

std::string_view directoryOf(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

std::optional<std::string> joinedPath(std::string_view directory, std::string_view relative)
{
    Components components;
    addComponents(components, directory);
    addComponents(components, relative);
    if (relative.starts_with('/') || (!components.empty() && components.front() == ".."))
        return {};
    return joined(components);
}

std::string cleanedPath(std::string_view directory, std::string_view relative)
{
    Components components;
    const bool isAbsolute = relative.starts_with('/') || directory.starts_with('/');
    if (!relative.starts_with('/'))
        addComponents(components, directory);
    addComponents(components, relative);
    if (isAbsolute)
        components.erase(components.begin(), std::ranges::find_if(components, [](auto c) { return c != ".."; }));
    return (isAbsolute ? "/" : "") + joined(components);
}

std::string schemeOf(std::string_view target)
{
    const std::size_t colon = target.find(':');
    if (colon == std::string_view::npos || colon < 2 || !isLetter(target[0]) ||
        target.substr(colon + 1).starts_with(':'))
        return {};
    std::string scheme(target.substr(0, colon));
    for (char &c : scheme) {
        if (!isLetter(c) && !isDigit(c) && c != '+' && c != '-' && c != '.')
            return {};
        if (isLetter(c))
            c = static_cast<char>(c | 0x20);
    }
    return scheme;
}

std::string percentDecoded(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape =
            text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0;
        result += isEscape ? static_cast<char>(16 * hexDigit(text[i + 1]) + hexDigit(text[i + 2])) : text[i];
        i += isEscape ? 2 : 0;
    }
    return result;
}

} // namespace tavidoc
