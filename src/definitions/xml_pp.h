#pragma once

#include <QDomDocument>
#include <QSet>
#include <QString>

#include <optional>

namespace tavidoc {

/// Why a file was refused.
struct XmlError
{
    QString file; ///< the name that was asked for
    int line;     ///< counted from 1
    QString reason;
};

/// The one shared XML document: the definition files of all documents of the process, one
/// root element after the other in the order of loading.
class XmlPP
{
public:
    struct Loaded
    {
        QDomElement root; ///< null when nothing was added
        std::optional<XmlError> error;
    };

    /// Adds \a fileName to the document, once: another name of a file that was loaded before
    /// adds nothing. Neither does what is missing, no regular file, unreadable or blank. A
    /// malformed file is reported once and adds nothing.
    [[nodiscard]] Loaded load(const QString &fileName);

private:
    QDomDocument m_document;
    QDomDocumentFragment m_roots;
    QSet<QString> m_loadedFiles; // canonical names
};

enum class XmlChildren
{
    Enter,
    Skip
};

/// The element that follows \a element in document order below \a root, with or without
/// entering its children; null after the last one. A whole walk takes linear time and no stack.
[[nodiscard]] QDomElement nextElement(const QDomElement &element, const QDomElement &root, XmlChildren children);

/// All text inside \a element, in order and as it stands.
[[nodiscard]] QString textOf(const QDomElement &element);

} // namespace tavidoc
