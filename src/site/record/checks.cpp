#include "site/record/checks.h"

#include <algorithm>

namespace tavidoc {

std::span<const Check> checks()
{
    using enum CheckLevel;
    static constexpr Check table[] = {
        {"dead-link", Error, "a link that leads nowhere"},
        {"dead-anchor", Error, "a link to a heading that its page does not have"},
        {"ambiguous-link", Error, "a link to a name of several pages"},
        {"missing-image", Error, "a picture that cannot be read"},
        {"missing-include", Error, "an included file that cannot be read"},
        {"missing-page", Error, "a contents entry without a page"},
        {"duplicate-page", Error, "a page made twice, or with a name of the site's own"},
        {"contents-cycle", Error, "contents that include themselves or are included twice"},
        {"contents-xml", Error, "contents lines that are not well-formed XML"},
        {"markup", Error, "an error in the markup"},
        {"unused-page", Warning, "a page that no contents entry and no link leads to"},
        {"unused-asset", Warning, "a copied file that no page uses"},
        {"case-clash", Warning, "names of files that differ in case only"},
        {"stray-comment", Warning, "a documentation comment that documents nothing"},
        {"comment-first-line", Warning, "text on the first line of a comment, which is not used"},
        {"swallowed-line", Warning, "a line of a listing that was taken as a directive"},
        {"unknown-suffix", Warning, "an input that is neither a markup source nor a header"},
        {"unknown-name", Warning, "a key, menu, property, icon or group that is not defined"},
        {"unknown-tag", Warning, "text in angle brackets that browsers take for a tag and do not show"},
        {"surplus-cell", Warning, "a row with more cells than its table has columns"},
        {"markup-warning", Warning, "a warning about the markup"},
        {"undocumented", Off, "a declaration without a comment"},
        {"param-mismatch", Off, "a description of parameters that does not fit the declaration"},
        {"foreign-command", Off, "a command of another documentation tool"},
    };
    return table;
}

std::optional<Check> checkNamed(std::string_view name)
{
    const auto found = std::ranges::find(checks(), name, &Check::name);
    return found == checks().end() ? std::nullopt : std::optional(*found);
}

} // namespace tavidoc
