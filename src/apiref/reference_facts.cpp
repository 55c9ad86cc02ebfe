#include "apiref/reference_pages.h"

#include "base/text_escape.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tavidoc {

/// Notes the links of the summary, whose rows are at \a rows of the page text, and what the descriptions contain.
void ReferencePages::tellSummary(const std::vector<MemberGroups::Group> &groups, const std::vector<IndexRowPlace> &rows)
{
    auto row = rows.begin();
    for (const MemberGroups::Group &group : groups) {
        for (const std::string &stem : group.pages) {
            const Finished &page = m_finished.find(stem)->second;
            m_facts->addLink({.kind = DocumentLink::Kind::InDocument,
                              .hasCaption = true,
                              .offset = row->link,
                              .length = row->linkLength,
                              .target = page.name,
                              .page = stem,
                              .place = place(page.line)});
            m_facts->addCopy(page.facts, row->description);
            ++row;
        }
    }
}

/// Tells about the header's own page, which is in the page text.
void ReferencePages::tellHeaderPage(const std::string &stem, const std::string &title, const DocumentPlace &place)
{
    m_facts->finish({.kind = DocumentPageKind::Header,
                     .stem = stem,
                     .title = m_pages.title().empty() ? title : m_pages.title(),
                     .place = place,
                     .body = m_blocks.text()});
}

/// Tells about the contents file, whose lines are sorted.
void ReferencePages::tellContents()
{
    DocumentListener &listener = m_facts->listener();
    const std::vector<std::string> &lines = m_surroundings.contents.lines();
    std::vector<std::pair<std::string_view, DocumentPlace>> sorted;
    for (std::size_t index = 0; index < lines.size(); ++index)
        sorted.emplace_back(lines[index], m_facts->contentsPlace(index));
    std::ranges::stable_sort(sorted, {}, &std::pair<std::string_view, DocumentPlace>::first);
    listener.contentsLine("<content url=\"" + escapedText(m_header.baseName().toStdString()) + "_h.htm\">", place(1));
    for (const auto &[line, linePlace] : sorted)
        listener.contentsLine(line, linePlace);
    listener.contentsLine("</content>", place(1));
}

} // namespace tavidoc
