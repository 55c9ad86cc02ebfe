#include "site/command/site_path.h"

#include <algorithm>

namespace tavidoc {

bool isInside(std::string_view path)
{
    constexpr std::string_view forbidden("\0\\:*?\"<>|\n\r\t", 12);
    if (path.find_first_of(forbidden) != std::string_view::npos)
        return false;
    for (;;) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view name = path.substr(0, end);
        if (name.empty() || name == "." || name == "..")
            return false;
        if (end == path.size())
            return true;
        path.remove_prefix(end + 1);
    }
}

std::string_view directoryWithSlash(std::string_view path)
{
    return path.substr(0, path.rfind('/') + 1);
}

std::string_view fileNameOf(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

} // namespace tavidoc
