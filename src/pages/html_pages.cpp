#include "pages/html_pages.h"

#include "base/large_memory.h"
#include "base/product.h"
#include "base/text_escape.h"
#include "pages/page_encoding.h"

#include <algorithm>
#include <initializer_list>

namespace tavidoc {

namespace {

void append(std::string &html, std::initializer_list<std::string_view> pieces)
{
    for (const std::string_view piece : pieces)
        html += piece;
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// The beginning of every page, up to its style.
std::string frameBeginning()
{
    std::string frame = "<html>\n<!--\n";
    append(frame, {"// ", Product::title, "\n"});
    for (const std::string_view holder : Product::copyrightHolders)
        append(frame, {"// Copyright (c) ", holder, "\n"});
    append(frame, {"// This page may be distributed together with the product that it documents.\n"
                   "// It comes without warranty of any kind.\n"
                   "-->\n<head>\n<link rel=\"stylesheet\" href=\"default.css\" />\n<title style=\""});
    return frame;
}

} // namespace

void appendHeading(std::string &html, int level, std::string_view title)
{
    const std::string tag = std::to_string(level + 1);
    append(html, {"<h", tag, ">"});
    appendEscaped(html, title);
    append(html, {"</h", tag, ">"});
}

std::span<const std::string_view> PageText::framed(std::string_view style, std::string_view title,
                                                   std::string_view body)
{
    static const std::string beginning = frameBeginning();
    constexpr std::string_view afterTitle =
        "</title>\n<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\" />\n</head>\n<body>\n";
    constexpr std::string_view ending = "</body>\n</html>\n";
    m_head.resize(0);
    for (const std::string_view part : {std::string_view(beginning), style, std::string_view("\">")})
        appendLatin1(m_head, part);
    appendLatin1(m_head, escapedText(title));
    appendLatin1(m_head, afterTitle);
    m_parts = {viewOf(m_head), encoded(body), ending};
    return m_parts;
}

std::span<const std::string_view> PageText::bare(std::string_view body)
{
    m_parts.front() = encoded(body);
    return std::span(m_parts).first(1);
}

std::string_view PageText::encoded(std::string_view body)
{
    const std::size_t plain = asciiLength(body);
    if (plain == body.size())
        return body;
    m_body.resize(0);
    // Character references are longer than the characters. The unused part of large memory is never touched.
    const auto capacity = static_cast<qsizetype>(isLarge(body.size()) ? body.size() + body.size() / 2 : body.size());
    if (m_body.capacity() < capacity) {
        m_body.reserve(capacity);
        preferHugePages(m_body.constData(), body.size());
    }
    m_body.append(body.data(), static_cast<qsizetype>(plain));
    appendLatin1(m_body, body.substr(plain));
    return viewOf(m_body);
}

std::string_view addressStart(std::string_view file)
{
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto continuesScheme = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
    };
    const auto end = std::ranges::find_if_not(file, continuesScheme);
    const bool isScheme = end != file.end() && *end == ':' && isLetter(file.front());
    return isScheme ? "./" : "";
}

std::vector<IndexRowPlace> appendMultiHeadingTable(std::string &html, std::span<const IndexGroup> groups)
{
    std::vector<IndexRowPlace> places;
    html += "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" "
            "fm_widths=\"1.1in,*\" style=\"MultiHeadingTable\">\n";
    for (const IndexGroup &group : groups) {
        append(html, {"<tr bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>",
                      group.caption, "</b></td></tr>\n"});
        for (const IndexEntry &entry : group.entries) {
            html += "<tr><td valign=\"center\">";
            const std::size_t link = html.size();
            append(html, {"<a href=\"", addressStart(entry.stem), entry.stem, ".htm\" style=\"Heading\">", entry.title,
                          "</a>"});
            const std::size_t linkLength = html.size() - link;
            // Deliberate: the row has a run of blanks between its cells.
            html += "</td>                            <td width=\"100%\">";
            places.push_back({link, linkLength, html.size()});
            append(html, {entry.description, "</td></tr>\n"});
        }
    }
    html += "</table>";
    return places;
}

} // namespace tavidoc
