#pragma once

#include "markup/declarations.h"
#include "markup/page_titles.h"
#include "pages/document_listener.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a link leads to.
struct LinkedPage
{
    DocumentLink::Kind kind;
    std::string stem; ///< of the page; of an external link, its address
};

/// Resolves the targets of links.
class CrossReferences
{
public:
    /// All are borrowed. \a declarations may be null.
    CrossReferences(const TitleLists &titles, const Declarations *declarations)
        : m_titles(titles), m_declarations(declarations)
    {
    }

    /// Appends the link to \a target: a page title, a declaration, a page stem or an address
    /// that begins with "http:" or "https:". Without a \a caption the link shows the title of
    /// the page, or the target when the page has none. Target and caption are text.
    LinkedPage appendLink(std::string &html, std::string_view target, std::optional<std::string_view> caption) const;

private:
    [[nodiscard]] LinkedPage linkedPage(std::string_view target) const;
    [[nodiscard]] std::string_view captionOf(std::string_view stem, std::string_view target) const;

    const TitleLists &m_titles;
    const Declarations *m_declarations;
};

} // namespace tavidoc
