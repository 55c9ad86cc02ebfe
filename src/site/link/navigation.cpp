#include "site/link/navigation.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

const std::string s_wholeContents = "contents.htm";
const std::string s_ellipsis = "\u2026";

/// The part of \a count entries around \a middle that has at most \a most of them.
std::pair<std::size_t, std::size_t> windowAround(std::size_t middle, std::size_t count, std::size_t most)
{
    const std::size_t size = std::min(count, most);
    const std::size_t begin = std::min(middle - std::min(middle, size / 2), count - size);
    return {begin, begin + size};
}

} // namespace

Navigation::Navigation(const PageSet &pages, const ContentsTree &tree)
    : m_pages(pages), m_tree(tree), m_positions(pages.count())
{
    m_sequence.reserve(pages.count());
    for (NodeId node = 0; node < tree.nodes().size(); ++node) {
        const PageId page = tree.nodes()[node].page;
        if (page == s_noPage || tree.nodeOf(page) != node)
            continue;
        m_positions[page] = static_cast<std::uint32_t>(m_sequence.size());
        m_sequence.push_back(page);
    }
}

LinkTarget Navigation::targetOf(NodeId node) const
{
    const PageId page = m_tree.nodes()[node].page;
    return {std::string(m_tree.title(node)), page == s_noPage ? std::string() : m_pages.address(page)};
}

std::string Navigation::firstPage() const
{
    return m_sequence.empty() ? std::string() : m_pages.address(m_sequence.front());
}

void Navigation::fill(PageLinks &links, PageId page) const
{
    const NodeId node = m_tree.nodeOf(page);
    const std::vector<NodeId> ancestors = ancestorsOf(node);
    links.ancestors.reserve(ancestors.size());
    links.navigation.reserve(ancestors.size() + s_mostEntries + 4);
    for (std::uint32_t depth = 0; depth < ancestors.size(); ++depth) {
        if (ancestors[depth] == s_noNode) {
            links.ancestors.push_back({s_ellipsis, s_wholeContents});
            addGap(links.navigation, s_noNode, depth);
            continue;
        }
        links.ancestors.push_back(targetOf(ancestors[depth]));
        links.navigation.push_back({links.ancestors.back(), depth, false, true, false});
    }
    addEntries(links.navigation, node, static_cast<std::uint32_t>(ancestors.size()));
    const std::uint32_t position = m_positions[page];
    if (position > 0)
        links.previous = targetOf(m_tree.nodeOf(m_sequence[position - 1]));
    if (position + 1 < m_sequence.size())
        links.next = targetOf(m_tree.nodeOf(m_sequence[position + 1]));
}

std::vector<NodeId> Navigation::ancestorsOf(NodeId node) const
{
    const std::size_t count = m_tree.nodes()[node].depth;
    std::vector<NodeId> ancestors;
    ancestors.reserve(std::min(count, s_mostAncestors + 1));
    NodeId ancestor = m_tree.nodes()[node].parent;
    const std::size_t nearest = count > s_mostAncestors ? s_mostAncestors - 1 : count;
    for (std::size_t i = 0; i < nearest; ++i) {
        ancestors.push_back(ancestor);
        ancestor = m_tree.nodes()[ancestor].parent;
    }
    if (nearest < count) {
        ancestors.push_back(s_noNode);
        ancestors.push_back(m_tree.outermost(node));
    }
    std::ranges::reverse(ancestors);
    return ancestors;
}

/// Adds the siblings of \a node, itself among them, and its children below it. Children get at least half of the
/// entries, as far as there are so many.
void Navigation::addEntries(std::vector<NavigationEntry> &entries, NodeId node, std::uint32_t depth) const
{
    const ContentsNode &current = m_tree.nodes()[node];
    const std::span<const NodeId> siblings = m_tree.children(current.parent);
    const std::span<const NodeId> children = m_tree.children(node);
    const std::size_t others = siblings.size() - 1;
    const std::size_t childCount =
        std::min(children.size(), std::max(s_mostEntries / 2, s_mostEntries - std::min(others, s_mostEntries)));
    const auto [begin, end] = windowAround(current.position, siblings.size(), s_mostEntries - childCount + 1);
    if (begin > 0)
        addGap(entries, current.parent, depth);
    for (std::size_t i = begin; i < end; ++i) {
        entries.push_back({targetOf(siblings[i]), depth, siblings[i] == node, false, false});
        if (siblings[i] != node)
            continue;
        for (const NodeId child : children.first(childCount))
            entries.push_back({targetOf(child), depth + 1, false, false, false});
        if (childCount < children.size())
            addGap(entries, s_noNode, depth + 1);
    }
    if (end < siblings.size())
        addGap(entries, current.parent, depth);
}

/// Adds an entry that stands for entries below \a parent that are left out.
void Navigation::addGap(std::vector<NavigationEntry> &entries, NodeId parent, std::uint32_t depth) const
{
    const PageId page = parent == s_noNode ? s_noPage : m_tree.nodes()[parent].page;
    const std::string &address = page == s_noPage ? s_wholeContents : m_pages.address(page);
    entries.push_back({{s_ellipsis, address}, depth, false, false, true});
}

} // namespace tavidoc
