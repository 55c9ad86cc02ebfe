#include "site/link/link_resolver.h"

#include "site/link/addresses.h"
#include "site/link/calls.h"
#include "site/link/page_names.h"

#include <algorithm>
#include <array>

namespace tavidoc {

namespace {

/// Whether \a target is an address that no page can have: of mail, of another protocol.
bool isForeignAddress(std::string_view target)
{
    static constexpr std::array<std::string_view, 13> schemes = {"mailto", "ftp",  "ftps", "sftp", "file", "tel", "sms",
                                                                 "irc",    "ircs", "news", "ssh",  "git",  "urn"};
    const std::string scheme = schemeOf(target);
    return !scheme.empty() && std::ranges::find(schemes, scheme) != schemes.end();
}

/// The value of an href attribute without its escapes.
std::string unescaped(std::string_view value)
{
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        text += value[i];
        if (value.substr(i).starts_with("&amp;"))
            i += 4;
    }
    return text;
}

constexpr std::size_t s_mostOverloads = 5; // that a finding lists

/// What leads from the top of \a page to the overload without arguments if \a target, which led to the page, ends in
/// "()". That page may have none.
std::string headingOfCall(const RecordPage &page, std::string_view target)
{
    const std::optional<CallName> call = target.ends_with("()") ? callNameOf(target) : std::nullopt;
    const RecordOverload *const overload = call ? overloadOf(page.overloads, *call).overload : nullptr;
    return overload == nullptr || overload->heading.empty() ? std::string() : '#' + overload->heading;
}

} // namespace

LinkResolver::LinkResolver(const PageSet &pages, const SiteSettings &settings, PageFinder &finder, CopiedFiles &files,
                           FindingList &findings, const ForeignNames &foreign)
    : m_pages(pages), m_settings(settings), m_finder(finder), m_files(files), m_findings(findings), m_foreign(foreign),
      m_isLinked(pages.count())
{
}

std::vector<ResolvedLink> LinkResolver::resolvedLinks(PageId page)
{
    const std::vector<RecordLink> &links = m_pages.page(page).links;
    std::vector<ResolvedLink> result;
    result.reserve(links.size());
    for (std::uint32_t i = 0; i < links.size(); ++i) {
        if (Resolution resolution = resolved(page, links[i])) {
            resolution->link = i;
            result.push_back(std::move(*resolution));
        }
    }
    return result;
}

LinkResolver::Resolution LinkResolver::resolved(PageId from, const RecordLink &link)
{
    switch (link.kind) {
    case RecordLink::Kind::Resolved:
        return resolvedInDocument(from, link);
    case RecordLink::Kind::Open:
        return resolvedInSet(from, link, link.target);
    case RecordLink::Kind::Raw:
        return resolvedRaw(from, link);
    case RecordLink::Kind::External:
        break;
    }
    return {};
}

/// The page of such a link may have been replaced or refused since its document was compiled.
LinkResolver::Resolution LinkResolver::resolvedInDocument(PageId from, const RecordLink &link)
{
    const PageId to = m_pages.named(m_pages.records()[m_pages.recordOf(from)].folder, link.page);
    if (to == s_noPage)
        return resolvedInSet(from, link, link.page);
    std::string address = addressOf(from, to);
    if (address == link.page + ".htm" && link.anchor.empty())
        return {};
    if (!link.anchor.empty())
        address.append("#").append(link.anchor);
    return ResolvedLink{0, std::move(address), {}};
}

LinkResolver::Resolution LinkResolver::resolvedInSet(PageId from, const RecordLink &link, std::string_view target)
{
    if (target.starts_with('#'))
        return resolvedAnchor(from, from, target.substr(1), link);
    const NameUse use = useOf(from, link);
    FoundPage found = m_finder.find(target, use);
    if (found.page != s_noPage && found.member != s_noMember)
        return ResolvedLink{0, memberAddress(from, found), std::string(target)};
    if (found.page != s_noPage)
        return ResolvedLink{0, addressOf(from, found.page) + headingOfCall(m_pages.page(found.page), target),
                            captionOf(found, target)};
    const std::size_t hash = target.rfind('#');
    if (!found.isAmbiguous && hash != std::string_view::npos) {
        found = m_finder.find(target.substr(0, hash), use);
        if (found.page != s_noPage)
            return resolvedAnchor(from, found.page, target.substr(hash + 1), link);
    }
    if (const ForeignName *const name = found.isAmbiguous ? nullptr : m_foreign.find(target))
        return ResolvedLink{0, name->address, name->title.empty() ? std::string(target) : name->title};
    if (!found.isAmbiguous && isForeignAddress(target))
        return ResolvedLink{0, std::string(target), std::string(target)};
    return found.isAmbiguous ? ResolvedLink{} : resolvedOverload(from, link, target);
}

/// The resolution of a link that leads nowhere else: perhaps it names an overload of a function.
LinkResolver::Resolution LinkResolver::resolvedOverload(PageId from, const RecordLink &link, std::string_view target)
{
    const std::optional<CallName> call = callNameOf(target);
    const FoundPage found = call ? m_finder.find(call->name, useOf(from, link)) : FoundPage();
    if (found.isAmbiguous)
        return ResolvedLink{};
    const PageId to = found.page;
    if (to == s_noPage || m_pages.page(to).overloads.empty()) {
        if (std::string address = assetAddress(from, target); !address.empty())
            return ResolvedLink{0, std::move(address), std::string(target)};
        reportDead(from, link, target);
        return ResolvedLink{};
    }
    const FoundOverload chosen = overloadOf(m_pages.page(to).overloads, *call);
    if (chosen.overload == nullptr) {
        reportNoOverload(from, link, target, to, chosen.isAmbiguous);
        return ResolvedLink{};
    }
    const std::string anchor = chosen.overload->heading.empty() ? std::string() : '#' + chosen.overload->heading;
    std::string address = from == to && !anchor.empty() ? std::string() : addressOf(from, to);
    return ResolvedLink{0, std::move(address) + anchor, std::string(target)};
}

/// The address of the asset that \a target names, relative to the page \a from or to the top of the site; empty if there
/// is none.
std::string LinkResolver::assetAddress(PageId from, std::string_view target)
{
    const std::string &folder = m_pages.records()[m_pages.recordOf(from)].folder;
    for (const std::string &directory :
         {folder + '/' + std::string(directoryOf(m_pages.page(from).stem)), std::string()}) {
        const std::optional<std::string> path = joinedPath(directory, target);
        if (const std::string *const asset = path ? m_files.assetAt(*path) : nullptr)
            return relativeAddress(m_pages.address(from), *asset);
    }
    return {};
}

NameUse LinkResolver::useOf(PageId from, const RecordLink &link) const
{
    const RecordPage &page = m_pages.page(from);
    return {m_pages.recordOf(from), directoryOf(page.stem), link.place, page.qualifiedName};
}

LinkResolver::Resolution LinkResolver::resolvedAnchor(PageId from, PageId to, std::string_view anchor,
                                                      const RecordLink &link)
{
    const RecordHeading *heading = headingOf(to, anchor);
    std::string address = from == to ? std::string() : addressOf(from, to);
    if (heading)
        return ResolvedLink{0, std::move(address) + '#' + heading->id, heading->text};
    if (isWrittenAnchor(to, anchor))
        return ResolvedLink{0, std::move(address) + '#' + std::string(anchor), std::string(link.target)};
    reportNoAnchor(from, to, anchor, link);
    return ResolvedLink{0, from == to ? addressOf(from, to) : std::move(address), std::string(link.target)};
}

/// Whether \a page has the anchor \a id, written as HTML.
bool LinkResolver::isWrittenAnchor(PageId page, std::string_view id) const
{
    return std::ranges::binary_search(m_pages.page(page).anchors, id);
}

/// Checks the anchor of \a href, the address of a link that is written as HTML and leads to \a to.
void LinkResolver::checkRawAnchor(PageId from, PageId to, std::string_view href, const RecordLink &link)
{
    const std::size_t hash = href.find('#');
    if (hash == std::string_view::npos)
        return;
    std::string_view fragment = href.substr(hash + 1);
    fragment = fragment.substr(0, fragment.find(":~:")); // a text that the browser is to look for
    const std::string anchor = percentDecoded(fragment);
    const bool isTop = anchor.empty() || lowerCase(anchor) == "top"; // which every page has
    if (!isTop && headingOf(to, anchor) == nullptr && !isWrittenAnchor(to, anchor) && !isWrittenAnchor(to, fragment))
        reportNoAnchor(from, to, anchor, link);
}

const RecordHeading *LinkResolver::headingOf(PageId page, std::string_view id)
{
    const std::vector<RecordHeading> &headings = m_pages.page(page).headings;
    const auto [known, isNew] = m_headingIds.try_emplace(page);
    StringIds &ids = known->second;
    if (isNew) {
        for (const RecordHeading &heading : headings)
            ids.insert(heading.id);
    }
    const std::uint32_t index = ids.find(id);
    if (index == StringIds::s_none)
        return nullptr;
    const auto heading =
        ids.count() == headings.size() ? headings.begin() + index : std::ranges::find(headings, id, &RecordHeading::id);
    return &*heading;
}

LinkResolver::Resolution LinkResolver::resolvedRaw(PageId from, const RecordLink &link)
{
    const std::string href = unescaped(link.target);
    const std::string_view encoded = std::string_view(href).substr(0, href.find_first_of("?#"));
    if (encoded.empty())
        checkRawAnchor(from, from, href, link);
    if (encoded.empty() || encoded.starts_with('/') || !schemeOf(href).empty())
        return {};
    const std::uint32_t record = m_pages.recordOf(from);
    const std::string stem = m_pages.page(from).stem;
    const std::string directory = m_pages.records()[record].folder + '/' + std::string(directoryOf(stem));
    std::string path = percentDecoded(encoded);
    path += path.ends_with('/') ? "index.htm" : "";
    const std::optional<std::string> target = joinedPath(directory, path);
    if (!target)
        return {}; // leads out of the site, where nothing is known
    if (target->ends_with(".htm")) {
        const PageId to = m_pages.named({}, std::string_view(*target).substr(0, target->size() - 4));
        if (to != s_noPage) {
            checkRawAnchor(from, to, href, link);
            const std::string address = addressOf(from, to);
            return address == encoded ? Resolution() : ResolvedLink{0, address + href.substr(encoded.size()), {}};
        }
    }
    if (isKnownFile(*target))
        return {};
    reportDead(from, link, encoded);
    return {};
}

/// Whether the site has a file at \a path beside the pages of the records.
bool LinkResolver::isKnownFile(const std::string &path)
{
    if (isSitePage(path) || m_files.assetAt(path) != nullptr)
        return true;
    return path.ends_with(".htm") && m_settings.redirects.contains(path.substr(0, path.size() - 4));
}

std::string LinkResolver::addressOf(PageId from, PageId to)
{
    if (from != to)
        m_isLinked[to] = true;
    return relativeAddress(m_pages.address(from), m_pages.address(to));
}

/// The address of the row of a member that has no page of its own.
std::string LinkResolver::memberAddress(PageId from, const FoundPage &found)
{
    const std::string anchor = '#' + m_pages.page(found.page).members[found.member].anchor;
    return from == found.page ? anchor : addressOf(from, found.page) + anchor;
}

std::string LinkResolver::captionOf(const FoundPage &found, std::string_view target) const
{
    const RecordPage &page = m_pages.page(found.page);
    const bool isPage = page.kind != RecordPageKind::Declaration && !page.title.empty();
    return isPage ? page.title : std::string(target);
}

/// Reports that none of the overloads on the page \a to is the one that \a target names, or that several are.
void LinkResolver::reportNoOverload(PageId from, const RecordLink &link, std::string_view target, PageId to,
                                    bool isAmbiguous)
{
    const RecordPage &page = m_pages.page(to);
    std::string text = isAmbiguous ? inQuotes(target) + " means several overloads of " + inQuotes(page.qualifiedName)
                                   : inQuotes(page.qualifiedName) + " has no overload " + inQuotes(target);
    text += ": expected ";
    const std::size_t count = std::min(page.overloads.size(), s_mostOverloads);
    for (std::size_t i = 0; i < count; ++i)
        text.append(i == 0 ? "" : ", ").append(inQuotes(shownCall(page.qualifiedName, page.overloads[i])));
    if (count < page.overloads.size())
        text += " and " + std::to_string(page.overloads.size() - count) + " more";
    m_findings.add(isAmbiguous ? "ambiguous-link" : "dead-link", m_pages.recordOf(from), link.place, std::move(text));
}

void LinkResolver::reportNoAnchor(PageId from, PageId to, std::string_view anchor, const RecordLink &link)
{
    m_findings.add("dead-anchor", m_pages.recordOf(from), link.place,
                   "page " + inQuotes(m_pages.page(to).stem) + " has no heading with the id " + inQuotes(anchor));
}

void LinkResolver::reportDead(PageId from, const RecordLink &link, std::string_view target)
{
    std::string text;
    if (link.kind == RecordLink::Kind::Raw)
        text = inQuotes(target) + " is neither a page nor an asset";
    else
        text = "no page, title or declaration is named " + inQuotes(target);
    if (const std::string near = m_finder.knownNameNear(target); !near.empty())
        text += "; did you mean " + inQuotes(near) + '?';
    m_findings.add("dead-link", m_pages.recordOf(from), link.place, std::move(text));
}

} // namespace tavidoc
