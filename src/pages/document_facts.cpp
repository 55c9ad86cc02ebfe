#include "pages/document_facts.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

/// The elements of \a items from \a offset of the page text on, with offsets from there.
template <typename Item> std::vector<Item> partFrom(const std::vector<Item> &items, std::size_t offset)
{
    std::vector<Item> part(std::ranges::lower_bound(items, offset, {}, &Item::offset), items.end());
    for (Item &item : part)
        item.offset -= offset;
    return part;
}

template <typename Item>
void appendCopies(std::vector<Item> &items, const std::vector<Item> &copied, std::size_t offset)
{
    for (const Item &item : copied)
        items.emplace_back(item).offset += offset;
}

} // namespace

void DocumentFacts::beginPage(DocumentPlace place)
{
    m_kind = DocumentPageKind::Markup;
    m_place = std::move(place);
}

void DocumentFacts::beginDeclaration(DocumentPlace place, std::string_view kind, std::string_view qualifiedName,
                                     bool isMember)
{
    m_kind = DocumentPageKind::Declaration;
    m_place = std::move(place);
    m_declaration = kind;
    m_qualifiedName = qualifiedName;
    m_isMember = isMember;
}

bool DocumentFacts::hasTag(std::string_view text)
{
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if ((next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z'))
            return true;
    }
    return false;
}

void DocumentFacts::addHtml(std::string_view body, std::size_t length, DocumentPlace place)
{
    m_html.push_back({body.size() - length, length, std::move(place)});
}

void DocumentFacts::setBrief(std::string_view body, std::size_t offset)
{
    m_brief = {std::string(body.substr(offset)), partFrom(m_links, offset), partFrom(m_images, offset),
               partFrom(m_fileNames, offset)};
}

void DocumentFacts::addCopy(const BriefFacts &brief, std::size_t offset)
{
    appendCopies(m_links, brief.links, offset);
    appendCopies(m_images, brief.images, offset);
    appendCopies(m_fileNames, brief.fileNames, offset);
}

void DocumentFacts::finish(DocumentPage page)
{
    if (page.kind == DocumentPageKind::Markup) {
        page.kind = m_kind;
        page.place = m_place;
    }
    page.declaration = m_declaration;
    page.qualifiedName = m_qualifiedName;
    page.isMember = m_isMember;
    page.brief = m_brief.html;
    page.group = m_group;
    page.links = m_links;
    page.images = m_images;
    page.html = m_html;
    page.listings = m_listings;
    page.bases = m_bases;
    page.members = m_members;
    page.fileNames = m_fileNames;
    page.overloads = m_overloads;
    m_listener.page(page);
    discard();
}

void DocumentFacts::discard()
{
    m_kind = DocumentPageKind::Markup;
    m_place = {};
    m_declaration.clear();
    m_qualifiedName.clear();
    m_group.clear();
    m_brief = {};
    m_links.clear();
    m_images.clear();
    m_html.clear();
    m_listings.clear();
    m_bases.clear();
    m_members.clear();
    m_fileNames.clear();
    m_overloads.clear();
    m_isMember = false;
}

DocumentPlace DocumentFacts::contentsPlace(std::size_t index) const
{
    return index < m_contentsPlaces.size() ? m_contentsPlaces[index] : DocumentPlace();
}

bool DocumentFacts::isInListing(std::size_t offset) const
{
    const auto after =
        std::ranges::upper_bound(m_sourceListings, offset, {}, &std::pair<std::size_t, std::size_t>::first);
    return after != m_sourceListings.begin() && offset <= std::prev(after)->second;
}

} // namespace tavidoc
