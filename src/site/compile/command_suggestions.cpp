#include "site/compile/command_suggestions.h"

#include "base/nearest_name.h"
#include "markup/command_table.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_mostNames = 500;
constexpr std::size_t s_shortest = 3; // characters of a name: shorter ones are near to too many

/// What a command is called in other markup languages.
struct OtherName
{
    std::string_view name;
    std::string_view command;
};

/// By name.
constexpr OtherName s_otherNames[] = {
    {"bold", "b"},
    {"c", "tt"},
    {"chapter", "h1"},
    {"emph", "em"},
    {"figure", "img"},
    {"h4", "h3"},
    {"href", "xref"},
    {"image", "img"},
    {"italic", "i"},
    {"li", "item"},
    {"link", "xref"},
    {"list", "item"},
    {"p", "tt"},
    {"page", "split"},
    {"quote", "q"},
    {"see", "sa"},
    {"snippet", "present"},
    {"textbf", "b"},
    {"textit", "i"},
    {"texttt", "tt"},
    {"tparam", "param"},
    {"underline", "u"},
    {"url", "xref"},
    {"verbatim", "pre"},
    {"warning", "note"},
};
static_assert(std::ranges::is_sorted(s_otherNames, {}, &OtherName::name));

std::string_view commandNear(std::string_view name)
{
    const auto *const other = std::ranges::lower_bound(s_otherNames, name, {}, &OtherName::name);
    if (other != std::end(s_otherNames) && other->name == name)
        return other->command;
    if (name.size() < s_shortest)
        return {};
    std::vector<std::string_view> names;
    for (const Command &command : CommandTable::rows())
        names.push_back(command.name);
    return nearestName(name, names);
}

} // namespace

const std::string &CommandSuggestions::about(std::string_view name)
{
    static const std::string nothing;
    if (const auto known = m_suggestions.find(std::string(name)); known != m_suggestions.end())
        return known->second;
    if (m_suggestions.size() >= s_mostNames)
        return nothing;
    const std::string_view near = commandNear(name);
    std::string text = near.empty() ? std::string() : "; did you mean \"\\" + std::string(near) + "\"?";
    return m_suggestions.emplace(name, std::move(text)).first->second;
}

} // namespace tavidoc
