#pragma once

#include "site/link/finding_list.h"
#include "site/link/name_index.h"
#include "site/link/page_set.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a name leads to.
struct FoundPage
{
    PageId page = s_noPage;
    NameKind kind = NameKind::Stem;    ///< how it was found
    bool isAmbiguous = false;          ///< several pages have the name, which was reported; the page is not set
    std::uint32_t member = s_noMember; ///< index in RecordPage::members, if it has a row on the page
};

/// A place in the markup from where a page is looked for.
struct NameUse
{
    std::uint32_t record = 0;
    std::string_view directory; ///< of the page with the link, within the folder of its record
    RecordPlace place;
    std::string_view scope = {}; ///< the qualified name of the declaration that the page documents
};

/// Finds pages by what writers call them.
class PageFinder
{
public:
    /// Refers to all arguments for its whole life. Reports `ambiguous-link`.
    PageFinder(const PageSet &pages, const NameIndex &names, FindingList &findings);

    /// The page that \a target means: on the page of a declaration a name in its scope or those around it; a page by
    /// name, else by title, by qualified name or by bare name, else one with a row for a declaration of this name. What is nearest to the link comes first; several that are
    /// equally near are reported.
    [[nodiscard]] FoundPage find(std::string_view target, const NameUse &use);
    /// The page that is named \a name: "stem", "stem.htm", or with directories.
    [[nodiscard]] FoundPage findNamed(std::string_view name, const NameUse &use);

    /// A known name that is one edit away from \a target; empty when there is none. Empty, too, after a few hundred
    /// searches: they take some time.
    [[nodiscard]] std::string knownNameNear(std::string_view target);

private:
    [[nodiscard]] FoundPage chosen(std::span<const NamedPage> candidates, std::string_view name, const NameUse &use);
    [[nodiscard]] FoundPage findInScopes(std::string_view name, std::string_view target, const NameUse &use);
    [[nodiscard]] std::string shownPath(const NamedPage &candidate) const;
    [[nodiscard]] bool isConstructor(PageId page) const;
    [[nodiscard]] PageId atPath(std::string_view name, const NameUse &use) const;
    [[nodiscard]] NameSeeker seekerOf(const NameUse &use) const;

    const PageSet &m_pages;
    const NameIndex &m_names;
    FindingList &m_findings;
    int m_searchCount = 0; // for known names
};

} // namespace tavidoc
