#include "site/link/page_finder.h"

#include "site/link/addresses.h"
#include "site/link/page_names.h"

#include <algorithm>

namespace tavidoc {

namespace {

constexpr std::size_t s_mostCandidates = 5; // that a finding lists
constexpr int s_mostSearches = 500;

std::string_view withoutArguments(std::string_view target)
{
    target.remove_suffix(target.size() > 2 && target.ends_with("()") && !target.ends_with("operator()") ? 2 : 0);
    return target;
}

/// \a target with dots as a qualified name: "Buffer.push" is "Buffer::push".
std::string withColons(std::string_view target)
{
    std::string name;
    name.reserve(target.size() + 4);
    for (std::size_t i = 0; i < target.size(); ++i) {
        const bool separates = target[i] == '.' && i > 0 && i + 1 < target.size();
        name += separates ? std::string_view("::") : target.substr(i, 1);
    }
    return name;
}

} // namespace

PageFinder::PageFinder(const PageSet &pages, const NameIndex &names, FindingList &findings)
    : m_pages(pages), m_names(names), m_findings(findings)
{
}

NameSeeker PageFinder::seekerOf(const NameUse &use) const
{
    return {use.record, m_pages.folder(use.record)};
}

FoundPage PageFinder::find(std::string_view target, const NameUse &use)
{
    std::string_view name = withoutArguments(target);
    const std::string changed = name.find('.') == std::string_view::npos ? std::string() : withColons(name);
    name = changed.empty() ? name : changed;
    FoundPage found = findInScopes(name, target, use);
    if (found.page == s_noPage && !found.isAmbiguous)
        found = findNamed(target, use);
    if (found.page != s_noPage || found.isAmbiguous)
        return found;
    const NameSeeker seeker = seekerOf(use);
    if (const auto candidates = m_names.find(NameKind::Title, target, seeker); !candidates.empty())
        return chosen(candidates, target, use);
    for (const NameKind kind : {NameKind::Qualified, NameKind::Bare, NameKind::Member}) {
        if (const auto candidates = m_names.find(kind, name, seeker); !candidates.empty())
            return chosen(candidates, target, use);
    }
    return {};
}

FoundPage PageFinder::findInScopes(std::string_view name, std::string_view target, const NameUse &use)
{
    FoundPage found;
    if (use.scope.empty() || !m_names.knows(name)) // the end of a qualified name is a name, too
        return found;
    m_names.findInScopes(use.scope, name, seekerOf(use), [&](std::span<const NamedPage> candidates) {
        found = chosen(candidates, target, use);
        return true;
    });
    return found;
}

FoundPage PageFinder::findNamed(std::string_view name, const NameUse &use)
{
    name = withoutPageSuffix(name);
    if (name.empty())
        return {};
    const NameSeeker seeker = seekerOf(use);
    const auto candidates = m_names.find(NameKind::Stem, name, seeker);
    if (!candidates.empty() && candidates.front().folder == seeker.folder)
        return chosen(candidates, name, use);
    if (name.find('/') != std::string_view::npos) {
        if (const PageId page = atPath(name, use); page != s_noPage)
            return {page, NameKind::Stem};
    }
    return candidates.empty() ? FoundPage() : chosen(candidates, name, use);
}

/// A name with directories is looked for in the folder of the record, in the directory of the page, and at the top.
PageId PageFinder::atPath(std::string_view name, const NameUse &use) const
{
    const std::string &folder = m_pages.records()[use.record].folder;
    const std::string directory = folder + '/' + std::string(use.directory);
    for (const std::string_view from : {std::string_view(folder), std::string_view(directory), std::string_view()}) {
        const auto path = joinedPath(from, name);
        const PageId page = path ? m_pages.named({}, *path) : s_noPage;
        if (page != s_noPage)
            return page;
    }
    return s_noPage;
}

FoundPage PageFinder::chosen(std::span<const NamedPage> candidates, std::string_view name, const NameUse &use)
{
    if (candidates.size() == 1)
        return {candidates.front().page, candidates.front().kind, false, candidates.front().member};
    // The name of a class is also that of its constructors, which are not meant.
    const auto isMeant = [this](const NamedPage &candidate) {
        return candidate.member != s_noMember || !isConstructor(candidate.page);
    };
    if (std::ranges::count_if(candidates, isMeant) == 1) {
        const NamedPage &meant = *std::ranges::find_if(candidates, isMeant);
        return {meant.page, meant.kind, false, meant.member};
    }
    std::string text = inQuotes(name) + " is a name of several pages: ";
    for (std::size_t i = 0; i < std::min(candidates.size(), s_mostCandidates); ++i)
        text.append(i == 0 ? "" : ", ").append(inQuotes(shownPath(candidates[i])));
    if (candidates.size() > s_mostCandidates)
        text += " and " + std::to_string(candidates.size() - s_mostCandidates) + " more";
    m_findings.add("ambiguous-link", use.record, use.place, std::move(text));
    return {s_noPage, candidates.front().kind, true};
}

/// \a candidate as a finding names it: its page with the folder, and the anchor of its row.
std::string PageFinder::shownPath(const NamedPage &candidate) const
{
    const RecordPage &page = m_pages.page(candidate.page);
    std::string path = m_pages.records()[candidate.record].folder;
    path.append(path.empty() ? "" : "/").append(page.stem);
    return candidate.member == s_noMember ? path : path + '#' + page.members[candidate.member].anchor;
}

/// Whether \a page is that of the constructors of a class: "Buffer::Buffer".
bool PageFinder::isConstructor(PageId page) const
{
    const std::string_view name = m_pages.page(page).qualifiedName;
    const std::size_t separator = name.rfind("::");
    if (separator == std::string_view::npos)
        return false;
    const std::string_view scope = name.substr(0, separator);
    const std::string_view last = name.substr(separator + 2);
    return scope == last || (scope.ends_with(last) && scope.substr(0, scope.size() - last.size()).ends_with("::"));
}

std::string PageFinder::knownNameNear(std::string_view target)
{
    return m_searchCount++ < s_mostSearches ? m_names.neighbourOf(target) : std::string();
}

} // namespace tavidoc
