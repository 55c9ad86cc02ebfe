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
        const PageId to = target(names[i], page);
        if (to != s_noPage && to != page)
            resolved.push_back({i, relativeAddress(m_pages.address(page), m_pages.address(to))});
    }
    return resolved;
}

PageId NameLinks::target(const RecordName &name, PageId from) const
{
    if (!m_names.knows(name.name)) // most names
        return s_noPage;
    const NameSeeker seeker = {m_pages.recordOf(from), m_pages.folder(m_pages.recordOf(from))};
    PageId found = s_noPage;
    if (name.use != RecordName::Use::Member) {
        m_names.findInScopes(m_pages.page(from).qualifiedName, name.name, seeker, [&](const auto &candidates) {
            found = onlyOne(candidates, name, true);
            return found != s_noPage;
        });
    }
    for (const NameKind kind : {NameKind::Qualified, NameKind::Bare}) {
        if (found == s_noPage)
            found = onlyOne(m_names.find(kind, name.name, seeker), name, false);
    }
    return found;
}

/// The only page of \a candidates that \a name can mean; s_noPage when there is none or more than one.
PageId NameLinks::onlyOne(std::span<const NamedPage> candidates, const RecordName &name, bool isInScope) const
{
    PageId only = s_noPage;
    for (const NamedPage &candidate : candidates) {
        if (!fits(candidate.page, name, isInScope))
            continue;
        if (only != s_noPage)
            return s_noPage;
        only = candidate.page;
    }
    return only;
}

bool NameLinks::fits(PageId page, const RecordName &name, bool isInScope) const
{
    const RecordPage &declared = m_pages.page(page);
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
