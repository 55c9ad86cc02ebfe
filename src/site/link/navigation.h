#pragma once

#include "site/link/contents_tree.h"
#include "site/link/link_data.h"

#include <span>
#include <vector>

namespace tavidoc {

/// What a page shows of the contents tree: where it is in it, its neighbours, and a bounded part around it.
class Navigation
{
public:
    static constexpr std::size_t s_mostEntries = 30;   ///< siblings and children, without the page itself
    static constexpr std::size_t s_mostAncestors = 16; ///< of deeper pages the outermost and the nearest ones

    /// Refers to \a pages and \a tree for its whole life.
    Navigation(const PageSet &pages, const ContentsTree &tree);

    /// Fills in ancestors, navigation, previous and next of \a page, which is written.
    void fill(PageLinks &links, PageId page) const;

    /// The title and address of \a node.
    [[nodiscard]] LinkTarget targetOf(NodeId node) const;
    /// The address of the first page of the contents; empty when there is none.
    [[nodiscard]] std::string firstPage() const;

private:
    /// Ancestors from the outermost to the nearest; s_noNode stands for those left out.
    [[nodiscard]] std::vector<NodeId> ancestorsOf(NodeId node) const;
    void addEntries(std::vector<NavigationEntry> &entries, NodeId node, std::uint32_t depth) const;
    void addGap(std::vector<NavigationEntry> &entries, NodeId parent, std::uint32_t depth) const;

    const PageSet &m_pages;
    const ContentsTree &m_tree;
    std::vector<PageId> m_sequence;         // all pages in the order in which they are read
    std::vector<std::uint32_t> m_positions; // of each page in it
};

} // namespace tavidoc
