#include "markup/member_groups.h"

#include "base/nearest_name.h"
#include "base/white_space.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tavidoc::MemberGroups {

namespace {

constexpr std::size_t s_mostComparisons = 10'000; // of unknown names with known ones

/// The group of \a page; the unassigned one when it has none.
std::string_view groupOf(std::string_view page)
{
    const auto object = SharedTables::docObjects.find(page);
    return object == SharedTables::docObjects.end() ? s_unassigned : std::string_view(object->second.group);
}

/// Calls \a take with each name of a comma-separated list.
template <typename Take> void forEachName(std::string_view names, Take take)
{
    for (std::size_t begin = 0; begin <= names.size();) {
        const std::size_t end = std::min(names.find(',', begin), names.size());
        const std::string_view name = trimmed(names.substr(begin, end - begin));
        if (!name.empty())
            take(name);
        begin = end + 1;
    }
}

} // namespace

void file(std::string_view page, std::string_view group)
{
    // A name that comes again later is harmless: its pages are taken the first time.
    if (SharedTables::docGroups.empty() || SharedTables::docGroups.back() != group)
        SharedTables::docGroups.emplace_back(group);
    SharedTables::docObjects.insert_or_assign(std::string(page),
                                              DocumentedObject{std::string(page), std::string(group)});
}

void setOrder(std::string_view names)
{
    SharedTables::requiredOrder.clear();
    forEachName(names, [](std::string_view name) { SharedTables::requiredOrder.emplace_back(name); });
}

void tellUnknown(DocumentFacts &facts)
{
    const GroupOrder &order = facts.groupOrder();
    const std::vector<std::string_view> groups(SharedTables::docGroups.begin(), SharedTables::docGroups.end());
    const std::set<std::string_view> known(groups.begin(), groups.end());
    std::size_t suggestions = s_mostComparisons / (groups.size() + 1); // each one takes time
    forEachName(order.names, [&](std::string_view name) {
        if (known.contains(name))
            return;
        const std::string end = suggestions > 0 ? suggestion(name, groups) : std::string();
        suggestions -= suggestions > 0 ? 1 : 0;
        facts.listener().finding(
            {"unknown-name", order.place, "\\grouporder: nothing is in the group \"" + std::string(name) + "\"" + end});
    });
}

void orderByUse(const std::vector<std::string> &pages)
{
    std::vector<std::string> groups;
    for (const std::string &page : pages) {
        const std::string_view group = groupOf(page);
        if (group != s_unassigned && (groups.empty() || groups.back() != group))
            groups.emplace_back(group);
    }
    SharedTables::docGroups = std::move(groups);
}

std::vector<Group> arrange(const std::vector<std::string> &pages)
{
    std::map<std::string_view, std::vector<std::string>> members;
    for (const std::string &page : pages)
        members[groupOf(page)].push_back(page);
    std::vector<Group> groups;
    const auto take = [&](std::string_view name) {
        const auto found = members.find(name);
        if (found == members.end())
            return;
        groups.push_back({std::string(name), std::move(found->second)});
        members.erase(found);
    };
    std::ranges::for_each(SharedTables::requiredOrder, take);
    std::ranges::for_each(SharedTables::docGroups, take);
    take(s_unassigned);
    return groups;
}

} // namespace tavidoc::MemberGroups
