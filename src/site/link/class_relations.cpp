#include "site/link/class_relations.h"

#include "site/link/addresses.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

namespace tavidoc {

namespace {

constexpr std::size_t s_mostClasses = 16; // of one name; more are taken for ambiguous

/// Whether a declaration of \a kind can be a base, as a class or as another name of one.
bool canBeBase(std::string_view kind)
{
    static constexpr std::array<std::string_view, 7> others = {"",     "function",  "variable", "macro",
                                                               "enum", "namespace", "concept"};
    return std::ranges::find(others, kind) == others.end();
}

} // namespace

ClassRelations::ClassRelations(const PageSet &pages, const NameIndex &names) : m_pages(pages)
{
    for (PageId page = 0; page < pages.count(); ++page) {
        if (pages.isWritten(page))
            addBases(page, names);
    }
    m_byBase = m_relations;
    const auto order = [this](const Relation &relation) {
        return std::make_tuple(relation.page, std::string_view(m_pages.page(relation.derived).qualifiedName),
                               relation.derived);
    };
    std::ranges::sort(m_byBase, {}, order);
    const auto isSame = [](const Relation &left, const Relation &right) {
        return left.page == right.page && left.derived == right.derived;
    };
    m_byBase.erase(std::unique(m_byBase.begin(), m_byBase.end(), isSame), m_byBase.end());
}

void ClassRelations::addBases(PageId derived, const NameIndex &names)
{
    const std::vector<RecordBase> &bases = m_pages.page(derived).bases;
    for (std::uint32_t base = 0; base < bases.size(); ++base) {
        const PageId page = pageOf(bases[base].name, derived, names);
        if (page != s_noPage && page != derived) // another specialisation of the class is on the same page
            m_relations.push_back({derived, base, page});
    }
}

/// The page of the class that \a base means in the scope of the class of \a derived; s_noPage when there is none.
PageId ClassRelations::pageOf(std::string_view base, PageId derived, const NameIndex &names) const
{
    const std::uint32_t record = m_pages.recordOf(derived);
    const NameSeeker seeker = {record, m_pages.folder(record)};
    const bool isGlobal = base.starts_with("::");
    base.remove_prefix(isGlobal ? 2 : 0);
    std::string scope = isGlobal ? std::string("::") : m_pages.page(derived).qualifiedName;
    while (!scope.empty() && !base.empty()) {
        const std::size_t separator = scope.rfind("::");
        scope.resize(separator == std::string::npos ? 0 : separator);
        std::string name = scope.empty() ? std::string() : scope + "::";
        const std::span<const NamedPage> found = names.find(NameKind::Qualified, name.append(base), seeker);
        if (!found.empty())
            return onlyClass(found);
    }
    return s_noPage;
}

/// The only one of \a pages that documents a class, or another name of one; s_noPage when it is not the only one.
PageId ClassRelations::onlyClass(std::span<const NamedPage> pages) const
{
    PageId only = s_noPage;
    for (const NamedPage &page : pages.first(std::min(pages.size(), s_mostClasses))) {
        if (!canBeBase(m_pages.page(page.page).declaration))
            continue;
        if (only != s_noPage)
            return s_noPage;
        only = page.page;
    }
    return pages.size() > s_mostClasses ? s_noPage : only;
}

void ClassRelations::fill(PageLinks &links, PageId page) const
{
    const std::string &address = m_pages.address(page);
    auto relation = std::ranges::lower_bound(m_relations, page, {}, &Relation::derived);
    for (; relation != m_relations.end() && relation->derived == page; ++relation)
        links.bases.push_back({relation->base, relativeAddress(address, m_pages.address(relation->page))});
    relation = std::ranges::lower_bound(m_byBase, page, {}, &Relation::page);
    for (; relation != m_byBase.end() && relation->page == page; ++relation)
        links.derived.push_back({m_pages.page(relation->derived).qualifiedName, m_pages.address(relation->derived)});
}

} // namespace tavidoc
