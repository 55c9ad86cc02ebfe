#include "site/link/contents_join.h"

#include <algorithm>
#include <span>

namespace tavidoc {

ContentsJoin::ContentsJoin(ContentsTree &tree, const PageSet &pages, PageFinder &finder, FindingList &findings)
    : m_tree(tree), m_pages(pages), m_records(pages.records()), m_finder(finder), m_findings(findings),
      m_included(pages), m_isOpen(m_records.size()), m_isJoined(m_records.size())
{
}

void ContentsJoin::run()
{
    m_tree.m_hasEntry.assign(m_pages.count(), false);
    m_tree.m_nodes.reserve(m_pages.count());
    findTargets();
    for (const std::uint32_t root : roots())
        joinFrom(root);
}

/// Finds what the entries of all records lead to, and so which pages are in no entry.
void ContentsJoin::findTargets()
{
    m_firstTarget.reserve(m_records.size() + 1);
    for (std::uint32_t record = 0; record < m_records.size(); ++record) {
        const Record &owner = m_records[record];
        m_firstTarget.push_back(m_targets.size());
        for (const RecordEntry &entry : owner.contents) {
            if (includesContents(entry)) {
                m_targets.push_back(m_included.find(entry.target, record));
                continue;
            }
            PageId page = s_noPage;
            if (entry.kind == RecordEntry::Kind::Page)
                page = m_pages.named(owner.folder, entry.target);
            if (page == s_noPage && entry.kind != RecordEntry::Kind::Title)
                page = m_finder.findNamed(entry.target, {record, {}, entry.place}).page;
            m_targets.push_back(page);
            if (page != s_noPage)
                m_tree.m_hasEntry[page] = true;
        }
    }
    m_firstTarget.push_back(m_targets.size());
}

std::span<const std::uint32_t> ContentsJoin::targetsOf(std::uint32_t record) const
{
    return std::span(m_targets).subspan(m_firstTarget[record], m_firstTarget[record + 1] - m_firstTarget[record]);
}

/// The records that no other one includes, and of records that include each other in a circle the first.
std::vector<std::uint32_t> ContentsJoin::roots() const
{
    std::vector<bool> isIncluded(m_records.size());
    const auto forIncluded = [this](std::uint32_t record, auto &&function) {
        for (std::size_t entry = 0; entry < m_records[record].contents.size(); ++entry) {
            const std::uint32_t target = targetsOf(record)[entry];
            if (includesContents(m_records[record].contents[entry]) && target != IncludedRecords::s_none)
                function(target);
        }
    };
    for (std::uint32_t record = 0; record < m_records.size(); ++record) {
        forIncluded(record, [&](std::uint32_t target) {
            if (target != record)
                isIncluded[target] = true;
        });
    }
    std::vector<bool> isReached(m_records.size());
    std::vector<std::uint32_t> result;
    std::vector<std::uint32_t> pending;
    const auto reachFrom = [&](std::uint32_t root) {
        result.push_back(root);
        isReached[root] = true;
        pending.assign(1, root);
        while (!pending.empty()) {
            const std::uint32_t record = pending.back();
            pending.pop_back();
            forIncluded(record, [&](std::uint32_t target) {
                if (!isReached[target])
                    pending.push_back(target);
                isReached[target] = true;
            });
        }
    };
    for (const bool withCircles : {false, true}) {
        for (std::uint32_t record = 0; record < m_records.size(); ++record) {
            if (withCircles ? !isReached[record] : !isIncluded[record])
                reachFrom(record);
        }
    }
    std::ranges::sort(result);
    return result;
}

void ContentsJoin::joinFrom(std::uint32_t root)
{
    enter(root, s_noNode, false);
    while (!m_frames.empty()) {
        Frame &frame = m_frames.back();
        if (frame.next < m_records[frame.record].contents.size()) {
            join(frame);
            continue;
        }
        addHungPages(frame);
        m_isOpen[frame.record] = false;
        m_frames.pop_back();
    }
}

void ContentsJoin::enter(std::uint32_t record, NodeId parent, bool noRoot)
{
    const std::vector<RecordEntry> &contents = m_records[record].contents;
    const bool dropsRoot = noRoot && !contents.empty() && contents.front().kind == RecordEntry::Kind::Title &&
                           std::ranges::count(contents, 0U, &RecordEntry::depth) == 1;
    m_isOpen[record] = true;
    m_isJoined[record] = true;
    Frame &frame = m_frames.emplace_back();
    frame.record = record;
    frame.parent = parent;
    frame.next = dropsRoot ? 1 : 0;
    frame.levelsLeftOut = dropsRoot ? 1 : 0;
}

/// Adds the next entry of \a frame, or enters the document that it includes: then \a frame is gone.
void ContentsJoin::join(Frame &frame)
{
    const std::uint32_t record = frame.record;
    const std::uint32_t index = frame.next;
    const RecordEntry &entry = m_records[record].contents[index];
    const std::uint32_t target = targetsOf(record)[index];
    const std::size_t level =
        std::min<std::size_t>(std::max(entry.depth, frame.levelsLeftOut) - frame.levelsLeftOut, frame.open.size());
    if (level == 0 && frame.document != s_noNode)
        addHungPages(frame);
    ++frame.next;
    frame.open.resize(level);
    const NodeId parent = level == 0 ? frame.parent : frame.open.back();
    if (includesContents(entry)) {
        frame.open.push_back(parent);
        joinInclude(entry, target, record, parent);
        return;
    }
    if (target == s_noPage && entry.kind != RecordEntry::Kind::Title) {
        m_findings.add("missing-page", record, entry.place,
                       "the contents have an entry for page " + inQuotes(entry.target) + ", which does not exist");
    }
    const NodeId node = addNode(parent, target, record, index);
    frame.open.push_back(node);
    if (level == 0 && frame.document == s_noNode)
        frame.document = node;
}

void ContentsJoin::joinInclude(const RecordEntry &entry, std::uint32_t target, std::uint32_t record, NodeId parent)
{
    if (target == IncludedRecords::s_none) {
        m_findings.add("missing-include", record, entry.place,
                       "contents " + inQuotes(entry.target) + ": no input of this name, or several, in the set");
    } else if (m_isOpen[target]) {
        m_findings.add("contents-cycle", record, entry.place,
                       "contents " + inQuotes(entry.target) + " include themselves");
    } else if (m_isJoined[target]) {
        m_findings.add("contents-cycle", record, entry.place,
                       "contents " + inQuotes(entry.target) + " are included already");
    } else {
        enter(target, parent, entry.noRoot);
    }
}

void ContentsJoin::addHungPages(Frame &frame)
{
    if (frame.hasHungPages)
        return;
    frame.hasHungPages = true;
    const NodeId parent = frame.document == s_noNode ? frame.parent : frame.document;
    for (PageId page = m_pages.firstPage(frame.record); page < m_pages.firstPage(frame.record + 1); ++page) {
        if (m_pages.isWritten(page) && !m_tree.m_hasEntry[page])
            addNode(parent, page, frame.record, ContentsTree::s_noEntry);
    }
}

NodeId ContentsJoin::addNode(NodeId parent, PageId page, std::uint32_t record, std::uint32_t entry)
{
    std::vector<ContentsNode> &nodes = m_tree.m_nodes;
    const std::uint32_t depth = parent == s_noNode ? 0 : nodes[parent].depth + 1;
    nodes.push_back({parent, depth, page, record, entry, 0});
    return static_cast<NodeId>(nodes.size() - 1);
}

} // namespace tavidoc
