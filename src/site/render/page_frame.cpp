#include "site/render/page_frame.h"

#include "base/text_escape.h"
#include "site/link/addresses.h"
#include "site/render/navigation.h"
#include "site/render/page_text.h"

namespace tavidoc {

namespace {

// The parts of a frame whose size depends on the set. Together with the rest, less than 2,000 bytes, they stay below
// the limit of a frame.
constexpr std::size_t s_navigationLimit = 3'600;
constexpr std::size_t s_pageContentsLimit = 2'000;
constexpr std::size_t s_ancestorsLimit = 5;

/// Writes the frame of one page.
class FrameWriter
{
public:
    FrameWriter(const PageFrame &frame, const SiteSettings &settings) : m_frame(frame), m_settings(settings) {}

    [[nodiscard]] std::string page(std::string_view body);

private:
    void head();
    void header();
    void breadcrumbs();
    void navigation();
    void sequence();
    void neighbour(std::string_view relation, std::string_view label, const LinkTarget *target);
    void footer();

    /// The address of a file at the top of the site, escaped.
    [[nodiscard]] std::string toTop(std::string_view file) const
    {
        return escapedText(relativeAddress(m_frame.address, file));
    }

    const PageFrame &m_frame;
    const SiteSettings &m_settings;
    std::string m_html;
};

std::string FrameWriter::page(std::string_view body)
{
    m_html.reserve(body.size() + 8'000);
    head();
    m_html += "<body>\n<a class=\"skip\" href=\"#main\">Skip to the text</a>\n";
    header();
    navigation();
    m_html += "<main id=\"main\">\n";
    if (body.find("<h1") == std::string_view::npos)
        appendHtml(m_html, {"<h1 class=\"title\">", breakable(m_frame.title), "</h1>\n"});
    appendHtml(m_html, {body, "\n</main>\n"});
    if (m_frame.headings != nullptr)
        appendPageContents(m_html, *m_frame.headings, s_pageContentsLimit);
    sequence();
    footer();
    m_html += "</body>\n</html>\n";
    return std::move(m_html);
}

void FrameWriter::head()
{
    appendHtml(m_html, {"<!DOCTYPE html>\n<html lang=\"", escapedText(m_settings.language),
                        "\">\n<head>\n<meta charset=\"utf-8\">\n"
                        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
                        escapedText(m_frame.title)});
    if (m_frame.title != m_settings.title)
        appendHtml(m_html, {" - ", escapedText(m_settings.title)});
    m_html += "</title>\n";
    if (!m_settings.url.empty()) {
        appendHtml(m_html, {"<link rel=\"canonical\" href=\"", escapedText(m_settings.url),
                            escapedText(m_frame.address), "\">\n"});
    }
    if (!m_settings.favicon.address.empty())
        appendHtml(m_html, {"<link rel=\"icon\" href=\"", toTop(m_settings.favicon.address), "\">\n"});
    appendHtml(m_html, {"<link rel=\"stylesheet\" href=\"", toTop("site.css"), "\">\n"});
    if (!m_settings.style.address.empty())
        appendHtml(m_html, {"<link rel=\"stylesheet\" href=\"", toTop(m_settings.style.address), "\">\n"});
    // The first script sets the theme before anything is shown, so it is not deferred.
    appendHtml(m_html, {"<script src=\"", toTop("site.js"), "\"></script>\n"});
    for (const std::string_view file : {"search.js", "search_box.js"})
        appendHtml(m_html, {"<script src=\"", toTop(file), "\" defer></script>\n"});
    if (!m_settings.versionList.empty()) {
        appendHtml(m_html, {"<script src=\"", toTop("version_menu.js"), "\" data-list=\"",
                            escapedText(m_settings.versionList), "\" defer></script>\n"});
    }
    if (m_settings.isWatched)
        appendHtml(m_html, {"<script src=\"", toTop("watch.js"), "\" defer></script>\n"});
    m_html += "</head>\n";
}

void FrameWriter::header()
{
    m_html += "<header>\n";
    breadcrumbs();
    appendHtml(m_html,
               {"<form id=\"site-search-form\" role=\"search\" action=\"", toTop("search.htm"),
                "\"><input id=\"site-search\" name=\"q\" type=\"search\" aria-label=\"Search\" "
                "placeholder=\"Search\" autocomplete=\"off\"><ul id=\"site-search-results\" hidden></ul></form>\n"
                "<button id=\"site-theme\" type=\"button\"></button>\n</header>\n"});
}

void FrameWriter::breadcrumbs()
{
    m_html += "<nav class=\"breadcrumbs\" aria-label=\"Breadcrumbs\"><ol><li>";
    appendHtml(m_html, {"<a href=\"", toTop("index.htm"), "\">"});
    if (!m_settings.logo.address.empty())
        appendHtml(m_html, {"<img src=\"", toTop(m_settings.logo.address), "\" alt=\"\">"});
    appendHtml(m_html, {escapedText(m_settings.title), "</a></li>"});
    std::size_t left = m_frame.ancestors == nullptr ? 0 : m_frame.ancestors->size();
    std::string_view parent;
    for (std::size_t index = 0; left > 0; ++index, --left) {
        const auto &[title, address] = (*m_frame.ancestors)[index];
        if (left > s_ancestorsLimit || title == m_settings.title)
            continue;
        m_html += "<li>";
        appendLink(m_html, m_frame.address, {std::string(titleBelow(title, parent)), address});
        m_html += "</li>";
        parent = title;
    }
    m_html += "</ol></nav>\n";
}

void FrameWriter::navigation()
{
    // The list follows the details, so that a style sheet alone can show it on a wide screen, open or not.
    m_html += "<nav class=\"contents\" aria-label=\"Contents\"><details><summary>Contents</summary></details>\n<div>";
    if (m_frame.navigation != nullptr)
        appendNavigation(m_html, m_frame.address, *m_frame.navigation, s_navigationLimit);
    m_html += "\n<ul>";
    const LinkTarget ownPages[] = {{"All pages", "contents.htm"}, {"Index", "names.htm"}};
    for (const LinkTarget &own : ownPages) {
        m_html += "<li>";
        appendLink(m_html, m_frame.address, own, own.address == m_frame.address ? " aria-current=\"page\"" : "");
        m_html += "</li>";
    }
    m_html += "</ul></div></nav>\n";
}

void FrameWriter::sequence()
{
    if (m_frame.previous == nullptr && m_frame.next == nullptr)
        return;
    m_html += "<nav class=\"sequence\" aria-label=\"Previous and next\">";
    neighbour("prev", "Previous", m_frame.previous);
    neighbour("next", "Next", m_frame.next);
    m_html += "</nav>\n";
}

void FrameWriter::neighbour(std::string_view relation, std::string_view label, const LinkTarget *target)
{
    if (target == nullptr)
        return;
    appendHtml(m_html, {"<a rel=\"", relation, "\" href=\"", toTop(target->address), "\"><small>", label, "</small> ",
                        shownTitle(target->title), "</a>"});
}

void FrameWriter::footer()
{
    appendHtml(m_html, {"<footer>", escapedText(m_settings.title)});
    if (!m_settings.version.empty())
        appendHtml(m_html, {" ", escapedText(m_settings.version)});
    if (!m_settings.copyright.empty())
        appendHtml(m_html, {"<br>\u00A9 ", escapedText(m_settings.copyright)});
    m_html += "</footer>\n";
}

} // namespace

QByteArray framedSitePage(const PageFrame &frame, std::string_view body, const SiteSettings &settings)
{
    return asciiFile(FrameWriter(frame, settings).page(body));
}

} // namespace tavidoc
