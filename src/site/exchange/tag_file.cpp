#include "site/exchange/tag_file.h"

#include "site/exchange/xml_text.h"
#include "site/link/page_names.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// How Doxygen calls what a kind of declaration contains others as; empty: it contains none.
std::string_view compoundKind(std::string_view kind)
{
    return kind == "class" || kind == "struct" || kind == "union" || kind == "namespace" ? kind : std::string_view();
}

std::string_view memberKind(std::string_view kind)
{
    if (kind == "concept" || kind == "alias")
        return "typedef";
    return kind == "macro" ? "define" : kind == "enum" ? "enumeration" : kind == "deduction guide" ? "function" : kind;
}

std::string_view scopeOf(std::string_view qualifiedName)
{
    const std::size_t separator = qualifiedName.rfind("::");
    return separator == std::string_view::npos ? std::string_view() : qualifiedName.substr(0, separator);
}

class TagWriter
{
public:
    explicit TagWriter(const SharedLinks &shared) : m_shared(shared), m_xml(&m_bytes) {}

    [[nodiscard]] QByteArray take()
    {
        collectMembers();
        m_xml.setAutoFormatting(true);
        m_xml.writeStartDocument();
        m_xml.writeStartElement(u"tagfile"_s);
        for (const NameEntry &entry : m_shared.names)
            writeEntry(entry);
        for (const auto &[scope, members] : m_members)
            writeScope(scope, members);
        m_xml.writeEndElement();
        m_xml.writeEndDocument();
        return std::move(m_bytes);
    }

private:
    using Members = std::vector<const NameEntry *>;

    /// What is declared in a scope belongs to it, anything else to the page of its header.
    void collectMembers()
    {
        for (const NameEntry &entry : m_shared.names) {
            if (entry.qualifiedName.empty() || !compoundKind(entry.kind).empty())
                continue;
            const std::string_view scope = scopeOf(entry.qualifiedName);
            (scope.empty() ? m_membersOfPages[entry.owner.address] : m_members[scope]).push_back(&entry);
        }
    }

    void writeEntry(const NameEntry &entry)
    {
        if (entry.qualifiedName.empty())
            return writePage(entry);
        const std::string_view kind = compoundKind(entry.kind);
        if (kind.empty())
            return;
        beginCompound(kind, entry.qualifiedName, entry.address);
        if (const auto members = m_members.find(entry.qualifiedName); members != m_members.end()) {
            writeMembers(members->second);
            m_members.erase(members);
        }
        m_xml.writeEndElement();
    }

    void writePage(const NameEntry &entry)
    {
        const bool isHeader = entry.kind == "header";
        beginCompound(isHeader ? "file" : "page", isHeader ? entry.name : withoutPageSuffix(entry.address),
                      entry.address);
        if (!isHeader)
            m_xml.writeTextElement(u"title"_s, xmlText(entry.name));
        if (const auto members = m_membersOfPages.find(entry.address); members != m_membersOfPages.end())
            writeMembers(members->second);
        m_xml.writeEndElement();
    }

    /// Writes a scope that has no page of its own; links to it lead to its first member.
    void writeScope(std::string_view scope, const Members &members)
    {
        beginCompound("namespace", scope, members.front()->address);
        writeMembers(members);
        m_xml.writeEndElement();
    }

    void beginCompound(std::string_view kind, std::string_view name, std::string_view address)
    {
        m_xml.writeStartElement(u"compound"_s);
        m_xml.writeAttribute(u"kind"_s, xmlText(kind));
        m_xml.writeTextElement(u"name"_s, xmlText(name));
        m_xml.writeTextElement(u"filename"_s, xmlText(address));
    }

    void writeMembers(const Members &members)
    {
        for (const NameEntry *member : members) {
            m_xml.writeStartElement(u"member"_s);
            m_xml.writeAttribute(u"kind"_s, xmlText(memberKind(member->kind)));
            m_xml.writeTextElement(u"type"_s, QString());
            m_xml.writeTextElement(u"name"_s, xmlText(member->name));
            m_xml.writeTextElement(u"anchorfile"_s, xmlText(member->address));
            m_xml.writeTextElement(u"anchor"_s, QString());
            m_xml.writeTextElement(u"arglist"_s, QString());
            m_xml.writeEndElement();
        }
    }

    const SharedLinks &m_shared;
    QByteArray m_bytes;
    QXmlStreamWriter m_xml;
    std::map<std::string_view, Members> m_members;        // by scope
    std::map<std::string_view, Members> m_membersOfPages; // by address
};

} // namespace

QByteArray tagFile(const SharedLinks &shared)
{
    return TagWriter(shared).take();
}

} // namespace tavidoc
