#include "site/compile/unknown_tags.h"

#include "base/white_space.h"
#include "site/compile/html_places.h"
#include "site/record/html_tags.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_longestShown = 40; // bytes of a tag

/// The elements of HTML, also those that are no longer recommended.
constexpr std::string_view s_elements[] = {
    "a",        "abbr",     "acronym",  "address",  "applet",  "area",     "article",    "aside",  "audio",
    "b",        "base",     "basefont", "bdi",      "bdo",     "bgsound",  "big",        "blink",  "blockquote",
    "body",     "br",       "button",   "canvas",   "caption", "center",   "cite",       "code",   "col",
    "colgroup", "data",     "datalist", "dd",       "del",     "details",  "dfn",        "dialog", "dir",
    "div",      "dl",       "dt",       "em",       "embed",   "fieldset", "figcaption", "figure", "font",
    "footer",   "form",     "frame",    "frameset", "h1",      "h2",       "h3",         "h4",     "h5",
    "h6",       "head",     "header",   "hgroup",   "hr",      "html",     "i",          "iframe", "img",
    "input",    "ins",      "kbd",      "label",    "legend",  "li",       "link",       "main",   "map",
    "mark",     "marquee",  "math",     "menu",     "meta",    "meter",    "nav",        "nobr",   "noframes",
    "noscript", "object",   "ol",       "optgroup", "option",  "output",   "p",          "param",  "picture",
    "pre",      "progress", "q",        "rb",       "rp",      "rt",       "rtc",        "ruby",   "s",
    "samp",     "script",   "search",   "section",  "select",  "slot",     "small",      "source", "span",
    "strike",   "strong",   "style",    "sub",      "summary", "sup",      "svg",        "table",  "tbody",
    "td",       "template", "textarea", "tfoot",    "th",      "thead",    "time",       "title",  "tr",
    "track",    "tt",       "u",        "ul",       "var",     "video",    "wbr",
};
static_assert(std::ranges::is_sorted(s_elements));

/// Elements with elements of other languages.
constexpr std::string_view s_others[] = {"math", "svg"};

/// Whether \a name could also be an argument of a template, or a word that stands for another: it is taken for an
/// element only if the page closes it.
bool needsEnd(std::string_view name)
{
    return name.find('-') != std::string_view::npos || (name.size() == 1 && name != "p");
}

constexpr bool isNameSign(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == ':' || c == '.' || c == '@';
}

bool hasOddAttribute(const HtmlTag &tag)
{
    for (AttributeReader reader(tag.attributes); reader.next();) {
        if (!std::ranges::all_of(reader.name(), isNameSign))
            return true;
    }
    return false;
}

/// The tags that the author of \a page wrote, without those inside elements of other languages.
std::vector<HtmlTag> authorsTags(const DocumentPage &page)
{
    std::vector<HtmlTag> found;
    HtmlTags tags(page.body);
    std::string inside; // the name of such an element
    while (tags.next()) {
        const HtmlTag &tag = tags.tag();
        if (!inside.empty()) {
            if (tag.isClosing && tag.name == inside)
                inside.clear();
            continue;
        }
        if (tag.name.empty())
            continue; // a comment
        if (!tag.isClosing && !tag.attributes.ends_with('/') && std::ranges::count(s_others, tag.name) != 0)
            inside = tag.name;
        const auto after = std::ranges::upper_bound(page.html, tag.begin, {}, &DocumentHtml::offset);
        if (after != page.html.begin() && tag.begin < std::prev(after)->offset + std::prev(after)->length)
            found.push_back(tag);
    }
    return found;
}

/// What to say about \a tag of \a body, which is not shown as it was meant.
std::string messageAbout(const HtmlTag &tag, std::string_view body)
{
    const std::string_view written = body.substr(tag.begin, tag.end - tag.begin);
    const std::size_t other = written.find('<', 1);
    const bool isLess = other != std::string_view::npos;
    std::string shown = simplified(written.substr(0, std::min(other, s_longestShown)));
    if (isLess || written.size() > s_longestShown)
        return "browsers take \"" + shown + "\" for the beginning of a tag: write \"\\<\" for the character \"<\"";
    return "\"" + shown + "\" is not an HTML tag, so browsers do not show it: write \"\\" +
           shown.substr(0, shown.size() - 1) + "\\>\"";
}

} // namespace

void tellUnknownTags(const DocumentPage &page,
                     const std::function<void(const DocumentPlace &place, const std::string &text)> &tell)
{
    if (page.html.empty())
        return;
    const std::vector<HtmlTag> tags = authorsTags(page);
    std::unordered_set<std::string_view> closed;
    for (const HtmlTag &tag : tags) {
        if (tag.isClosing)
            closed.insert(tag.name);
    }
    HtmlPlaces places(page);
    std::unordered_set<std::string_view> reported;
    for (const HtmlTag &tag : tags) {
        const bool isElement = std::ranges::binary_search(s_elements, std::string_view(tag.name)) ||
                               tag.name.find('-') != std::string::npos;
        const bool isWhole =
            page.body.substr(tag.begin + 1, tag.end - tag.begin - 1).find('<') == std::string_view::npos;
        if (isElement && isWhole && !hasOddAttribute(tag) && (!needsEnd(tag.name) || closed.contains(tag.name)))
            continue;
        if (tag.isClosing && reported.contains(tag.name))
            continue; // reported with its beginning
        reported.insert(tag.name);
        tell(places.at(tag.begin), messageAbout(tag, page.body));
    }
}

} // namespace tavidoc
