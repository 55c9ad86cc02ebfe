#pragma once

#include <QByteArray>

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

/// A finished page: \a body, UTF-8 HTML, in its frame. \a title and \a style are text. The
/// result is ISO 8859-1.
[[nodiscard]] QByteArray framedPage(std::string_view style, std::string_view title, std::string_view body);
/// \a body without a frame. The result is ISO 8859-1.
[[nodiscard]] QByteArray barePage(std::string_view body);

/// The prefix of the address of the page file \a file: "./" when a browser would take the text before a ":" for a
/// scheme, as in "A::B.htm", else empty.
[[nodiscard]] std::string_view addressStart(std::string_view file);

/// Appends an index of pages under group captions.
void appendMultiHeadingTable(std::string &html, std::span<const IndexGroup> groups);

} // namespace tavidoc
