#pragma once

#include "pages/document_listener.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavidoc {

/// The one-line description of a page, with what it contains. Offsets are those in its HTML.
struct BriefFacts
{
    std::string html;
    std::vector<DocumentLink> links;
    std::vector<DocumentImage> images;
    std::vector<DocumentFileName> fileNames;
};

/// A command that orders groups.
struct GroupOrder
{
    std::string names; ///< as written, with commas between them
    DocumentPlace place;
};

/// Gathers what a listener is told about a document and the page that is being built. Offsets in pages stay right
/// because whatever is removed from a page text is white space at its end.
class DocumentFacts
{
public:
    /// \a listener is borrowed.
    explicit DocumentFacts(DocumentListener &listener) : m_listener(listener) {}

    [[nodiscard]] DocumentListener &listener() { return m_listener; }

    /// Describes the page that has just been opened: a page of markup.
    void beginPage(DocumentPlace place);
    /// Describes the page that has just been opened: that of a declaration.
    void beginDeclaration(DocumentPlace place, std::string_view kind, std::string_view qualifiedName, bool isMember);

    void addLink(DocumentLink link) { m_links.push_back(std::move(link)); }
    void addImage(DocumentImage image) { m_images.push_back(std::move(image)); }
    /// Whether \a text may contain HTML tags.
    [[nodiscard]] static bool hasTag(std::string_view text);
    /// Notes that the last \a length characters of \a body are what the author wrote at \a place.
    void addHtml(std::string_view body, std::size_t length, DocumentPlace place);
    void addListing(DocumentListing listing) { m_listings.push_back(std::move(listing)); }
    void addBase(DocumentBase base) { m_bases.push_back(std::move(base)); }
    void addMember(DocumentMember member) { m_members.push_back(std::move(member)); }
    void addFileName(std::size_t offset) { m_fileNames.push_back({offset}); }
    void addOverload(DocumentOverload overload) { m_overloads.push_back(std::move(overload)); }
    void setGroup(std::string_view group) { m_group = group; }

    void setGroupOrder(GroupOrder order) { m_groupOrder = std::move(order); }
    /// The last one of the document, which counts; without names if there is none.
    [[nodiscard]] const GroupOrder &groupOrder() const { return m_groupOrder; }

    /// Makes the end of \a body from \a offset on the description of the page.
    void setBrief(std::string_view body, std::size_t offset);
    /// Makes \a html without links the description of the page.
    void setBrief(std::string_view html) { m_brief = {std::string(html), {}, {}, {}}; }
    [[nodiscard]] const BriefFacts &brief() const { return m_brief; }
    /// Notes that the page text contains \a brief, the description of another page, at \a offset.
    void addCopy(const BriefFacts &brief, std::size_t offset);

    /// Tells the listener about the finished page \a page, which lacks what was gathered, and forgets that.
    void finish(DocumentPage page);
    /// Forgets what was gathered about a page that is not written.
    void discard();

    /// Assigns \a place to the lines of the contents tree up to \a count that have none yet.
    void placeContents(std::size_t count, const DocumentPlace &place) { m_contentsPlaces.resize(count, place); }
    [[nodiscard]] std::size_t placedContents() const { return m_contentsPlaces.size(); }
    /// The place of the line \a index of the contents tree.
    [[nodiscard]] DocumentPlace contentsPlace(std::size_t index) const;

    /// Notes that a listing of the source text begins and ends at these offsets.
    void addSourceListing(std::size_t begin, std::size_t end) { m_sourceListings.emplace_back(begin, end); }
    /// True at an offset of the source text in a listing or at its end.
    [[nodiscard]] bool isInListing(std::size_t offset) const;

private:
    DocumentListener &m_listener;
    DocumentPageKind m_kind = DocumentPageKind::Markup;
    DocumentPlace m_place;
    std::string m_declaration;
    std::string m_qualifiedName;
    bool m_isMember = false;
    std::string m_group;
    BriefFacts m_brief;
    std::vector<DocumentLink> m_links;
    std::vector<DocumentImage> m_images;
    std::vector<DocumentHtml> m_html;
    std::vector<DocumentListing> m_listings;
    std::vector<DocumentBase> m_bases;
    std::vector<DocumentMember> m_members;
    std::vector<DocumentFileName> m_fileNames;
    std::vector<DocumentOverload> m_overloads;
    std::vector<DocumentPlace> m_contentsPlaces;
    GroupOrder m_groupOrder;
    std::vector<std::pair<std::size_t, std::size_t>> m_sourceListings; // in order
};

} // namespace tavidoc
