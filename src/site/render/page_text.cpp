#include "site/render/page_text.h"

#include "base/text_escape.h"
#include "pages/page_encoding.h"

#include <algorithm>

namespace tavidoc {

namespace {

constexpr std::size_t s_longWord = 14; // characters of a word that may be broken

bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool isOfWord(char c)
{
    return isUpper(c) || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// The end of the word that begins at \a at; \a at itself if there is none.
std::size_t endOfWord(std::string_view text, std::size_t at)
{
    while (at < text.size() && isOfWord(text[at]))
        ++at;
    return at;
}

/// Whether a part of an identifier begins at \a at: "Line" in "documentationLine", "page" in "next_page".
bool beginsHump(std::string_view word, std::size_t at)
{
    const char before = word[at - 1];
    return (before == '_' && word[at] != '_') || (isUpper(word[at]) && !isUpper(before));
}

} // namespace

void appendHtml(std::string &html, std::initializer_list<std::string_view> pieces)
{
    for (const std::string_view piece : pieces)
        html += piece;
}

std::string shortened(std::string_view text, std::size_t limit)
{
    const auto beginsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; };
    std::size_t characters = 0;
    std::size_t end = 0; // of the text that is kept when the text is too long
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!beginsCharacter(text[at]))
            continue;
        if (++characters == limit)
            end = at;
        else if (characters > limit)
            return std::string(text.substr(0, end)) + "\u2026";
    }
    return std::string(text);
}

std::vector<std::string_view> breakableParts(std::string_view text)
{
    std::vector<std::string_view> parts;
    std::size_t begin = 0; // of the part
    const auto cutAt = [&](std::size_t at) {
        parts.push_back(text.substr(begin, at - begin));
        begin = at;
    };
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = endOfWord(text, at);
        for (std::size_t hump = at + 1; end - at > s_longWord && hump < end; ++hump) {
            if (beginsHump(text, hump))
                cutAt(hump);
        }
        at = std::max(end, at + 1);
        if (at < text.size() && text.substr(0, at).ends_with("::"))
            cutAt(at);
    }
    parts.push_back(text.substr(begin));
    return parts;
}

std::string breakable(std::string_view text)
{
    std::string html;
    for (const std::string_view part : breakableParts(text)) {
        if (!html.empty())
            html += "<wbr>";
        html += escapedText(part);
    }
    return html;
}

QByteArray asciiFile(std::string_view html)
{
    QByteArray bytes;
    const auto size = static_cast<qsizetype>(html.size());
    bytes.reserve(size + size / 16);
    appendAscii(bytes, html);
    return bytes;
}

} // namespace tavidoc
