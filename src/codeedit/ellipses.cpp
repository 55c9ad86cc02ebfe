#include "codeedit/ellipses.h"

#include "codeedit/styled_line.h"

#include <algorithm>

namespace tavidoc::Ellipses {

namespace {

struct Ellipsis
{
    std::string_view mark;
    std::string_view html;
};

constexpr Ellipsis s_ellipses[] = {
    {"\\vdots", "&#x205e;"},
    {"\\hdots", "&hellip;"},
    {"\\...", "&hellip;"},
};

/// The ellipsis whose mark \a text begins with; null when there is none.
const Ellipsis *ellipsisAt(std::string_view text)
{
    for (const Ellipsis &ellipsis : s_ellipses) {
        if (text.starts_with(ellipsis.mark))
            return &ellipsis;
    }
    return nullptr;
}

/// The first mark in \a text from \a from on; npos when there is none.
std::size_t find(std::string_view text, std::size_t from)
{
    std::size_t at = text.find('\\', from);
    while (at != std::string_view::npos && ellipsisAt(text.substr(at)) == nullptr)
        at = text.find('\\', at + 1);
    return at;
}

/// A place in a styled line, with the style that the last marker before it chose.
struct StyledPlace
{
    const char16_t *at;
    char16_t style;

    /// Moves past the markers that are here.
    void skipMarkers()
    {
        for (; *at == s_styleMarker; at += 2)
            style = at[1];
    }
};

/// Moves \a place past the text \a mark, over the markers in it, and returns true; false when other text is there.
bool accept(StyledPlace &place, std::string_view mark)
{
    StyledPlace end = place;
    for (const char c : mark) {
        end.skipMarkers();
        if (*end.at != static_cast<unsigned char>(c))
            return false;
        ++end.at;
    }
    place = end;
    return true;
}

/// The mark that is at \a place, which is moved past it; null when there is none.
const Ellipsis *acceptMark(StyledPlace &place)
{
    for (const Ellipsis &ellipsis : s_ellipses) {
        if (accept(place, ellipsis.mark))
            return &ellipsis;
    }
    return nullptr;
}

} // namespace

bool areIn(std::string_view text)
{
    return find(text, 0) != std::string_view::npos;
}

void join(char16_t *styled)
{
    StyledPlace from{styled, static_cast<char16_t>(CodeStyle::None)};
    char16_t written = from.style;
    char16_t *to = styled;
    while (true) {
        from.skipMarkers();
        if (*from.at == 0)
            break;
        if (from.style != written) {
            *to++ = s_styleMarker;
            *to++ = written = from.style;
        }
        const Ellipsis *const ellipsis = *from.at == u'\\' ? acceptMark(from) : nullptr;
        if (ellipsis == nullptr)
            *to++ = *from.at++;
        else
            to = std::copy(ellipsis->mark.begin(), ellipsis->mark.end(), to);
    }
    *to = 0;
}

void replace(std::string &html, std::size_t begin)
{
    const std::size_t first = find(html, begin);
    if (first == std::string::npos)
        return;
    const std::string source = html.substr(first);
    html.resize(first);
    std::size_t at = 0;
    for (std::size_t mark = 0; mark != std::string::npos; mark = find(source, at)) {
        const Ellipsis &ellipsis = *ellipsisAt(std::string_view(source).substr(mark));
        html.append(source, at, mark - at);
        html += ellipsis.html;
        at = mark + ellipsis.mark.size();
    }
    html.append(source, at);
}

} // namespace tavidoc::Ellipses
