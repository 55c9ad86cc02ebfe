#pragma once

#include "site/link/page_finder.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tavidoc {

/// An entry of the contents of the whole set, by its place in them.
using NodeId = std::uint32_t;
inline constexpr NodeId s_noNode = 0xffffffff;

/// An entry of the contents of the whole set.
struct ContentsNode
{
    NodeId parent = s_noNode;   ///< s_noNode at the top
    std::uint32_t depth = 0;    ///< 0 at the top
    PageId page = s_noPage;     ///< s_noPage for an entry without a page
    std::uint32_t record = 0;   ///< that has the entry
    std::uint32_t entry = 0;    ///< in its contents; s_noEntry for a page that is in no entry
    std::uint32_t position = 0; ///< among the children of the parent, from 0
};

/// The joined contents of all records: entries that include the contents of another input are replaced by them,
/// documents that nobody includes follow each other, and pages without an entry hang below their document. Members hang
/// below the declaration that they follow.
class ContentsTree
{
public:
    static constexpr std::uint32_t s_noEntry = 0xffffffff;

    /// Reports `missing-page`, `missing-include` and `contents-cycle`. Refers to \a pages for its whole life.
    ContentsTree(const PageSet &pages, PageFinder &finder, FindingList &findings);

    /// All entries in the order in which they are read.
    [[nodiscard]] const std::vector<ContentsNode> &nodes() const { return m_nodes; }
    /// The entries below \a node; those at the top for s_noNode.
    [[nodiscard]] std::span<const NodeId> children(NodeId node) const;
    /// The place of \a page: the entry in its own document if it has one. s_noNode for a page that is not written.
    [[nodiscard]] NodeId nodeOf(PageId page) const { return m_nodeOfPage[page]; }
    /// Whether \a page is in an entry and not just below its document.
    [[nodiscard]] bool hasEntry(PageId page) const { return m_hasEntry[page]; }
    /// The entry at the top that \a node is below.
    [[nodiscard]] NodeId outermost(NodeId node) const;
    /// The title of an entry, plain text. Not empty.
    [[nodiscard]] std::string_view title(NodeId node) const;

private:
    friend class ContentsJoin;

    void nestMembers();
    [[nodiscard]] std::string_view nameOf(const ContentsNode &node) const;
    void linkChildren();
    void choosePlaces();

    const PageSet &m_pages;
    std::vector<ContentsNode> m_nodes;
    std::vector<std::uint32_t> m_firstChild; // in m_children, by node id + 1; the top is 0; and the count of all
    std::vector<NodeId> m_children;
    std::vector<NodeId> m_nodeOfPage;
    std::vector<bool> m_hasEntry; // by page
};

} // namespace tavidoc
