#include "site/link/link.h"

#include "site/link/class_relations.h"
#include "site/link/contents_tree.h"
#include "site/link/copied_files.h"
#include "site/link/link_resolver.h"
#include "site/link/name_links.h"
#include "site/link/navigation.h"
#include "site/link/shared_links.h"

#include <QFileInfo>
#include <QString>

#include <utility>

namespace tavidoc {

namespace {

class Linker
{
public:
    Linker(const std::vector<Record> &records, const SiteSettings &settings, const FileProbe &isReadable,
           const ForeignNames &foreign)
        : m_settings(settings), m_findings(records), m_pages(records, m_findings), m_names(m_pages),
          m_finder(m_pages, m_names, m_findings), m_tree(m_pages, m_finder, m_findings), m_navigation(m_pages, m_tree),
          m_files(m_pages, settings, isReadable, m_findings),
          m_resolver(m_pages, settings, m_finder, m_files, m_findings, foreign), m_classes(m_pages, m_names),
          m_nameLinks(m_pages, m_names)
    {
        m_findings.addThoseOfRecords();
    }

    void linkRecords(const LinkSink &sink)
    {
        for (std::uint32_t record = 0; record < m_pages.records().size(); ++record)
            sink(record, linksOf(record));
    }

    [[nodiscard]] LinkSummary finish()
    {
        LinkSummary summary;
        summary.shared = sharedLinks(m_pages, m_tree, m_navigation, m_settings, m_findings);
        reportUnusedPages();
        m_files.reportUnusedAssets();
        summary.findings = m_findings.takeSorted();
        return summary;
    }

private:
    [[nodiscard]] RecordLinks linksOf(std::uint32_t record)
    {
        RecordLinks links;
        links.input = m_pages.records()[record].input;
        links.folder = m_pages.records()[record].folder;
        const PageId first = m_pages.firstPage(record);
        for (PageId page = first; page < m_pages.firstPage(record + 1); ++page) {
            if (!m_pages.isWritten(page))
                continue;
            PageLinks &pageLinks = links.pages.emplace_back();
            pageLinks.page = page - first;
            pageLinks.address = m_pages.address(page);
            pageLinks.title = m_pages.title(page);
            m_navigation.fill(pageLinks, page);
            pageLinks.links = m_resolver.resolvedLinks(page);
            if (m_settings.autolink)
                pageLinks.names = m_nameLinks.resolvedNames(page);
            pageLinks.images = m_files.resolvedImages(page, links.images);
            m_classes.fill(pageLinks, page);
        }
        return links;
    }

    void reportUnusedPages()
    {
        for (PageId page = 0; page < m_pages.count(); ++page) {
            if (!m_pages.isWritten(page) || m_tree.hasEntry(page) || m_resolver.isLinked(page))
                continue;
            m_findings.add("unused-page", m_pages.recordOf(page), m_pages.page(page).place,
                           "no contents entry and no link leads to page " + inQuotes(m_pages.page(page).stem));
        }
    }

    const SiteSettings &m_settings;
    FindingList m_findings;
    PageSet m_pages;
    NameIndex m_names;
    PageFinder m_finder;
    ContentsTree m_tree;
    Navigation m_navigation;
    CopiedFiles m_files;
    LinkResolver m_resolver;
    ClassRelations m_classes;
    NameLinks m_nameLinks;
};

} // namespace

bool isReadableFile(const std::string &file)
{
    const QFileInfo info(QString::fromStdString(file));
    return info.isFile() && info.isReadable();
}

LinkSummary link(const std::vector<Record> &records, const SiteSettings &settings, const LinkSink &sink,
                 const FileProbe &isReadable, const ForeignNames &foreign)
{
    Linker linker(records, settings, isReadable, foreign);
    linker.linkRecords(sink);
    return linker.finish();
}

LinkResult link(const std::vector<Record> &records, const SiteSettings &settings, const FileProbe &isReadable,
                const ForeignNames &foreign)
{
    LinkResult result;
    result.records.reserve(records.size());
    const auto keep = [&result](std::size_t, RecordLinks links) { result.records.push_back(std::move(links)); };
    static_cast<LinkSummary &>(result) = link(records, settings, keep, isReadable, foreign);
    return result;
}

} // namespace tavidoc
