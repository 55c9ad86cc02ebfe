#pragma once

#include "site/link/copied_files.h"
#include "site/link/foreign_names.h"
#include "site/link/page_finder.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Resolves the links of all pages.
class LinkResolver
{
public:
    /// Refers to all arguments for its whole life. Reports `dead-link` and `dead-anchor`.
    LinkResolver(const PageSet &pages, const SiteSettings &settings, PageFinder &finder, CopiedFiles &files,
                 FindingList &findings, const ForeignNames &foreign);

    /// The links of \a page that do not stay as they are in its body.
    [[nodiscard]] std::vector<ResolvedLink> resolvedLinks(PageId page);

    /// Whether a link of another page leads to \a page, as far as links were resolved.
    [[nodiscard]] bool isLinked(PageId page) const { return m_isLinked[page]; }

private:
    /// The resolution of a link; nothing when it stays as it is.
    using Resolution = std::optional<ResolvedLink>;

    [[nodiscard]] Resolution resolved(PageId from, const RecordLink &link);
    [[nodiscard]] Resolution resolvedInDocument(PageId from, const RecordLink &link);
    [[nodiscard]] Resolution resolvedRaw(PageId from, const RecordLink &link);
    [[nodiscard]] Resolution resolvedInSet(PageId from, const RecordLink &link, std::string_view target);
    [[nodiscard]] Resolution resolvedOverload(PageId from, const RecordLink &link, std::string_view target);
    [[nodiscard]] Resolution resolvedAnchor(PageId from, PageId to, std::string_view anchor, const RecordLink &link);
    [[nodiscard]] const RecordHeading *headingOf(PageId page, std::string_view id);
    [[nodiscard]] bool isWrittenAnchor(PageId page, std::string_view id) const;
    [[nodiscard]] bool isKnownFile(const std::string &path);

    [[nodiscard]] std::string assetAddress(PageId from, std::string_view target);
    [[nodiscard]] std::string addressOf(PageId from, PageId to);
    [[nodiscard]] std::string memberAddress(PageId from, const FoundPage &found);
    [[nodiscard]] std::string captionOf(const FoundPage &found, std::string_view target) const;
    [[nodiscard]] NameUse useOf(PageId from, const RecordLink &link) const;
    void reportNoOverload(PageId from, const RecordLink &link, std::string_view target, PageId to, bool isAmbiguous);
    void checkRawAnchor(PageId from, PageId to, std::string_view href, const RecordLink &link);
    void reportNoAnchor(PageId from, PageId to, std::string_view anchor, const RecordLink &link);
    void reportDead(PageId from, const RecordLink &link, std::string_view target);

    const PageSet &m_pages;
    const SiteSettings &m_settings;
    PageFinder &m_finder;
    CopiedFiles &m_files;
    FindingList &m_findings;
    const ForeignNames &m_foreign;
    std::vector<bool> m_isLinked;
    std::unordered_map<PageId, StringIds> m_headingIds; // of pages that a link with an anchor leads to
};

} // namespace tavidoc
