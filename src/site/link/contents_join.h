#pragma once

#include "site/link/contents_tree.h"
#include "site/link/included_records.h"

#include <cstdint>
#include <vector>

namespace tavidoc {

/// Makes the entries of a contents tree. However deep contents include each other, it keeps its own stack.
class ContentsJoin
{
public:
    ContentsJoin(ContentsTree &tree, const PageSet &pages, PageFinder &finder, FindingList &findings);

    void run();

private:
    /// A document whose contents are being joined.
    struct Frame
    {
        std::uint32_t record = 0;
        std::uint32_t next = 0;          ///< entry
        NodeId parent = s_noNode;        ///< of its entries at the top
        std::uint32_t levelsLeftOut = 0; ///< 1 when its only top entry gives way to its children
        NodeId document = s_noNode;      ///< its first entry at the top: pages without an entry hang below it
        bool hasHungPages = false;       ///< those pages were added
        std::vector<NodeId> open;        ///< of each level the node below which entries of the next one hang
    };

    void findTargets();
    void joinFrom(std::uint32_t root);
    void enter(std::uint32_t record, NodeId parent, bool noRoot);
    void join(Frame &frame);
    void joinInclude(const RecordEntry &entry, std::uint32_t target, std::uint32_t record, NodeId parent);
    void addHungPages(Frame &frame);
    NodeId addNode(NodeId parent, PageId page, std::uint32_t record, std::uint32_t entry);
    [[nodiscard]] std::vector<std::uint32_t> roots() const;
    [[nodiscard]] std::span<const std::uint32_t> targetsOf(std::uint32_t record) const;

    ContentsTree &m_tree;
    const PageSet &m_pages;
    const std::vector<Record> &m_records;
    PageFinder &m_finder;
    FindingList &m_findings;
    IncludedRecords m_included;

    std::vector<std::size_t> m_firstTarget; // of each record, in m_targets
    std::vector<std::uint32_t> m_targets;   // of each entry of each record: its page, or the record it includes
    std::vector<Frame> m_frames;            // documents that include each other
    std::vector<bool> m_isOpen;             // by record: it is in m_frames
    std::vector<bool> m_isJoined;           // by record
};

} // namespace tavidoc
