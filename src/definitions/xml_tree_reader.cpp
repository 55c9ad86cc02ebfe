#include "definitions/xml_tree_reader.h"

#include "base/source_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t s_deepestLevel = 4096;
constexpr qint64 s_mostNodes = 1'000'000; // an attribute takes some two kilobytes in the tree
constexpr int s_mostAttributes = 256;     // the reader compares each with each
constexpr qint64 s_mostExpandedText = qint64{64} * 1024 * 1024;
constexpr qint64 s_longestEntity = 4096; // characters

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool isUtf16(const QByteArray &bytes)
{
    return bytes.startsWith("\xFE\xFF") || bytes.startsWith("\xFF\xFE");
}

bool declaresItsEncoding(const QByteArray &bytes)
{
    return bytes.startsWith("<?xml") || bytes.startsWith("\xEF\xBB\xBF<?xml") || isUtf16(bytes);
}

/// What the reader is given: it takes bytes without a declaration for UTF-8.
QByteArray readableBytes(const QByteArray &bytes)
{
    return declaresItsEncoding(bytes) ? bytes : decodedSource(bytes);
}

/// Counted from 1; 0 when \a text is UTF-8.
int lineThatIsNoUtf8(std::string_view text)
{
    if (isUtf8(text))
        return 0;
    int line = 1;
    for (std::size_t end = text.find('\n'); isUtf8(text.substr(0, end)); end = text.find('\n')) {
        text.remove_prefix(end + 1);
        ++line;
    }
    return line;
}

/// How many characters a reference may stand for so that all references of the file together
/// stay within bounds: there are no more of them than "&" and "%".
int entityLimit(const QByteArray &bytes)
{
    const qint64 references = bytes.count('&') + bytes.count('%');
    return static_cast<int>(std::min(s_longestEntity, s_mostExpandedText / (references + 1)));
}

/// Counts the values in the tag at the start of \a text, which reaches to the next "<". Such a
/// character cannot stand inside a tag, so the count of a well-formed tag is exact.
int attributeCount(std::string_view text)
{
    int count = 0;
    for (std::size_t at = text.find_first_of("\"'>"); at != std::string_view::npos && text[at] != '>';
         at = text.find_first_of("\"'>", at + 1)) {
        at = text.find(text[at], at + 1);
        if (at == std::string_view::npos)
            break;
        ++count;
    }
    return count;
}

bool hasOvercrowdedTag(std::string_view text)
{
    for (std::size_t tag = text.find('<'); tag != std::string_view::npos;) {
        const std::size_t next = text.find('<', tag + 1);
        const std::string_view piece = text.substr(tag, next - tag);
        const bool isElement = piece.size() > 1 && piece[1] != '!' && piece[1] != '?';
        if (isElement && attributeCount(piece) > s_mostAttributes)
            return true;
        tag = next;
    }
    return false;
}

} // namespace

XmlTreeReader::XmlTreeReader(QDomDocument &document, const QByteArray &bytes)
    : m_bytes(readableBytes(bytes)), m_reader(m_bytes), m_document(document)
{
    m_reader.setNamespaceProcessing(false); // names are compared as they are written
    m_reader.setEntityExpansionLimit(entityLimit(m_bytes));
    if (hasOvercrowdedTag(viewOf(m_bytes)))
        m_reader.raiseError(u"An element has more than 256 attributes."_s);
}

QDomElement XmlTreeReader::read()
{
    while (!m_reader.atEnd()) {
        switch (m_reader.readNext()) {
        case QXmlStreamReader::StartDocument:
            checkEncoding();
            break;
        case QXmlStreamReader::DTD:
            checkDocumentType();
            break;
        case QXmlStreamReader::StartElement:
            openElement();
            break;
        case QXmlStreamReader::EndElement:
            closeElement();
            break;
        case QXmlStreamReader::Characters:
            appendText();
            break;
        case QXmlStreamReader::EntityReference:
            m_reader.raiseError(u"Entity '%1' not declared."_s.arg(m_reader.name()));
            break;
        default:
            break;
        }
    }
    return m_reader.hasError() ? QDomElement() : m_root;
}

int XmlTreeReader::errorLine() const
{
    return m_badBytesLine > 0 ? m_badBytesLine : static_cast<int>(m_reader.lineNumber());
}

QString XmlTreeReader::errorReason() const
{
    return m_reader.errorString().simplified(); // it may quote the file, line ends included
}

/// Other encodings may be known here and unknown on the next machine. Bytes that are no UTF-8
/// are looked for here because the reader, which decodes far ahead, does not know their line.
void XmlTreeReader::checkEncoding()
{
    const QByteArray name = m_reader.documentEncoding().toLatin1();
    const auto encoding = QStringConverter::encodingForName(name.constData());
    if (!name.isEmpty() && !encoding)
        return m_reader.raiseError(u"Encoding %1 is unsupported"_s.arg(m_reader.documentEncoding()));
    const bool isUtf8Text = (name.isEmpty() || encoding == QStringConverter::Utf8) && !isUtf16(m_bytes);
    m_badBytesLine = isUtf8Text ? lineThatIsNoUtf8(viewOf(m_bytes)) : 0;
    if (m_badBytesLine > 0)
        m_reader.raiseError(u"Encountered incorrectly encoded content."_s);
}

/// The reader passes over external entities in silence, and applies attribute lists to each
/// element in turn, which has no bound.
void XmlTreeReader::checkDocumentType()
{
    for (const QXmlStreamEntityDeclaration &entity : m_reader.entityDeclarations()) {
        if (!entity.systemId().isEmpty())
            return m_reader.raiseError(u"External entity '%1' is refused."_s.arg(entity.name()));
    }
    const QStringView text = m_reader.text();
    if (text.contains(u'%') || text.contains(u"<!ATTLIST"))
        m_reader.raiseError(u"Parameter entities and attribute lists are refused."_s);
}

/// An element enters its parent when it is closed: a parent without parents of its own takes
/// it at once, while one in its place is climbed to the top for each child.
void XmlTreeReader::openElement()
{
    if (m_open.size() == s_deepestLevel)
        return m_reader.raiseError(u"Elements are nested deeper than 4096 levels."_s);
    m_nodes += 1 + m_reader.attributes().size();
    if (m_nodes > s_mostNodes)
        return m_reader.raiseError(u"More than 1000000 elements and attributes."_s);
    QDomElement element = m_document.createElement(m_reader.qualifiedName().toString());
    for (const QXmlStreamAttribute &attribute : m_reader.attributes())
        element.setAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
    m_open.push_back(element);
}

void XmlTreeReader::closeElement()
{
    const QDomElement element = m_open.back();
    m_open.pop_back();
    if (m_open.empty())
        m_root = element;
    else
        m_open.back().appendChild(element);
}

void XmlTreeReader::appendText()
{
    if (!m_open.empty())
        m_open.back().appendChild(m_document.createTextNode(m_reader.text().toString()));
}

} // namespace tavidoc
