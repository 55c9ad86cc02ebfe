#include "site/render/open_elements.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace tavidoc {

namespace {

/// Elements without an end, and those whose end may be left out: the end of what encloses them is theirs too.
constexpr std::string_view s_uncounted[] = {
    "area", "base",   "body",  "br",    "caption", "col",  "colgroup", "dd",       "dt",     "embed", "head",
    "hr",   "html",   "img",   "input", "li",      "link", "meta",     "optgroup", "option", "p",     "rp",
    "rt",   "source", "tbody", "td",    "tfoot",   "th",   "thead",    "tr",       "track",  "wbr",
};

bool isCounted(std::string_view name)
{
    return std::ranges::find(s_uncounted, name) == std::end(s_uncounted);
}

} // namespace

void OpenElements::open(std::string_view name, bool closesItself)
{
    if (!isCounted(name))
        return;
    const auto svg = m_open.find(std::string_view("svg"));
    if (closesItself && svg != m_open.end() && !svg->second.empty())
        return;
    auto element = m_open.find(name);
    if (element == m_open.end())
        element = m_open.emplace(name, std::vector<std::size_t>()).first;
    element->second.push_back(m_count++);
}

bool OpenElements::close(std::string_view name)
{
    if (!isCounted(name))
        return true;
    const auto element = m_open.find(name);
    if (element == m_open.end() || element->second.empty())
        return false;
    element->second.pop_back();
    return true;
}

std::string OpenElements::closingTags() const
{
    std::vector<std::pair<std::size_t, std::string_view>> open;
    for (const auto &[name, numbers] : m_open) {
        for (const std::size_t number : numbers)
            open.emplace_back(number, name);
    }
    std::ranges::sort(open, std::greater<>());
    std::string tags;
    for (const auto &[number, name] : open)
        tags.append("</").append(name).append(">");
    return tags;
}

} // namespace tavidoc
