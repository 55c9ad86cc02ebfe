#pragma once

#include "pages/document_listener.h"
#include "site/compile/code_names.h"
#include "site/compile/heading_ids.h"
#include "site/record/html_tags.h"
#include "site/record/record.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Reads what the body of a page has besides the links and images that the generator knows: headings, links and
/// images that the author wrote as HTML, ids, and the text.
class BodyReader
{
public:
    /// What was found.
    struct Result
    {
        std::vector<RecordHeading> headings; ///< in order, with ids
        std::vector<RecordLink> links;       ///< raw ones, in order, without places
        std::vector<RecordImage> images;     ///< raw ones, in order, without places
        std::vector<std::string> anchors;    ///< ids and names of anchors that the author wrote, sorted
        std::vector<RecordName> names;       ///< by first offset
        std::string text;                    ///< plain text, without headings; a line end between blocks
    };

    /// The page is borrowed.
    explicit BodyReader(const DocumentPage &page) : m_page(page) {}

    [[nodiscard]] Result read();

private:
    void appendText(std::string_view html);
    void endBlock();
    void takeTag(const HtmlTag &tag);
    void openLink(const HtmlTag &tag);
    void closeLink(std::size_t end);
    void takeImage(const HtmlTag &tag);
    void noteAnchor(const HtmlTag &tag);
    void openHeading(const HtmlTag &tag);
    void closeHeading();
    void assignIds();
    void takeCodeTag(const HtmlTag &tag);
    void takeListing(std::string_view html, std::size_t offset);
    [[nodiscard]] bool isCode(std::size_t offset);
    [[nodiscard]] bool isFileName(std::size_t offset);
    [[nodiscard]] bool isWrittenAsHtml(std::size_t offset) const;
    [[nodiscard]] bool isKnownLink(std::size_t offset);
    [[nodiscard]] bool isKnownImage(std::size_t offset);

    const DocumentPage &m_page;
    Result m_result;
    std::size_t m_nextLink = 0;  // of the page's links
    std::size_t m_nextImage = 0; // of the page's images
    bool m_isInLink = false;     // the last of the raw links is open
    bool m_isInHeading = false;  // the last of the headings is open
    bool m_isInAnchor = false;   // in an "a" element, whoever wrote it
    std::size_t m_nextListing = 0;
    std::size_t m_nextFileName = 0;
    std::size_t m_codeBegin = 0;  // of the contents of the open element of code
    std::string_view m_codeTag;   // "tt" or "pre"; empty outside
    bool m_hasAttributes = false; // its opening tag
    CodeNames m_names;
    std::string_view m_skipped; // the name of the element whose text is not shown; empty outside
};

} // namespace tavidoc
