#include "site/exchange/help_project.h"

#include "site/exchange/xml_text.h"

#include <QUrl>
#include <QXmlStreamWriter>

#include <algorithm>
#include <string_view>
#include <tuple>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// \a text in small letters, with one "-" in place of every run of other characters than letters, digits and ".".
QString plainName(std::string_view text)
{
    QString name;
    for (const char c : text) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.';
        if (isPlain)
            name += QChar(u'\0' + (c >= 'A' && c <= 'Z' ? c | 0x20 : c));
        else if (!name.isEmpty() && !name.endsWith(u'-'))
            name += u'-';
    }
    return name.endsWith(u'-') ? name.chopped(1) : name;
}

/// \a file as the pattern that matches only it.
QString filePattern(const std::string &file)
{
    QString pattern;
    for (const QChar c : xmlText(file)) {
        const bool isSpecial = c == u'*' || c == u'?' || c == u'[';
        pattern += isSpecial ? u'[' + QString(c) + u']' : QString(c);
    }
    return pattern;
}

class HelpProjectWriter
{
public:
    HelpProjectWriter(const SharedLinks &shared, const std::map<std::string, std::string> &names)
        : m_shared(shared), m_names(names), m_xml(&m_bytes)
    {
    }

    [[nodiscard]] QByteArray take(const std::set<std::string> &files)
    {
        m_xml.setAutoFormatting(true);
        m_xml.writeStartDocument();
        m_xml.writeStartElement(u"QtHelpProject"_s);
        m_xml.writeAttribute(u"version"_s, u"1.0"_s);
        m_xml.writeTextElement(u"namespace"_s, nameSpace());
        m_xml.writeTextElement(u"virtualFolder"_s, u"doc"_s);
        m_xml.writeStartElement(u"filterSection"_s);
        writeContents();
        writeKeywords();
        m_xml.writeStartElement(u"files"_s);
        for (const std::string &file : files)
            m_xml.writeTextElement(u"file"_s, filePattern(file));
        m_xml.writeEndElement();
        m_xml.writeEndDocument(); // and all elements
        return std::move(m_bytes);
    }

private:
    /// "kettle.2.1": two versions of a set can be registered together.
    [[nodiscard]] QString nameSpace() const
    {
        const QString title = plainName(m_shared.settings.title);
        const QString version = plainName(m_shared.settings.version);
        const QString name = title.isEmpty() ? u"documentation"_s : title;
        return version.isEmpty() ? name : name + u'.' + version;
    }

    void writeContents()
    {
        m_xml.writeStartElement(u"toc"_s);
        beginSection(m_shared.settings.title, m_shared.firstPage);
        std::uint32_t open = 0; // sections below the first
        const std::vector<ContentsEntry> &contents = m_shared.contents;
        // An entry without a page leads to the next page.
        std::vector<std::string_view> pages(contents.size());
        std::string_view next = m_shared.firstPage;
        for (std::size_t i = contents.size(); i-- > 0;)
            pages[i] = next = contents[i].target.address.empty() ? next : std::string_view(contents[i].target.address);
        for (std::size_t i = 0; i < contents.size(); ++i) {
            for (; open > contents[i].depth; --open)
                m_xml.writeEndElement();
            beginSection(contents[i].target.title, pages[i]);
            ++open;
        }
        for (; open > 0; --open)
            m_xml.writeEndElement();
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }

    void beginSection(std::string_view title, std::string_view address)
    {
        m_xml.writeStartElement(u"section"_s);
        m_xml.writeAttribute(u"title"_s, xmlText(title));
        m_xml.writeAttribute(u"ref"_s, reference(address));
    }

    void writeKeywords()
    {
        m_xml.writeStartElement(u"keywords"_s);
        std::set<std::tuple<std::string_view, std::string_view, std::string_view>> keywords; // name, id, address
        for (const NameEntry &entry : m_shared.names) {
            // Of keywords with the same id the help generator takes only one.
            if (entry.name != entry.qualifiedName)
                keywords.emplace(entry.name, std::string_view(), entry.address);
            if (!entry.qualifiedName.empty())
                keywords.emplace(entry.qualifiedName, entry.qualifiedName, entry.address);
        }
        for (const auto &[name, id, address] : keywords) {
            m_xml.writeEmptyElement(u"keyword"_s);
            m_xml.writeAttribute(u"name"_s, xmlText(name));
            if (!id.empty())
                m_xml.writeAttribute(u"id"_s, xmlText(id));
            m_xml.writeAttribute(u"ref"_s, reference(address));
        }
        m_xml.writeEndElement();
    }

    /// The file of the page at \a address, as a link.
    [[nodiscard]] QString reference(std::string_view address) const
    {
        const auto name = m_names.find(std::string(address));
        const std::string &file = name == m_names.end() ? std::string(address) : name->second;
        return QString::fromLatin1(QUrl::toPercentEncoding(xmlText(file), "/~"));
    }

    const SharedLinks &m_shared;
    const std::map<std::string, std::string> &m_names;
    QByteArray m_bytes;
    QXmlStreamWriter m_xml;
};

} // namespace

QByteArray helpProjectFile(const SharedLinks &shared, const std::map<std::string, std::string> &names,
                           const std::set<std::string> &files)
{
    return HelpProjectWriter(shared, names).take(files);
}

} // namespace tavidoc
