#include "site/render/single_page.h"

#include "base/text_escape.h"
#include "site/render/body.h"
#include "site/render/navigation.h"
#include "site/render/page_text.h"
#include "site/render/record_body.h"
#include "site/render/site_files.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

/// \a text as a string of a style sheet.
std::string cssString(std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string css = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ' ||
                             c == '.' || c == '-' || byte >= 0x80;
        if (isPlain)
            css += c;
        else // six digits end by themselves
            css.append("\\0000").append({digits[byte >> 4U], digits[byte & 0xFU]});
    }
    return css + '"';
}

/// \a sheet with every character that is not ASCII as an escape, because in a style sheet there are no references.
std::string asciiStyle(std::string_view sheet)
{
    std::string css;
    for (const char32_t c : QString::fromUtf8(sheet).toUcs4()) {
        if (c < 0x80)
            css += static_cast<char>(c);
        else
            css += '\\' + QByteArray::number(static_cast<uint>(c), 16).rightJustified(6, '0').toStdString();
    }
    return css;
}

} // namespace

SinglePage::SinglePage(const SharedLinks &shared, std::string filesFolder, const std::vector<CopiedFile> &copied)
    : m_settings(shared.settings), m_targets{shared, std::move(filesFolder), {}, {}}
{
    for (const CopiedFile &file : copied)
        m_targets.files.insert(file.address);
}

void SinglePage::add(const RecordWithBodies &record, const RecordLinks &links)
{
    for (const PageLinks &page : links.pages) {
        if (page.page >= record.head.pages.size())
            continue;
        const RecordPage &recorded = record.head.pages[page.page];
        std::string body = siteBody(recordBody(record, recorded), recorded, page);
        addAnchors(body, page.address, m_targets.anchors);
        m_pages.insert_or_assign(page.address, Page{page.title, std::move(body)});
    }
    for (const CopiedFile &picture : links.images)
        m_targets.files.insert(picture.address);
    for (const RecordIcon &icon : record.head.icons)
        m_targets.files.insert(iconAddress(record.head, icon));
}

QByteArray SinglePage::file()
{
    m_html.clear();
    head();
    m_html += "<body class=\"single\">\n";
    titlePage();
    contents();
    m_html += "<main>\n";
    sections();
    m_html += "</main>\n</body>\n</html>\n";
    return asciiFile(m_html);
}

void SinglePage::head()
{
    appendHtml(m_html, {"<!DOCTYPE html>\n<html lang=\"", escapedText(m_settings.language),
                        "\">\n<head>\n<meta charset=\"utf-8\">\n",
                        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
                        escapedText(runningTitle()), "</title>\n"});
    appendHtml(m_html, {"<style>\n", asciiStyle(siteFile("site.css")), asciiStyle(singleStyleSheet()),
                        "@page { @top-left { content: ", asciiStyle(cssString(runningTitle())), "; } }\n",
                        "@page :first { @top-left { content: none; } }\n</style>\n"});
    if (!m_settings.favicon.address.empty())
        appendHtml(m_html, {"<link rel=\"icon\" href=\"", m_targets.filesFolder, m_settings.favicon.address, "\">\n"});
    if (!m_settings.style.address.empty())
        appendHtml(m_html,
                   {"<link rel=\"stylesheet\" href=\"", m_targets.filesFolder, m_settings.style.address, "\">\n"});
    m_html += "</head>\n";
}

void SinglePage::titlePage()
{
    m_html += "<header class=\"title-page\">\n";
    if (!m_settings.logo.address.empty())
        appendHtml(m_html, {"<img src=\"", m_targets.filesFolder, m_settings.logo.address, "\" alt=\"\">\n"});
    appendHtml(m_html, {"<p class=\"set-title\">", escapedText(m_settings.title), "</p>\n"});
    if (!m_settings.version.empty())
        appendHtml(m_html, {"<p class=\"set-version\">Version ", escapedText(m_settings.version), "</p>\n"});
    if (!m_settings.copyright.empty())
        appendHtml(m_html, {"<p class=\"set-copyright\">\u00A9 ", escapedText(m_settings.copyright), "</p>\n"});
    m_html += "</header>\n";
}

void SinglePage::contents()
{
    appendHtml(m_html, {"<nav id=\"", s_contentsId,
                        "\" class=\"set-contents\" aria-label=\"Contents\">\n"
                        "<p class=\"set-contents-title\">Contents</p>\n"});
    NestedList list(m_html);
    for (const ContentsEntry &entry : m_targets.shared.contents) {
        list.item(entry.depth);
        const std::string title = escapedText(entry.target.title);
        if (entry.target.address.empty())
            appendHtml(m_html, {"<span>", title, "</span>"});
        else
            appendHtml(m_html, {"<a href=\"#", sectionId(entry.target.address), "\">", title, "</a>"});
    }
    list.close();
    m_html += "</nav>\n";
}

void SinglePage::sections()
{
    const std::vector<ContentsEntry> &contents = m_targets.shared.contents;
    // Below a single entry at the top, the next level divides the set.
    m_chapterLevel = std::ranges::count(contents, 0U, &ContentsEntry::depth) == 1 ? 2 : 1;
    for (const ContentsEntry &entry : contents)
        section(entry);
}

/// A page with several entries is shown at the first of them.
void SinglePage::section(const ContentsEntry &entry)
{
    const std::size_t level = std::size_t{entry.depth} + 1;
    const std::string_view kind = level <= m_chapterLevel ? "chapter" : "section";
    if (entry.target.address.empty()) {
        const std::string digit = std::to_string(std::min<std::size_t>(level, 6));
        return appendHtml(m_html, {"<section class=\"", kind, "\">\n<h", digit, ">", escapedText(entry.target.title),
                                   "</h", digit, ">\n</section>\n"});
    }
    const auto page = m_pages.find(entry.target.address);
    if (page == m_pages.end() || page->second.isShown)
        return;
    page->second.isShown = true;
    const SectionPage shown = {page->first, page->second.title, level};
    appendHtml(m_html, {"<section id=\"", sectionId(page->first), "\" class=\"", kind, "\">\n",
                        sectionBody(page->second.body, shown, m_targets), "\n</section>\n"});
}

std::string SinglePage::runningTitle() const
{
    return m_settings.version.empty() ? m_settings.title : m_settings.title + ' ' + m_settings.version;
}

} // namespace tavidoc
