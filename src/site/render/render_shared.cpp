#include "site/render/render.h"

#include "base/text_escape.h"
#include "site/link/addresses.h"
#include "site/render/page_frame.h"
#include "site/render/page_text.h"
#include "site/render/shared_pages.h"
#include "site/render/site_files.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t s_topEntries = 30; // in the navigation of the site's own pages

/// The style sheet and the scripts.
void renderFiles(const SiteSettings &settings, const FileSink &sink)
{
    for (const QString &name : siteFileNames()) {
        const bool isLeftOut = (name == "watch.js"_L1 && !settings.isWatched) ||
                               (name == "version_menu.js"_L1 && settings.versionList.empty());
        if (!isLeftOut)
            sink(name.toStdString(), QByteArray::fromStdString(siteFile(name.toStdString())));
    }
}

/// A page that leads to \a target. Both are addresses relative to the top of the site.
QByteArray redirectPage(std::string_view address, std::string_view target, const SiteSettings &settings)
{
    const std::string link = escapedText(relativeAddress(address, target));
    std::string html;
    appendHtml(html, {"<!DOCTYPE html>\n<html lang=\"", escapedText(settings.language),
                      "\">\n<head>\n<meta charset=\"utf-8\">\n<title>", escapedText(settings.title),
                      "</title>\n<meta http-equiv=\"refresh\" content=\"0; url=", link, "\">\n"});
    if (!settings.url.empty())
        appendHtml(html, {"<link rel=\"canonical\" href=\"", escapedText(settings.url), escapedText(target), "\">\n"});
    appendHtml(html, {"</head>\n<body>\n<p><a href=\"", link, "\">This page has moved.</a></p>\n</body>\n</html>\n"});
    return asciiFile(html);
}

bool isPage(const SharedLinks &shared, std::string_view address)
{
    return std::ranges::binary_search(shared.addresses, address);
}

bool isAsset(const SharedLinks &shared, std::string_view address)
{
    return std::ranges::find(shared.settings.assets, address, &CopiedFile::address) != shared.settings.assets.end();
}

} // namespace

void renderOwnPage(const SharedLinks &shared, const LinkTarget &page, std::string_view body, const FileSink &sink)
{
    std::vector<NavigationEntry> navigation;
    for (const ContentsEntry &entry : shared.contents) {
        if (entry.depth == 0 && navigation.size() < s_topEntries)
            navigation.push_back({.target = entry.target});
    }
    PageFrame frame;
    frame.address = page.address;
    frame.title = page.title;
    frame.navigation = &navigation;
    sink(page.address, framedSitePage(frame, body, shared.settings));
}

void renderSearchPage(const SharedLinks &shared, const FileSink &sink)
{
    renderOwnPage(shared, {"Search", "search.htm"},
                  "<h1>Search</h1>\n<noscript><p>Search needs scripts. Without them, use <a href=\"contents.htm\">All "
                  "pages</a> or the <a href=\"names.htm\">Index</a>.</p></noscript>\n"
                  "<p id=\"site-search-status\" role=\"status\"></p>\n<ol id=\"site-search-page\"></ol>",
                  sink);
}

void renderRedirects(const SharedLinks &shared, const FileSink &sink)
{
    for (const auto &[from, to] : shared.settings.redirects) {
        const std::string address = from + ".htm";
        if (!isPage(shared, address))
            sink(address, redirectPage(address, to + ".htm", shared.settings));
    }
    const bool hasStartPage = isPage(shared, "index.htm");
    if (!hasStartPage && shared.firstPage.empty())
        return;
    const std::string_view start = hasStartPage ? std::string_view("index.htm") : shared.firstPage;
    // Web servers look for index.html.
    for (const std::string address : {"index.htm", "index.html"}) {
        if (!isPage(shared, address) && !isAsset(shared, address))
            sink(address, redirectPage(address, start, shared.settings));
    }
}

void renderSiteMap(const SharedLinks &shared, const FileSink &sink)
{
    if (shared.settings.url.empty())
        return;
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<urlset xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">\n";
    for (const std::string &address : shared.addresses)
        appendHtml(xml, {"<url><loc>", escapedText(shared.settings.url), escapedText(address), "</loc></url>\n"});
    xml += "</urlset>\n";
    sink("sitemap.xml", asciiFile(xml));
}

void renderShared(const SharedLinks &shared, const FileSink &sink)
{
    renderContentsPage(shared, sink);
    renderNamesPages(shared, sink);
    renderSearchPage(shared, sink);
    renderRedirects(shared, sink);
    renderSiteMap(shared, sink);
    renderFiles(shared.settings, sink);
}

QByteArray removedPage(std::string_view address, const SiteSettings &settings)
{
    PageFrame frame;
    frame.address = address;
    frame.title = "Page removed";
    // watch.js knows such a page by its id.
    return framedSitePage(
        frame,
        "<h1 id=\"site-removed\">Page removed</h1>\n<p>This page is not part of the site any more. If "
        "it is added again, it is shown here.</p>",
        settings);
}

} // namespace tavidoc
