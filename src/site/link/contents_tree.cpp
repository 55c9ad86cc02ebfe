#include "site/link/contents_tree.h"

#include "site/link/contents_join.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

bool isMember(std::string_view name, std::string_view scope)
{
    return name.starts_with(scope) && name.substr(scope.size()).starts_with("::");
}

} // namespace

ContentsTree::ContentsTree(const PageSet &pages, PageFinder &finder, FindingList &findings) : m_pages(pages)
{
    ContentsJoin(*this, pages, finder, findings).run();
    nestMembers();
    linkChildren();
    choosePlaces();
}

/// Headers list what they declare one after the other. Here members hang below the class or namespace that they follow,
/// so the order stays.
void ContentsTree::nestMembers()
{
    struct Scope
    {
        NodeId node;
        std::uint32_t depth; ///< in the list
    };
    std::vector<Scope> scopes; // the declarations before the current one that it may be a member of
    for (NodeId id = 0; id < m_nodes.size(); ++id) {
        ContentsNode &node = m_nodes[id];
        const std::string_view name = nameOf(node);
        const auto isOutside = [&](const Scope &scope) {
            return scope.depth > node.depth ||
                   (scope.depth == node.depth && !isMember(name, nameOf(m_nodes[scope.node])));
        };
        while (!scopes.empty() && isOutside(scopes.back()))
            scopes.pop_back();
        const std::uint32_t depth = node.depth;
        if (!scopes.empty() && scopes.back().depth == depth)
            node.parent = scopes.back().node;
        node.depth = node.parent == s_noNode ? 0 : m_nodes[node.parent].depth + 1;
        if (!name.empty())
            scopes.push_back({id, depth});
    }
}

/// The qualified name of the declaration on the page of \a node; empty for other pages.
std::string_view ContentsTree::nameOf(const ContentsNode &node) const
{
    const bool isDeclaration = node.page != s_noPage && m_pages.page(node.page).kind == RecordPageKind::Declaration;
    return isDeclaration ? std::string_view(m_pages.page(node.page).qualifiedName) : std::string_view();
}

void ContentsTree::linkChildren()
{
    m_firstChild.assign(m_nodes.size() + 2, 0);
    const auto indexOf = [](NodeId parent) { return parent == s_noNode ? 0 : parent + 1; };
    for (const ContentsNode &node : m_nodes)
        ++m_firstChild[indexOf(node.parent) + 1];
    for (std::size_t i = 1; i < m_firstChild.size(); ++i)
        m_firstChild[i] += m_firstChild[i - 1];
    m_children.resize(m_nodes.size());
    std::vector<std::uint32_t> counts(m_nodes.size() + 1);
    for (NodeId id = 0; id < m_nodes.size(); ++id) {
        ContentsNode &node = m_nodes[id];
        const NodeId index = indexOf(node.parent);
        node.position = counts[index]++;
        m_children[m_firstChild[index] + node.position] = id;
    }
}

/// A page may be in several entries: that of its own document counts, else the first one.
void ContentsTree::choosePlaces()
{
    m_nodeOfPage.assign(m_pages.count(), s_noNode);
    for (NodeId id = 0; id < m_nodes.size(); ++id) {
        const ContentsNode &node = m_nodes[id];
        if (node.page == s_noPage)
            continue;
        NodeId &place = m_nodeOfPage[node.page];
        const std::uint32_t home = m_pages.recordOf(node.page);
        if (place == s_noNode || (node.record == home && m_nodes[place].record != home))
            place = id;
    }
}

std::span<const NodeId> ContentsTree::children(NodeId node) const
{
    const std::size_t index = node == s_noNode ? 0 : node + 1;
    return std::span(m_children).subspan(m_firstChild[index], m_firstChild[index + 1] - m_firstChild[index]);
}

NodeId ContentsTree::outermost(NodeId node) const
{
    const std::span<const NodeId> top = children(s_noNode); // in their order, each before what is below it
    return *std::prev(std::ranges::upper_bound(top, node));
}

std::string_view ContentsTree::title(NodeId node) const
{
    const ContentsNode &shown = m_nodes[node];
    const RecordEntry *entry =
        shown.entry == s_noEntry ? nullptr : &m_pages.records()[shown.record].contents[shown.entry];
    if (entry && !entry->title.empty())
        return entry->title;
    if (shown.page != s_noPage)
        return m_pages.title(shown.page);
    return entry->target.empty() ? std::string_view("?") : std::string_view(entry->target);
}

} // namespace tavidoc
