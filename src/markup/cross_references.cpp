#include "markup/cross_references.h"

#include "base/text_escape.h"
#include "pages/contents.h"
#include "pages/html_pages.h"

namespace tavidoc {

void CrossReferences::appendLink(std::string &html, std::string_view target,
                                 std::optional<std::string_view> caption) const
{
    // Deliberate: "https:" too. No page can have such a name.
    const bool external = target.starts_with("http:") || target.starts_with("https:");
    const std::string stem = external ? std::string(target) : stemOf(target);
    html += "<a href=\"";
    if (!external)
        html += addressStart(stem);
    appendEscaped(html, external ? stem : pageFile(stem));
    html += external ? "\" target=\"_blank\">" : "\">";
    appendEscaped(html, caption ? *caption : captionOf(stem, target));
    html += "</a>";
}

std::string CrossReferences::stemOf(std::string_view target) const
{
    if (const auto title = m_titles.targets.find(target); title != m_titles.targets.end())
        return title->second;
    if (m_declarations == nullptr)
        return std::string(target);
    return m_declarations->pageOf(target).value_or(std::string(target));
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
