#include "markup/cross_references.h"

#include "base/text_escape.h"
#include "pages/contents.h"
#include "pages/html_pages.h"

namespace tavidoc {

LinkedPage CrossReferences::appendLink(std::string &html, std::string_view target,
                                       std::optional<std::string_view> caption) const
{
    LinkedPage page = linkedPage(target);
    const std::string &stem = page.stem;
    const bool external = page.kind == DocumentLink::Kind::External;
    html += "<a href=\"";
    if (!external)
        html += addressStart(stem);
    appendEscaped(html, external ? stem : pageFile(stem));
    html += external ? "\" target=\"_blank\">" : "\">";
    appendEscaped(html, caption ? *caption : captionOf(stem, target));
    html += "</a>";
    return page;
}

LinkedPage CrossReferences::linkedPage(std::string_view target) const
{
    // Deliberate: "https:" too. No page can have such a name.
    if (target.starts_with("http:") || target.starts_with("https:"))
        return {DocumentLink::Kind::External, std::string(target)};
    if (const auto title = m_titles.targets.find(target); title != m_titles.targets.end())
        return {DocumentLink::Kind::InDocument, title->second};
    if (m_declarations != nullptr) {
        if (std::optional<std::string> stem = m_declarations->pageOf(target))
            return {DocumentLink::Kind::InDocument, *std::move(stem)};
    }
    return {DocumentLink::Kind::Elsewhere, std::string(target)};
}

std::string_view CrossReferences::captionOf(std::string_view stem, std::string_view target) const
{
    const PageTitles &titles = m_titles.titles;
    auto page = titles.find(stem);
    if (page == titles.end() && stem.ends_with(".htm"))
        page = titles.find(stem.substr(0, stem.size() - 4));
    return page == titles.end() || page->first.empty() ? target : std::string_view(page->second);
}

} // namespace tavidoc
