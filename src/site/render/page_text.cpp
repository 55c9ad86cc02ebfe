#include "site/render/page_text.h"

#include "pages/page_encoding.h"

#include <algorithm>

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

std::string relativeAddress(std::string_view page, std::string_view target)
{
    const auto [pageEnd, targetEnd] = std::ranges::mismatch(page, target);
    const std::string_view common = page.substr(0, static_cast<std::size_t>(pageEnd - page.begin()));
    const std::size_t shared = common.rfind('/') == common.npos ? 0 : common.rfind('/') + 1;
    std::string address;
    for (auto rest = static_cast<std::size_t>(std::ranges::count(page.substr(shared), '/')); rest > 0; --rest)
        address += "../";
    return address.append(target.substr(shared));
}

QByteArray asciiFile(std::string_view html)
{
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(html.size() + html.size() / 16));
    appendAscii(bytes, html);
    return bytes;
}

} // namespace tavidoc
