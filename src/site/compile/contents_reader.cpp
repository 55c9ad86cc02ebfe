#include "site/compile/contents_reader.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// Reads the lines as one XML document, whose line n is line n of the contents, counted from 1.
class Reader
{
public:
    Reader(const std::vector<ContentsLine> &lines, const std::function<bool(const std::string &)> &isPage,
           const ContentsFault &fault)
        : m_lines(lines), m_isPage(isPage), m_fault(fault), m_xml("<contents>\n")
    {
        for (const ContentsLine &line : lines)
            m_xml.addData(QByteArray(line.text.data(), static_cast<qsizetype>(line.text.size())) + '\n');
        m_xml.addData("</contents>");
    }

    std::vector<RecordEntry> read()
    {
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement)
                beginElement();
            else if (token == QXmlStreamReader::EndElement)
                endElement();
        }
        if (m_xml.hasError())
            report(m_xml.errorString());
        return std::move(m_entries);
    }

private:
    void beginElement()
    {
        const QStringView name = m_xml.name();
        bool isEntry = false;
        if (name == "content"_L1)
            isEntry = addContent();
        else if (name == "include"_L1)
            isEntry = addInclude();
        else if (!m_isEntry.empty() || name != "contents"_L1)
            report(u"unknown element \"%1\": expected \"content\" or \"include\""_s.arg(name));
        m_isEntry.push_back(isEntry);
        m_depth += isEntry ? 1 : 0;
    }

    void endElement()
    {
        m_depth -= m_isEntry.back() ? 1 : 0;
        m_isEntry.pop_back();
    }

    [[nodiscard]] std::string attribute(QLatin1StringView name) const
    {
        return m_xml.attributes().value(name).toString().toStdString();
    }

    bool addContent()
    {
        std::string stem = attribute("url"_L1);
        if (stem.ends_with(".htm"))
            stem.resize(stem.size() - 4);
        std::string title = attribute("title"_L1);
        if (stem.empty() && title.empty()) {
            report(u"an entry without a page and a title: expected \"url\" or \"title\""_s);
            return false;
        }
        const RecordEntry::Kind kind = stem.empty()     ? RecordEntry::Kind::Title
                                       : m_isPage(stem) ? RecordEntry::Kind::Page
                                                        : RecordEntry::Kind::Include;
        add({.kind = kind,
             .noRoot = false,
             .depth = 0,
             .target = std::move(stem),
             .title = std::move(title),
             .place = {}});
        return true;
    }

    bool addInclude()
    {
        std::string file = attribute("filename"_L1);
        if (file.empty()) {
            report(u"an include without a file: expected \"filename\""_s);
            return false;
        }
        add({.kind = RecordEntry::Kind::Include,
             .noRoot = attribute("no_root"_L1) == "1",
             .depth = 0,
             .target = std::move(file),
             .title = {},
             .place = {}});
        return true;
    }

    void add(RecordEntry entry)
    {
        entry.depth = m_depth;
        entry.place = place();
        m_entries.push_back(std::move(entry));
    }

    /// The place of the line that is being read.
    [[nodiscard]] RecordPlace place() const
    {
        if (m_lines.empty())
            return {};
        const qint64 index = std::clamp<qint64>(m_xml.lineNumber() - 2, 0, static_cast<qint64>(m_lines.size()) - 1);
        return m_lines[static_cast<std::size_t>(index)].place;
    }

    void report(const QString &text) const { m_fault(place(), text.toStdString()); }

    const std::vector<ContentsLine> &m_lines;
    const std::function<bool(const std::string &)> &m_isPage;
    const ContentsFault &m_fault;
    QXmlStreamReader m_xml;
    std::vector<RecordEntry> m_entries;
    std::vector<bool> m_isEntry; // for each open element
    std::uint32_t m_depth = 0;
};

} // namespace

std::vector<RecordEntry> contentsEntries(const std::vector<ContentsLine> &lines,
                                         const std::function<bool(const std::string &)> &isPage,
                                         const ContentsFault &fault)
{
    return Reader(lines, isPage, fault).read();
}

} // namespace tavidoc
