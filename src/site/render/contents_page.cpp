#include "site/render/shared_pages.h"

#include "site/render/navigation.h"
#include "site/render/page_text.h"

namespace tavidoc {

namespace {

constexpr std::string_view s_address = "contents.htm";
constexpr std::size_t s_foldedFrom = 100; // entries: a longer list shows only the upper two levels unfolded

/// Writes the tree. An entry with children is folded in a large tree, so lists are closed with what encloses them.
class ContentsTree
{
public:
    explicit ContentsTree(const std::vector<ContentsEntry> &entries) : m_entries(entries) {}

    std::string html() &&
    {
        for (std::size_t index = 0; index < m_entries.size(); ++index)
            entry(index);
        closeTo(0);
        return std::move(m_html);
    }

private:
    void entry(std::size_t index);
    void closeTo(std::size_t listCount);

    const std::vector<ContentsEntry> &m_entries;
    std::string m_html;
    std::vector<bool> m_isFolded; // of the open lists
    ParentTitles m_parents;
};

void ContentsTree::entry(std::size_t index)
{
    const ContentsEntry &entry = m_entries[index];
    // Depths come from a file: one that jumps down counts as one more.
    const std::size_t lists = std::min<std::size_t>(entry.depth, m_isFolded.size()) + 1;
    closeTo(lists);
    if (m_isFolded.size() < lists) {
        m_html += "<ul>\n";
        m_isFolded.push_back(false);
    }
    const bool hasChildren = index + 1 < m_entries.size() && m_entries[index + 1].depth > entry.depth;
    const bool isFolded = hasChildren && m_entries.size() > s_foldedFrom;
    m_html += "<li>";
    if (isFolded)
        m_html += entry.depth == 0 ? "<details open><summary>" : "<details><summary>";
    const std::string_view parent = m_parents.enter(lists, entry.target.title);
    appendLink(m_html, s_address, {std::string(titleBelow(entry.target.title, parent)), entry.target.address});
    if (isFolded)
        m_html += "</summary>";
    if (hasChildren) {
        m_html += "\n<ul>\n";
        m_isFolded.push_back(isFolded);
    } else {
        m_html += "</li>\n";
    }
}

/// Closes lists until \a listCount are open.
void ContentsTree::closeTo(std::size_t listCount)
{
    while (m_isFolded.size() > listCount) {
        m_html += m_isFolded.back() ? "</ul></details></li>\n" : m_isFolded.size() > 1 ? "</ul></li>\n" : "</ul>\n";
        m_isFolded.pop_back();
    }
}

} // namespace

void renderContentsPage(const SharedLinks &shared, const FileSink &sink)
{
    const std::string body =
        "<h1>All pages</h1>\n<div class=\"tree\">\n" + ContentsTree(shared.contents).html() + "</div>";
    renderOwnPage(shared, {"All pages", std::string(s_address)}, body, sink);
}

} // namespace tavidoc
