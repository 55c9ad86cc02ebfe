#include "definitions/xml_pp.h"

#include "base/source_text.h"
#include "definitions/xml_tree_reader.h"

#include <QFileInfo>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 s_largestFile = qint64{64} * 1024 * 1024; // bytes

bool isBlankText(const QByteArray &bytes)
{
    return bytes.trimmed().isEmpty() || bytes == "\xEF\xBB\xBF";
}

/// The next node of a walk over everything below \a root; null after the last one.
QDomNode nextNode(QDomNode node, const QDomNode &root, XmlChildren children)
{
    if (children == XmlChildren::Enter && node.hasChildNodes())
        return node.firstChild();
    while (node != root) {
        if (const QDomNode sibling = node.nextSibling(); !sibling.isNull())
            return sibling;
        node = node.parentNode();
    }
    return {};
}

} // namespace

XmlPP::Loaded XmlPP::load(const QString &fileName)
{
    const QFileInfo information(fileName);
    const QString canonicalName = information.canonicalFilePath();
    if (!information.isFile() || m_loadedFiles.contains(canonicalName))
        return {};
    m_loadedFiles.insert(canonicalName);
    if (information.size() > s_largestFile)
        return {{}, XmlError{fileName, 1, u"The file is larger than 64 MiB."_s}};
    const std::optional<QByteArray> bytes = readRegularFile(fileName);
    if (!bytes || isBlankText(*bytes))
        return {};

    XmlTreeReader reader(m_document, *bytes);
    const QDomElement root = reader.read();
    if (root.isNull())
        return {{}, XmlError{fileName, reader.errorLine(), reader.errorReason()}};
    if (m_roots.isNull())
        m_roots = m_document.createDocumentFragment();
    m_roots.appendChild(root);
    return {root, std::nullopt};
}

QDomElement nextElement(const QDomElement &element, const QDomElement &root, XmlChildren children)
{
    QDomNode node = nextNode(element, root, children);
    while (!node.isNull() && !node.isElement())
        node = nextNode(node, root, XmlChildren::Enter);
    return node.toElement();
}

QString textOf(const QDomElement &element)
{
    QString text;
    for (QDomNode node = element; !node.isNull(); node = nextNode(node, element, XmlChildren::Enter)) {
        if (node.isText())
            text += node.nodeValue();
    }
    return text;
}

} // namespace tavidoc
