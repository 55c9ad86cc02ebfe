#include "site/render/page_text.h"

#include "base/text_escape.h"
#include "pages/page_encoding.h"

namespace tavidoc {

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

std::string breakable(std::string_view text)
{
    constexpr std::string_view separator = "::";
    std::string html;
    for (std::size_t at; (at = text.find(separator)) != std::string_view::npos; text.remove_prefix(at)) {
        at += separator.size();
        html += escapedText(text.substr(0, at));
        html += "<wbr>";
    }
    return html += escapedText(text);
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
