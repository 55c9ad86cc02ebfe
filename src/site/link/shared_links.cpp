#include "site/link/shared_links.h"

#include "site/link/page_names.h"

#include <algorithm>

namespace tavidoc {

namespace {

char foldedCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

/// The order of an index: without regard to case first.
int compareNames(std::string_view left, std::string_view right)
{
    const std::size_t size = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < size; ++i) {
        const auto a = static_cast<unsigned char>(foldedCase(left[i]));
        const auto b = static_cast<unsigned char>(foldedCase(right[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left.size() == right.size() ? left.compare(right) : left.size() < right.size() ? -1 : 1;
}

std::vector<ContentsEntry> wholeContents(const ContentsTree &tree, const Navigation &navigation)
{
    std::vector<ContentsEntry> contents;
    contents.reserve(tree.nodes().size());
    for (NodeId node = 0; node < tree.nodes().size(); ++node)
        contents.push_back({navigation.targetOf(node), tree.nodes()[node].depth});
    return contents;
}

/// The name of \a page in the index: without the scopes around a declaration.
std::string_view indexName(const PageSet &pages, PageId page)
{
    const RecordPage &named = pages.page(page);
    if (named.kind != RecordPageKind::Declaration || named.qualifiedName.empty())
        return pages.title(page);
    const std::string_view name = named.qualifiedName;
    const std::size_t separator = name.rfind("::");
    return separator == std::string_view::npos || separator + 2 == name.size() ? name : name.substr(separator + 2);
}

std::string kindOf(const RecordPage &page)
{
    if (page.kind == RecordPageKind::Declaration && !page.declaration.empty())
        return page.declaration;
    return page.kind == RecordPageKind::Header ? "header" : "page";
}

/// What holds \a page: the nearest entry above it in the contents that has a page, else the title of its document.
LinkTarget ownerOf(const PageSet &pages, const ContentsTree &tree, PageId page)
{
    const NodeId above = tree.nodes()[tree.nodeOf(page)].parent;
    if (above != s_noNode && tree.nodes()[above].page != s_noPage)
        return {std::string(tree.title(above)), pages.address(tree.nodes()[above].page)};
    return {pages.records()[pages.recordOf(page)].title, {}};
}

/// The first eight bytes of \a text, capitals as small letters, so that most comparisons are those of numbers.
std::uint64_t foldedPrefix(std::string_view text)
{
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < sizeof(prefix); ++i)
        prefix = prefix << 8 | (i < text.size() ? static_cast<unsigned char>(foldedCase(text[i])) : 0U);
    return prefix;
}

std::vector<NameEntry> indexOfNames(const PageSet &pages, const ContentsTree &tree)
{
    struct Row
    {
        std::uint64_t prefix;
        std::string_view name;
        PageId page;
    };
    std::vector<Row> order;
    order.reserve(pages.count());
    for (PageId page = 0; page < pages.count(); ++page) {
        const std::string_view name = indexName(pages, page);
        if (pages.isWritten(page))
            order.push_back({foldedPrefix(name), name, page});
    }
    std::ranges::sort(order, [](const Row &left, const Row &right) {
        if (left.prefix != right.prefix)
            return left.prefix < right.prefix;
        const int names = compareNames(left.name, right.name);
        return names != 0 ? names < 0 : left.page < right.page;
    });
    std::vector<NameEntry> names;
    names.reserve(order.size());
    for (const auto &[prefix, name, page] : order) {
        names.push_back({std::string(name), kindOf(pages.page(page)), ownerOf(pages, tree, page), pages.address(page),
                         pages.page(page).qualifiedName});
    }
    return names;
}

std::vector<std::string> sortedAddresses(const PageSet &pages)
{
    std::vector<std::string_view> sorted;
    sorted.reserve(pages.count());
    for (PageId page = 0; page < pages.count(); ++page) {
        if (pages.isWritten(page))
            sorted.push_back(pages.address(page));
    }
    std::ranges::sort(sorted);
    return {sorted.begin(), sorted.end()};
}

class Redirects
{
public:
    Redirects(const PageSet &pages, const SiteSettings &settings, FindingList &findings)
        : m_pages(pages), m_settings(settings), m_findings(findings)
    {
    }

    /// The redirects that work, from encoded stem to encoded stem.
    [[nodiscard]] std::map<std::string, std::string> working()
    {
        std::map<std::string, std::string> result;
        for (const auto &[from, to] : m_settings.redirects) {
            const std::string address = pageAddress({}, withoutPageSuffix(from));
            if (m_pages.atAddress(address) != s_noPage || isSitePage(address)) {
                report("duplicate-page", from, "redirect from " + inQuotes(from) + ": there is a page of this name");
                continue;
            }
            if (std::string target = targetOf(to); !target.empty())
                result.emplace(withoutPageSuffix(address), std::move(target));
            else
                report("dead-link", from,
                       "redirect from " + inQuotes(from) + " to " + inQuotes(to) + ", which does not exist");
        }
        return result;
    }

private:
    [[nodiscard]] std::string targetOf(const std::string &name) const
    {
        const PageId page = m_pages.named({}, withoutPageSuffix(name));
        return page == s_noPage ? std::string() : std::string(withoutPageSuffix(m_pages.address(page)));
    }

    void report(std::string_view check, const std::string &from, std::string text)
    {
        const auto place = m_settings.redirectPlaces.find(from);
        m_findings.addInProject(check, m_settings.projectFile,
                                place == m_settings.redirectPlaces.end() ? ProjectPlace() : place->second,
                                std::move(text));
    }

    const PageSet &m_pages;
    const SiteSettings &m_settings;
    FindingList &m_findings;
};

} // namespace

SharedLinks sharedLinks(const PageSet &pages, const ContentsTree &tree, const Navigation &navigation,
                        const SiteSettings &settings, FindingList &findings)
{
    SharedLinks shared;
    shared.settings = settings;
    shared.settings.redirects = Redirects(pages, settings, findings).working();
    shared.settings.inventories.clear(); // their names are in the links
    shared.settings.redirectPlaces.clear();
    shared.settings.projectFile.clear(); // depends on where the build was started
    shared.contents = wholeContents(tree, navigation);
    shared.names = indexOfNames(pages, tree);
    shared.addresses = sortedAddresses(pages);
    shared.firstPage = navigation.firstPage();
    return shared;
}

} // namespace tavidoc
