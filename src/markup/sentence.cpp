#include "markup/sentence.h"

#include "base/white_space.h"
#include "markup/markup_cursor.h"

#include <span>

namespace tavidoc {

namespace {

constexpr std::string_view s_spaces[] = {
    "<br/>", "&nbsp;", "&#160;", "&#x202f;", "\xC2\xA0", "\xE2\x80\xAF",
};
constexpr std::string_view s_quotes[] = {
    "\"",           "'",        "&quot;",       "&apos;",       "&rdquo;",
    "&rsquo;",      "&ldquo;",  "&lsquo;",      "\xE2\x80\x9C", "\xE2\x80\x9D",
    "\xC2\xAB",     "\xC2\xBB", "\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\xB9",
    "\xE2\x80\xBA",
};
constexpr std::string_view s_brackets[] = {")", "]", "}"};
constexpr std::string_view s_sentenceEnds = ".!?";

/// The length of the first of \a pieces that \a html ends with; 0 without one.
std::size_t endingLength(std::string_view html, std::span<const std::string_view> pieces)
{
    for (const std::string_view piece : pieces) {
        if (html.ends_with(piece))
            return piece.size();
    }
    return 0;
}

/// The length of the tag that \a html ends with; 0 without one and for that of a picture.
std::size_t tagLength(std::string_view html)
{
    if (!html.ends_with('>'))
        return 0;
    const std::size_t begin = html.find_last_of("<>", html.size() - 2);
    if (html.size() < 2 || begin == std::string_view::npos || html[begin] == '>')
        return 0;
    const std::string_view tag = html.substr(begin + 1);
    const bool isTag = tag.front() == '/' || isNameCharacter(tag.front());
    return isTag && !tag.starts_with("img ") ? html.size() - begin : 0;
}

std::size_t spaceLength(std::string_view html)
{
    return !html.empty() && isSpace(html.back()) ? 1 : endingLength(html, s_spaces);
}

} // namespace

bool endsBeforeSentence(std::string_view html)
{
    bool isSpaceSeen = false;
    while (!html.empty()) {
        std::size_t length = spaceLength(html);
        isSpaceSeen = isSpaceSeen || length > 0;
        if (length == 0)
            length = tagLength(html);
        if (length == 0)
            length = endingLength(html, s_quotes);
        if (length == 0 && isSpaceSeen)
            length = endingLength(html, s_brackets);
        if (length == 0)
            return isSpaceSeen && s_sentenceEnds.find(html.back()) != std::string_view::npos;
        html.remove_suffix(length);
    }
    return true;
}

} // namespace tavidoc
