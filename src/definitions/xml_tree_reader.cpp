#include "definitions/xml_tree_reader.h"

#include "base/source_text.h"

#include <QStringDecoder>
#include <QUtf8StringView>

#include <algorithm>
#include <string_view>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr int s_deepestLevel = 4096;
constexpr qint64 s_mostNodes = 1'000'000;
constexpr int s_mostAttributes = 256; // the reader compares each one with all others
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

/// Bytes for the XML reader, which decodes a text without a declaration as UTF-8.
QByteArray readableBytes(const QByteArray &bytes)
{
    return declaresItsEncoding(bytes) ? bytes : decodedSource(bytes);
}

bool isUtf8(std::string_view text)
{
    return QUtf8StringView(text).isValidUtf8();
}

/// The line, counted from 1, of the first bytes that are not UTF-8; 0 when all are.
int lineOfBadUtf8(std::string_view text)
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

/// The largest expansion of one reference, in characters, that bounds the expansion of all: a file has
/// at most as many references as "&" and "%".
int entityLimit(const QByteArray &bytes)
{
    const qint64 references = bytes.count('&') + bytes.count('%');
    return static_cast<int>(std::min(s_longestEntity, s_mostExpandedText / (references + 1)));
}

/// Counts the attribute values in the tag at the start of \a text, which ends before the next "<". A
/// well-formed tag contains no "<", so its count is exact.
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

XmlTreeReader::XmlTreeReader(const QByteArray &bytes) : m_bytes(readableBytes(bytes)), m_reader(m_bytes)
{
    m_reader.setNamespaceProcessing(false); // names are compared as they are written
    m_reader.setEntityExpansionLimit(entityLimit(m_bytes));
    if (hasOvercrowdedTag(viewOf(m_bytes)))
        m_reader.raiseError(u"An element has more than 256 attributes."_s);
}

std::optional<XmlTree> XmlTreeReader::read()
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
            m_tree.closeElement();
            --m_depth;
            break;
        case QXmlStreamReader::Characters:
            if (m_depth > 0)
                m_tree.addText(viewOf(m_reader.text().toUtf8()));
            break;
        case QXmlStreamReader::EntityReference:
            m_reader.raiseError(u"Entity '%1' not declared."_s.arg(m_reader.name()));
            break;
        default:
            break;
        }
    }
    if (m_reader.hasError())
        return std::nullopt;
    return std::move(m_tree);
}

int XmlTreeReader::errorLine() const
{
    return m_badBytesLine > 0 ? m_badBytesLine : static_cast<int>(m_reader.lineNumber());
}

QString XmlTreeReader::errorReason() const
{
    return m_reader.errorString().simplified(); // it may quote the file, line ends included
}

/// Refuses encodings that not every machine supports. Invalid UTF-8 is detected here because the
/// reader, which decodes far ahead, does not know its line.
void XmlTreeReader::checkEncoding()
{
    const QByteArray name = m_reader.documentEncoding().toLatin1();
    const auto encoding = QStringConverter::encodingForName(name.constData());
    if (!name.isEmpty() && !encoding)
        return m_reader.raiseError(u"Encoding %1 is unsupported"_s.arg(m_reader.documentEncoding()));
    const bool isUtf8Text = (name.isEmpty() || encoding == QStringConverter::Utf8) && !isUtf16(m_bytes);
    m_badBytesLine = isUtf8Text ? lineOfBadUtf8(viewOf(m_bytes)) : 0;
    if (m_badBytesLine > 0)
        m_reader.raiseError(u"Encountered incorrectly encoded content."_s);
}

/// The reader silently skips external entities, and applies attribute lists to each element, which
/// is not bounded.
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

void XmlTreeReader::openElement()
{
    if (++m_depth > s_deepestLevel)
        return m_reader.raiseError(u"Elements are nested deeper than 4096 levels."_s);
    const QXmlStreamAttributes attributes = m_reader.attributes();
    m_nodes += 1 + attributes.size();
    if (m_nodes > s_mostNodes)
        return m_reader.raiseError(u"More than 1000000 elements and attributes."_s);
    m_tree.openElement(viewOf(m_reader.qualifiedName().toUtf8()));
    for (const QXmlStreamAttribute &attribute : attributes)
        m_tree.addAttribute(viewOf(attribute.qualifiedName().toUtf8()), viewOf(attribute.value().toUtf8()));
}

} // namespace tavidoc
