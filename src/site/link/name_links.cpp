#include "site/link/name_links.h"

#include "site/link/addresses.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

constexpr std::string_view s_notInSynopses[] = {"function", "variable", "deduction guide"};

} // namespace

std::vector<ResolvedName> NameLinks::resolvedNames(PageId page) const
{
    std::vector<ResolvedName> resolved;
    const std::vector<RecordName> &names = m_pages.page(page).names;
    for (std::uint32_t i = 0; i < names.size(); ++i) {
        const NamedPage to = target(names[i], page);
        if (to.page == s_noPage || to.page == page)
            continue;
        std::string address = relativeAddress(m_pages.address(page), m_pages.address(to.page));
        if (to.member != s_noMember)
            address.append("#").append(m_pages.page(to.page).members[to.member].anchor);
        resolved.push_back({i, std::move(address)});
    }
    return resolved;
}

NamedPage NameLinks::target(const RecordName &name, PageId from) const
{
    if (!m_names.knows(name.name)) // most names
        return {};
    const NameSeeker seeker = {m_pages.recordOf(from), m_pages.folder(m_pages.recordOf(from))};
    NamedPage found;
    if (name.use != RecordName::Use::Member) {
        m_names.findInScopes(m_pages.page(from).qualifiedName, name.name, seeker, [&](const auto &candidates) {
            found = onlyOne(candidates, name, true);
            return found.page != s_noPage;
        });
    }
    for (const NameKind kind : {NameKind::Qualified, NameKind::Bare, NameKind::Member}) {
        if (found.page == s_noPage)
            found = onlyOne(m_names.find(kind, name.name, seeker), name, false);
    }
    return found;
}

/// The only one of \a candidates that \a name can mean; no page when there is none or more than one.
NamedPage NameLinks::onlyOne(std::span<const NamedPage> candidates, const RecordName &name, bool isInScope) const
{
    NamedPage only;
    for (const NamedPage &candidate : candidates) {
        if (!fits(candidate, name, isInScope))
            continue;
        if (only.page != s_noPage)
            return {};
        only = candidate;
    }
    return only;
}

bool NameLinks::fits(const NamedPage &candidate, const RecordName &name, bool isInScope) const
{
    if (candidate.member != s_noMember)
        return name.name.find("::") != std::string::npos;
    const RecordPage &declared = m_pages.page(candidate.page);
    switch (name.use) {
    case RecordName::Use::Text:
        return true;
    case RecordName::Use::Code:
        return isInScope || !declared.isMember || name.name.find("::") != std::string::npos;
    case RecordName::Use::Member:
        return declared.isMember;
    case RecordName::Use::Type:
        return std::ranges::find(s_notInSynopses, declared.declaration) == std::end(s_notInSynopses);
    }
    return false;
}

} // namespace tavidoc
