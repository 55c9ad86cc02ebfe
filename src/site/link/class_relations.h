#pragma once

#include "site/link/link_data.h"
#include "site/link/name_index.h"
#include "site/link/page_set.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Which classes of the set derive from which. A base is looked for as C++ does: by its qualified name in the scope
/// around the class, then in the scopes around that. One that several pages could be leads nowhere.
class ClassRelations
{
public:
    /// Refers to \a pages for its whole life, and to \a names for the call.
    ClassRelations(const PageSet &pages, const NameIndex &names);

    /// Sets the bases and the derived classes of \a page, whose address \a links has.
    void fill(PageLinks &links, PageId page) const;

private:
    /// A base of a class, both of which the set documents.
    struct Relation
    {
        PageId derived = s_noPage;
        std::uint32_t base = 0; ///< index in RecordPage::bases
        PageId page = s_noPage; ///< of the base
    };

    void addBases(PageId derived, const NameIndex &names);
    [[nodiscard]] PageId pageOf(std::string_view base, PageId derived, const NameIndex &names) const;
    [[nodiscard]] PageId onlyClass(std::span<const NamedPage> pages) const;

    const PageSet &m_pages;
    std::vector<Relation> m_relations; ///< by derived class and base
    std::vector<Relation> m_byBase;    ///< by page of the base and name of the derived class, each pair once
};

} // namespace tavidoc
