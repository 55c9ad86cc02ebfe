#pragma once

#include <QByteArray>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A row of an index table. All texts are HTML already.
struct IndexEntry
{
    std::string stem;        ///< of the page, without ".htm"
    std::string title;       ///< the text of the link
    std::string description; ///< one line
};

/// A caption of an index table with the rows below it. The caption is HTML already.
struct IndexGroup
{
    std::string caption;
    std::vector<IndexEntry> entries;
};

/// "<h3>Title</h3>" for level 2: the tag number is \a level plus one. \a title is text.
void appendHeading(std::string &html, int level, std::string_view title);

/// Makes the bytes of finished pages, ISO 8859-1. The results are parts that follow one another; they are valid until
/// the next page is made, and as long as the body. The memory of a page is used again for the next.
class PageText
{
public:
    /// The page of \a body, UTF-8 HTML, in its frame. \a title and \a style are text.
    [[nodiscard]] std::span<const std::string_view> framed(std::string_view style, std::string_view title,
                                                           std::string_view body);
    /// The page of \a body without a frame.
    [[nodiscard]] std::span<const std::string_view> bare(std::string_view body);

private:
    [[nodiscard]] std::string_view encoded(std::string_view body);

    QByteArray m_head;
    QByteArray m_body; // unless the body is ASCII, which needs no encoding
    std::array<std::string_view, 3> m_parts;
};

/// The prefix of the address of the page file \a file: "./" when a browser would take the text before a ":" for a
/// scheme, as in "A::B.htm", else empty.
[[nodiscard]] std::string_view addressStart(std::string_view file);

/// Where the text contains a row of an index table.
struct IndexRowPlace
{
    std::size_t link;       ///< offset of the link
    std::size_t linkLength; ///< of the whole element
    std::size_t description;
};

/// Appends an index of pages under group captions. The result has the places of all rows, in order.
std::vector<IndexRowPlace> appendMultiHeadingTable(std::string &html, std::span<const IndexGroup> groups);

} // namespace tavidoc
