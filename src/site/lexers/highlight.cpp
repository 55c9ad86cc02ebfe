#include "site/lexers/highlight.h"

#include "site/lexers/lexers.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

struct Language
{
    std::string_view name; ///< or the suffix of files
    void (*lex)(ListingScanner &scanner);
};

constexpr Language s_languages[] = {
    {"sh", lexShell},  {"bash", lexShell},  {"shell", lexShell}, {"console", lexShell}, {"python", lexPython},
    {"py", lexPython}, {"json", lexJson},   {"yaml", lexYaml},   {"yml", lexYaml},      {"toml", lexToml},
    {"ini", lexToml},  {"cmake", lexCMake}, {"html", lexHtml},   {"htm", lexHtml},      {"css", lexCss},
    {"diff", lexDiff}, {"patch", lexDiff},
};

/// In the order of ListingStyle.
constexpr std::string_view s_classes[] = {"",         "literal",  "comment",  "keyword",   "markup",   "control",
                                          "operator", "register", "function", "attribute", "inserted", "deleted"};

constexpr std::pair<std::string_view, std::string_view> s_entities[] = {
    {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&middot;", "\u00B7"},
};

/// The character at \a at of \a html: how long it is there, and what it is in plain text.
std::pair<std::size_t, std::string_view> characterAt(std::string_view html, std::size_t at)
{
    if (html[at] == '&') {
        for (const auto &[entity, text] : s_entities) {
            if (html.substr(at).starts_with(entity))
                return {entity.size(), text};
        }
    }
    return {1, html.substr(at, 1)};
}

std::string plainText(std::string_view html)
{
    std::string text;
    text.reserve(html.size());
    for (std::size_t at = 0; at < html.size();) {
        const auto [length, character] = characterAt(html, at);
        text += character;
        at += length;
    }
    return text;
}

/// Puts \a runs of the plain text of \a html into spans.
std::string withSpans(std::string_view html, const std::vector<ListingRun> &runs)
{
    std::string result;
    result.reserve(3 * html.size());
    std::size_t at = 0;      // in html
    std::size_t plainAt = 0; // in its plain text
    for (const ListingRun &run : runs) {
        const std::size_t begin = at;
        while (plainAt < run.end && at < html.size()) {
            const auto [length, character] = characterAt(html, at);
            at += length;
            plainAt += character.size();
        }
        const std::string_view name = s_classes[static_cast<std::size_t>(run.style)];
        if (!name.empty())
            result.append("<span class=\"zkt-code-").append(name).append("\">");
        result += html.substr(begin, at - begin);
        if (!name.empty())
            result += "</span>";
    }
    return result.append(html.substr(at));
}

} // namespace

std::string highlighted(std::string_view html, std::string_view language)
{
    const auto row = std::ranges::find(s_languages, language, &Language::name);
    if (row == std::end(s_languages))
        return {};
    const std::string text = plainText(html);
    ListingScanner scanner(text);
    row->lex(scanner);
    return withSpans(html, scanner.takeRuns());
}

} // namespace tavidoc
