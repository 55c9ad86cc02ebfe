#include "site/render/shared_pages.h"

#include "base/text_escape.h"
#include "site/link/addresses.h"
#include "site/render/page_text.h"

#include <map>
#include <span>

namespace tavidoc {

namespace {

constexpr std::size_t s_namesOfPage = 500;

/// The names with one initial: a capital letter, "0" for digits, or "other".
using Initials = std::map<std::string, std::vector<const NameEntry *>>;

std::string initialOf(std::string_view name)
{
    const char first = name.empty() ? ' ' : name.front();
    if (first >= 'a' && first <= 'z')
        return {static_cast<char>(first - 'a' + 'A')};
    if (first >= 'A' && first <= 'Z')
        return {first};
    return first >= '0' && first <= '9' ? "0" : "other";
}

std::string_view captionOf(std::string_view initial)
{
    if (initial == "0")
        return "0\u20139";
    return initial == "other" ? "Other names" : initial;
}

using Names = std::span<const NameEntry *const>;

void appendNames(std::string &html, std::string_view page, Names names)
{
    html += "<ul class=\"names\">\n";
    for (const NameEntry *entry : names) {
        appendHtml(html, {"<li><a href=\"", escapedText(relativeAddress(page, entry->address)), "\">",
                          escapedText(entry->name), "</a> <small>", escapedText(entry->kind)});
        if (!entry->owner.title.empty() && entry->owner.title != entry->name)
            appendHtml(html, {entry->kind.empty() ? "" : " in ", escapedText(entry->owner.title)});
        html += "</small></li>\n";
    }
    html += "</ul>\n";
}

/// All names on one page, with a heading for each initial.
void renderOnePage(const SharedLinks &shared, const Initials &initials, const FileSink &sink)
{
    std::string body = "<h1>Index</h1>\n<p class=\"initials\">";
    for (const auto &[initial, names] : initials)
        appendHtml(body, {"<a href=\"#", initial, "\">", captionOf(initial), "</a> "});
    body += "</p>\n";
    for (const auto &[initial, names] : initials) {
        appendHtml(body, {"<h2 id=\"", initial, "\">", captionOf(initial), "</h2>\n"});
        appendNames(body, "names.htm", names);
    }
    renderOwnPage(shared, {"Index", "names.htm"}, body, sink);
}

/// A page for each part of the names of \a initial. Appends the links to them to \a overview.
void renderInitial(const SharedLinks &shared, const std::string &initial, Names names, std::string &overview,
                   const FileSink &sink)
{
    appendHtml(overview, {"<h2>", captionOf(initial), "</h2>\n<ul class=\"names\">\n"});
    const std::string caption(captionOf(initial));
    for (std::size_t part = 0; part * s_namesOfPage < names.size(); ++part) {
        const Names shown =
            names.subspan(part * s_namesOfPage, std::min(s_namesOfPage, names.size() - part * s_namesOfPage));
        const std::string suffix = part == 0 ? std::string() : "-" + std::to_string(part + 1);
        std::string address = "names-";
        address.append(initial).append(suffix).append(".htm");
        const std::string range = shortened(shown.front()->name, 60) + " \u2026 " + shortened(shown.back()->name, 60);
        appendHtml(overview, {"<li><a href=\"", address, "\">", escapedText(range), "</a></li>\n"});
        std::string body = "<h1>Index: " + escapedText(caption) + "</h1>\n";
        appendHtml(body, {"<p>", escapedText(range), "</p>\n"});
        appendNames(body, address, shown);
        renderOwnPage(shared, {"Index: " + caption, address}, body, sink);
    }
    overview += "</ul>\n";
}

} // namespace

void renderNamesPages(const SharedLinks &shared, const FileSink &sink)
{
    Initials initials;
    for (const NameEntry &entry : shared.names)
        initials[initialOf(entry.name)].push_back(&entry);
    if (shared.names.size() <= s_namesOfPage)
        return renderOnePage(shared, initials, sink);
    std::string overview = "<h1>Index</h1>\n";
    for (const auto &[initial, names] : initials)
        renderInitial(shared, initial, names, overview, sink);
    renderOwnPage(shared, {"Index", "names.htm"}, overview, sink);
}

} // namespace tavidoc
