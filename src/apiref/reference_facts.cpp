#include "apiref/reference_pages.h"

#include "base/text_escape.h"
#include "sourcebrowser/members.h"

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

/// Notes the arguments of \a object if it is a function, with the offset of its \a heading in the page text if it has
/// one.
void ReferencePages::tellOverload(const SourceBrowserObject &object, std::optional<std::size_t> heading)
{
    const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
    if (method == nullptr)
        return;
    DocumentOverload overload;
    for (const SourceBrowserArgument &argument : method->arguments()) {
        const SourceBrowserType &type = argument.type;
        QString parameter = type.text;
        parameter.insert(type.hasInsertion() ? type.insertion : parameter.size(), u' ' + argument.name);
        overload.types.push_back(type.text.toStdString());
        overload.parameters.push_back(parameter.toStdString());
    }
    overload.qualifiers = m_source->signature(*method).qualifiers.toStdString();
    overload.hasHeading = heading.has_value();
    overload.heading = heading.value_or(0);
    m_facts->addOverload(std::move(overload));
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

/// Tells about the contents file. Its lines are sorted by page, so that a class comes before its members: the suffix does
/// not count, unlike in the file.
void ReferencePages::tellContents()
{
    DocumentListener &listener = m_facts->listener();
    const std::vector<std::string> &lines = m_surroundings.contents.lines();
    std::vector<std::pair<std::string_view, DocumentPlace>> sorted;
    for (std::size_t index = 0; index < lines.size(); ++index)
        sorted.emplace_back(lines[index], m_facts->contentsPlace(index));
    const auto withoutSuffix = [](const auto &entry) { return entry.first.substr(0, entry.first.rfind(".htm")); };
    std::ranges::stable_sort(sorted, {}, withoutSuffix);
    listener.contentsLine("<content url=\"" + escapedText(m_header.baseName().toStdString()) + "_h.htm\">", place(1));
    for (const auto &[line, linePlace] : sorted)
        listener.contentsLine(line, linePlace);
    listener.contentsLine("</content>", place(1));
}

} // namespace tavidoc
