#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QXmlStreamReader>

#include <vector>

namespace tavidoc {

/// Reads the bytes of one XML file into an element tree and refuses what could hurt: it checks
/// while it builds, so nothing of a malformed file is kept. The limits: 4,096 levels of elements,
/// 1,000,000 elements and attributes, 256 attributes in one element, 64 Mi characters that
/// come out of entities. No external entity is read; a file that uses one is malformed, and so is
/// one with parameter entities or attribute lists.
///
/// Without an XML declaration the text is UTF-8, or else ISO 8859-1; with one it is what the
/// declaration says, in the encodings that are the same on every machine.
class XmlTreeReader
{
public:
    /// The elements will belong to \a document, which outlives the reader.
    XmlTreeReader(QDomDocument &document, const QByteArray &bytes);

    /// The root element, not yet in the document; null for a malformed file. To be called once.
    [[nodiscard]] QDomElement read();

    [[nodiscard]] int errorLine() const; ///< counted from 1
    /// In one line.
    [[nodiscard]] QString errorReason() const;

private:
    void checkEncoding();
    void checkDocumentType();
    void openElement();
    void closeElement();
    void appendText();

    QByteArray m_bytes;
    QXmlStreamReader m_reader;
    QDomDocument &m_document;
    std::vector<QDomElement> m_open; // from the root down, each still without its parent
    QDomElement m_root;
    qint64 m_nodes = 0;     // elements and attributes so far
    int m_badBytesLine = 0; // counted from 1; 0 when the reader's own line holds
};

} // namespace tavidoc
