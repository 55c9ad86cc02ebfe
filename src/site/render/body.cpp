#include "site/render/body.h"

#include "base/text_escape.h"
#include "site/lexers/highlight.h"
#include "site/record/html_tags.h"
#include "site/render/body_edits.h"
#include "site/render/navigation.h"
#include "site/render/page_text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::string_view s_derivedId = "site-derived";
constexpr std::size_t s_selfLinkLimit = 2'500; // bytes on a page
constexpr std::size_t s_nameLinkLimit = 2'000; // bytes on a page
constexpr std::string_view s_linkEnd = "</a>";

/// Adds the edits that a record and its links ask for. Places come from a file: each is tested before it is used.
class RecordedEdits
{
public:
    RecordedEdits(std::string_view body, const RecordPage &page, const PageLinks &links)
        : m_body(body), m_page(page), m_links(links)
    {
    }

    /// What is inserted and what is relocated.
    [[nodiscard]] BodyEdits edits() &&;
    /// What is relocated.
    [[nodiscard]] BodyEdits relocations() &&;

private:
    [[nodiscard]] bool isInside(std::uint64_t offset, std::uint64_t length) const
    {
        return offset <= m_body.size() && length <= m_body.size() - offset;
    }
    [[nodiscard]] bool hasSelfLinks() const;
    void relocate();
    void heading(const RecordHeading &heading, bool hasSelfLink);
    void link(const RecordLink &link, const ResolvedLink &resolved);
    void image(const RecordImage &image, const ResolvedImage &resolved);
    void base(const RecordBase &base, const ResolvedBase &resolved);
    void listing(const RecordListing &listing);
    void names();
    void link(const RecordName &name, std::size_t offset, const std::string &opening);
    void insert(std::size_t offset, std::string inserted) { m_edits.push_back({offset, 0, std::move(inserted)}); }

    std::string_view m_body;
    const RecordPage &m_page;
    const PageLinks &m_links;
    BodyEdits m_edits;
};

BodyEdits RecordedEdits::edits() &&
{
    m_edits = structuralEdits(m_body);
    const bool hasLinks = hasSelfLinks();
    for (const RecordHeading &recorded : m_page.headings)
        heading(recorded, hasLinks && recorded.level > 1);
    relocate();
    for (const ResolvedBase &resolved : m_links.bases) {
        if (resolved.base < m_page.bases.size())
            base(m_page.bases[resolved.base], resolved);
    }
    for (const RecordListing &recorded : m_page.listings)
        listing(recorded);
    names();
    return std::move(m_edits);
}

BodyEdits RecordedEdits::relocations() &&
{
    relocate();
    std::erase_if(m_edits, [](const BodyEdit &edit) { return edit.removed == 0; });
    return std::move(m_edits);
}

void RecordedEdits::relocate()
{
    for (const ResolvedLink &resolved : m_links.links) {
        if (resolved.link < m_page.links.size())
            link(m_page.links[resolved.link], resolved);
    }
    for (const ResolvedImage &resolved : m_links.images) {
        if (resolved.image < m_page.images.size())
            image(m_page.images[resolved.image], resolved);
    }
}

/// Links the first place of each name, then the second ones, and so on, until they are long enough.
void RecordedEdits::names()
{
    std::size_t size = 0;
    std::vector<std::pair<const RecordName *, std::string>> open;
    for (const ResolvedName &resolved : m_links.names) {
        if (resolved.name < m_page.names.size())
            open.emplace_back(&m_page.names[resolved.name],
                              "<a class=\"name\" href=\"" + escapedText(resolved.address) + "\">");
    }
    for (std::size_t round = 0; !open.empty(); ++round) {
        std::erase_if(open, [round](const auto &item) { return item.first->offsets.size() <= round; });
        for (const auto &[name, opening] : open) {
            size += opening.size() + s_linkEnd.size();
            if (size > s_nameLinkLimit)
                return;
            link(*name, name->offsets[round], opening);
        }
    }
}

/// Makes the place of \a name at \a offset a link that begins with \a opening.
void RecordedEdits::link(const RecordName &name, std::size_t offset, const std::string &opening)
{
    std::string_view text = name.name;
    if (name.use != RecordName::Use::Text)
        text = text.substr(text.rfind(':') + 1);
    if (!isInside(offset, text.size()) || m_body.substr(offset, text.size()) != text)
        return;
    insert(offset, opening);
    insert(offset + text.size(), std::string(s_linkEnd));
}

/// A page with very many headings does without links to them, so that it does not grow too much.
bool RecordedEdits::hasSelfLinks() const
{
    std::size_t size = 0;
    for (const RecordHeading &heading : m_page.headings)
        size += 2 * heading.id.size() + 38;
    return size <= s_selfLinkLimit;
}

void RecordedEdits::heading(const RecordHeading &heading, bool hasSelfLink)
{
    if (!isInside(heading.offset, 4) || !m_body.substr(heading.offset).starts_with("<h"))
        return;
    const std::size_t textBegin = tagEnd(m_body, heading.offset);
    if (textBegin == std::string_view::npos || attributeValue(m_body, heading.offset, "id").found)
        return;
    insert(heading.offset + 3, " id=\"" + escapedText(heading.id) + "\"");
    const char closing[] = {'<', '/', 'h', m_body[heading.offset + 2], '>', 0};
    const std::size_t textEnd = m_body.find(closing, textBegin);
    if (!hasSelfLink || textEnd == std::string_view::npos ||
        m_body.substr(textBegin, textEnd - textBegin).find("<a") != std::string_view::npos)
        return;
    insert(textBegin, "<a class=\"self\" href=\"#" + escapedText(heading.id) + "\">");
    insert(textEnd, "</a>");
}

void RecordedEdits::link(const RecordLink &link, const ResolvedLink &resolved)
{
    if (!isInside(link.offset, link.length))
        return;
    const std::string_view element = m_body.substr(0, link.offset + link.length);
    if (!element.substr(link.offset).starts_with("<a ") || !element.ends_with("</a>"))
        return;
    const AttributeValue target = attributeValue(element, link.offset, "href");
    const std::size_t captionBegin = tagEnd(element, link.offset);
    if (!target.found || captionBegin == std::string_view::npos)
        return;
    if (resolved.address.empty()) {
        if (link.kind == RecordLink::Kind::Open)
            insert(link.offset + 2, " class=\"dead\"");
        return;
    }
    m_edits.push_back({target.offset, target.length, escapedText(resolved.address)});
    if (link.kind == RecordLink::Kind::Open && !link.hasCaption && !resolved.caption.empty()) {
        const std::size_t length = element.size() - 4 - captionBegin; // without "</a>"
        m_edits.push_back({captionBegin, length, escapedText(resolved.caption)});
    }
}

void RecordedEdits::image(const RecordImage &image, const ResolvedImage &resolved)
{
    if (!resolved.address.empty() && isInside(image.offset, image.length))
        m_edits.push_back({image.offset, image.length, escapedText(resolved.address)});
}

void RecordedEdits::base(const RecordBase &base, const ResolvedBase &resolved)
{
    if (!isInside(base.offset, base.length))
        return;
    insert(base.offset, "<a href=\"" + escapedText(resolved.address) + "\">");
    insert(base.offset + base.length, "</a>");
}

void RecordedEdits::listing(const RecordListing &listing)
{
    if (!isInside(listing.offset, listing.length))
        return;
    const std::string_view text = m_body.substr(listing.offset, listing.length);
    std::string coloured = highlighted(text, listing.language);
    if (!coloured.empty())
        m_edits.push_back({listing.offset, listing.length, std::move(coloured)});
}

/// Appends the list of the classes that derive from the one of the page.
void appendDerived(std::string &html, const PageLinks &links)
{
    if (links.derived.empty())
        return;
    appendHtml(html, {"<h3 id=\"", s_derivedId, "\">Derived Classes</h3>\n<ul class=\"names\">\n"});
    for (const LinkTarget &derived : links.derived) {
        html += "<li><code>";
        appendLink(html, links.address, derived);
        html += "</code></li>\n";
    }
    html += "</ul>\n";
}

} // namespace

std::vector<RecordHeading> siteHeadings(const RecordPage &page, const PageLinks &links)
{
    std::vector<RecordHeading> headings = page.headings;
    if (!links.derived.empty())
        headings.push_back(
            {.offset = page.bodyLength, .level = 3, .id = std::string(s_derivedId), .text = "Derived Classes"});
    return headings;
}

std::string siteBody(std::string_view body, const RecordPage &page, const PageLinks &links)
{
    std::string html = edited(body, RecordedEdits(body, page, links).edits());
    appendDerived(html, links);
    return html;
}

std::string relocatedBody(std::string_view body, const RecordPage &page, const PageLinks &links)
{
    return edited(body, RecordedEdits(body, page, links).relocations());
}

} // namespace tavidoc
