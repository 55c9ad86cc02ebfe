#pragma once

#include "site/link/name_index.h"
#include "site/link/page_set.h"

#include "site/link/link_data.h"

#include <string_view>
#include <vector>

namespace tavidoc {

/// Finds the declarations that the names in the code of pages mean. A name that is ambiguous means none.
class NameLinks
{
public:
    /// Refers to both for its whole life.
    NameLinks(const PageSet &pages, const NameIndex &names) : m_pages(pages), m_names(names) {}

    /// The names of \a page that lead to another page. A name is looked for in the scopes of the page's declaration
    /// from the inside out, then as a qualified name and as the end of one. In a listing a member of a class is meant
    /// only in such a scope, after "." or "->", and with the name of its class; in a synopsis only what is no function
    /// and no variable. What has no page of its own, like an enumerator, needs a qualified name.
    [[nodiscard]] std::vector<ResolvedName> resolvedNames(PageId page) const;

private:
    [[nodiscard]] NamedPage target(const RecordName &name, PageId from) const;
    [[nodiscard]] NamedPage onlyOne(std::span<const NamedPage> candidates, const RecordName &name,
                                    bool isInScope) const;
    [[nodiscard]] bool fits(const NamedPage &candidate, const RecordName &name, bool isInScope) const;

    const PageSet &m_pages;
    const NameIndex &m_names;
};

} // namespace tavidoc
