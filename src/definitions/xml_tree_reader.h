#pragma once

#include "definitions/xml_tree.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <optional>

namespace tavidoc {

/// Reads the bytes of one XML file into an element tree. Limits: 4,096 levels of elements,
/// 1,000,000 elements and attributes, 256 attributes in one element, 64 Mi characters expanded
/// from entities. External entities are never read; a file that uses one is malformed, and so is
/// one with parameter entities or attribute lists.
///
/// Without an XML declaration the text is UTF-8, or else ISO 8859-1; with one it is in the declared
/// encoding, which must be one that every machine supports.
class XmlTreeReader
{
public:
    explicit XmlTreeReader(const QByteArray &bytes);

    /// The tree, which has a root; nothing for a malformed file. To be called once.
    [[nodiscard]] std::optional<XmlTree> read();

    [[nodiscard]] int errorLine() const; ///< counted from 1
    /// One line.
    [[nodiscard]] QString errorReason() const;

private:
    void checkEncoding();
    void checkDocumentType();
    void openElement();

    QByteArray m_bytes;
    QXmlStreamReader m_reader;
    XmlTree m_tree;
    int m_depth = 0;        // open elements
    qint64 m_nodes = 0;     // elements and attributes so far
    int m_badBytesLine = 0; // counted from 1; 0: the line is the reader's
};

} // namespace tavidoc
