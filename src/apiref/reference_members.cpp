#include "apiref/comment_findings.h"
#include "apiref/comment_markup.h"
#include "apiref/member_tables.h"
#include "apiref/reference_pages.h"
#include "apiref/reference_text.h"
#include "base/text_escape.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_longestArguments = 80; // in a table, in bytes

/// \a name as a part of an id that needs no escapes in an address.
std::string anchorName(std::string_view name)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        if (isPlain)
            text += c;
        else
            text.append("~").append(1, digits[byte / 16]).append(1, digits[byte % 16]);
    }
    return text;
}

/// What follows the name of a member in a table.
std::string shortened(const std::string &after)
{
    return after.size() > s_longestArguments ? "(\u2026)" : after;
}

/// The names of the enumerator \a name of \a enumeration. Outside a scoped enumeration it is known in the scope around, too.
DocumentMember enumeratorNames(const SourceBrowserEnum &enumeration, const QString &name)
{
    const std::string outer = qualifiedByColons(enumeration.scope(), name.toStdString());
    const bool hasName = enumeration.name() != SourceBrowserContainer::anonymousName();
    const bool isScoped = enumeration.form() == SourceBrowserObject::Form::ScopedEnumeration;
    return {.kind = "enumerator",
            .qualifiedName = hasName ? qualifiedByColons(enumeration.qualifiedName(), name.toStdString()) : outer,
            .outerName = hasName && !isScoped ? outer : std::string()};
}

} // namespace

/// Appends tables of the documented members and friends of \a container: those with a page, and members with a comment
/// after them.
void ReferencePages::appendMembers(const SourceBrowserContainer &container)
{
    std::vector<const SourceBrowserObject *> members = visibleMembers(container);
    std::erase_if(members, [this](const SourceBrowserObject *member) {
        return !m_byObject.contains(member) && member->trailingComment().isEmpty();
    });
    std::vector<MemberSection> sections = memberSections(container, members, *m_source);
    std::vector<const SourceBrowserObject *> friends = m_source->friends(container);
    std::erase_if(friends, [this](const SourceBrowserObject *each) { return !m_byObject.contains(each); });
    if (!friends.empty())
        sections.push_back({"Friends", std::move(friends)});
    for (const MemberSection &section : sections) {
        m_blocks.text().append("<h3>").append(section.title).append("</h3>\n<table class=\"members\">\n");
        for (const SourceBrowserObject *const member : section.members)
            appendMember(container, *member);
        m_blocks.text() += "</table>\n";
    }
}

/// Appends the row of \a member, a member or a friend of \a container. Its name is a link if it has a page.
void ReferencePages::appendMember(const SourceBrowserContainer &container, const SourceBrowserObject &member)
{
    const auto found = m_byObject.find(&member);
    const Documented *const page = found == m_byObject.end() ? nullptr : found->second;
    const MemberCaption caption = memberCaption(member, *m_source);
    std::string &text = m_blocks.text();
    std::optional<DocumentMember> row;
    if (page == nullptr)
        row = openRow("member",
                      {.kind = std::string(declarationKind(member)),
                       .qualifiedName = qualifiedByColons(container.qualifiedName(), member.name().toStdString()),
                       .outerName = {}});
    else
        text += "<tr>";
    text.append("<td><code>").append(caption.before);
    if (page != nullptr)
        appendLink(*page, caption.name);
    else
        appendEscaped(text, caption.name);
    text.append(escapedText(shortened(caption.after))).append("</code></td><td>");
    if (page == nullptr)
        appendText(member.trailingComment(), member.trailingCommentLine(), std::move(row));
    else if (m_facts)
        m_facts->addCopy(page->facts, text.size());
    text.append(page != nullptr ? page->description : std::string()).append("</td></tr>\n");
}

/// Opens the row of \a member, which has no page, with an id that begins with \a kind. The result is \a member with that
/// id; nothing if nobody is told or the page has such a row already: then the row has no id.
std::optional<DocumentMember> ReferencePages::openRow(std::string_view kind, DocumentMember member)
{
    const std::size_t separator = member.qualifiedName.rfind("::");
    const std::string_view name =
        std::string_view(member.qualifiedName).substr(separator == std::string::npos ? 0 : separator + 2);
    member.anchor.append(kind).append(".").append(anchorName(name));
    const bool isNew = m_facts && m_rows.insert(member.qualifiedName).second && m_rowIds.insert(member.anchor).second;
    if (!isNew) {
        m_blocks.text() += "<tr>";
        return std::nullopt;
    }
    m_blocks.text().append("<tr id=\"").append(member.anchor).append("\">");
    return member;
}

/// Appends a link from \a name to the text of \a member.
void ReferencePages::appendLink(const Documented &member, std::string_view name)
{
    std::string &text = m_blocks.text();
    const std::size_t begin = text.size();
    text.append("<a href=\"").append(addressStart(member.stem)).append(escapedText(member.stem)).append(".htm\">");
    text.append(escapedText(name)).append("</a>");
    if (m_facts)
        m_facts->addLink({.kind = DocumentLink::Kind::InDocument,
                          .hasCaption = true,
                          .offset = begin,
                          .length = text.size() - begin,
                          .target = member.name,
                          .page = member.stem,
                          .place = place(member.line),
                          .heading = member.heading});
}

/// Appends the list of the bases of \a container.
void ReferencePages::appendBases(const SourceBrowserContainer &container)
{
    if (container.baseClasses().empty())
        return;
    std::string &text = m_blocks.text();
    text += "<h3>Base Classes</h3>\n<ul class=\"names\">\n";
    for (const SourceBrowserBaseClass &base : container.baseClasses()) {
        text += "<li><code>";
        const bool isPublic = base.hasAccess ? base.access == SourceBrowserObject::Public
                                             : container.phylum() == SourceBrowserObject::Structure;
        if (!isPublic)
            text += base.access == SourceBrowserObject::Protected ? "protected " : "private ";
        text += base.isVirtual ? "virtual " : "";
        const std::string name = base.name.toStdString();
        const std::size_t begin = text.size();
        appendEscaped(text, name);
        if (m_facts)
            m_facts->addBase({begin, text.size() - begin, baseName(name)});
        text += "</code></li>\n";
    }
    text += "</ul>\n";
}

/// Appends a table of the enumerators with the comments that belong to them.
void ReferencePages::appendEnumerators(const SourceBrowserEnum &enumeration)
{
    const std::vector<SynopsisSource::Enumerator> enumerators = m_source->enumerators(enumeration);
    if (enumerators.empty())
        return;
    const bool hasValues =
        std::ranges::any_of(enumerators, [](const SynopsisSource::Enumerator &each) { return !each.value.isEmpty(); });
    const bool hasTexts = std::ranges::any_of(
        enumerators, [](const SynopsisSource::Enumerator &each) { return !each.comment.isEmpty(); });
    std::string &text = m_blocks.text();
    text += "<h3>Enumerators</h3>\n<table class=\"members\">\n<tr><th>Name</th>";
    text.append(hasValues ? "<th>Value</th>" : "").append(hasTexts ? "<th>Description</th>" : "").append("</tr>\n");
    for (const SynopsisSource::Enumerator &enumerator : enumerators) {
        std::optional<DocumentMember> row = openRow("enumerator", enumeratorNames(enumeration, enumerator.name));
        text.append("<td><code>").append(escapedText(enumerator.name.toStdString())).append("</code></td>");
        if (hasValues && enumerator.value.isEmpty())
            text += "<td></td>";
        else if (hasValues)
            text.append("<td><code>").append(escapedText(enumerator.value.toStdString())).append("</code></td>");
        text += hasTexts ? "<td>" : "";
        appendText(enumerator.comment, enumerator.commentLine, std::move(row));
        text += hasTexts ? "</td></tr>\n" : "</tr>\n";
    }
    text += "</table>\n";
}

/// Translates \a comment, which begins on \a line, counted from 1, into the page text. It describes \a row, if that is
/// given.
void ReferencePages::appendText(const QString &comment, int line, std::optional<DocumentMember> row)
{
    const std::size_t begin = m_blocks.text().size();
    if (!comment.isEmpty()) {
        SourceMap map;
        map.beginStretch(0, map.addFile(m_header.given()), line);
        translate(overviewMarkup(comment.toStdString()), map);
    }
    if (!row)
        return;
    row->offset = begin;
    row->length = m_blocks.text().size() - begin;
    m_facts->addMember(std::move(*row));
}

/// Appends a folded list of the declarations that no comment documents, if there are any.
void ReferencePages::appendUndocumented()
{
    const std::vector<const SourceBrowserObject *> declarations =
        undocumentedDeclarations(m_model.root(), m_header.fileName());
    if (declarations.empty())
        return;
    std::string &text = m_blocks.text();
    text.append("\n<details class=\"undocumented\"><summary>Without documentation (");
    text.append(std::to_string(declarations.size())).append(")</summary>\n<table class=\"members\">\n");
    for (const SourceBrowserObject *const declaration : declarations) {
        text += "<tr><td><code>";
        const MemberCaption caption = memberCaption(*declaration, *m_source);
        appendEscaped(text, qualifiedByColons(declaration->scope(), caption.name));
        appendEscaped(text, shortened(caption.after));
        text.append("</code></td><td>").append(declarationKind(*declaration)).append("</td><td>line ");
        text.append(std::to_string(declaration->lines().first + 1)).append("</td></tr>\n");
    }
    text += "</table></details>\n";
}

} // namespace tavidoc
