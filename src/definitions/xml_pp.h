#pragma once

#include "definitions/xml_tree.h"

#include <QSet>
#include <QString>

#include <deque>
#include <optional>

namespace tavidoc {

/// Why a file was refused.
struct XmlError
{
    QString file; ///< as it was given
    int line;     ///< counted from 1
    QString reason;
};

/// The one shared XML document: the definition files of all documents of the process, in the order
/// of loading.
class XmlPP
{
public:
    struct Loaded
    {
        XmlElement root; ///< null when nothing was added
        std::optional<XmlError> error;
    };

    /// Adds \a fileName to the document, once: another name of a file that was loaded before adds
    /// nothing, nor does a file that is missing, unreadable, blank or not a regular one. A malformed
    /// file is reported once and adds nothing. Elements stay valid for as long as the document.
    [[nodiscard]] Loaded load(const QString &fileName);

    /// Call before the files of \a directory are loaded; false if they need not be, see searchDirectoriesOnce().
    [[nodiscard]] bool startSearch(const QString &directory);
    /// With \a once, a directory of that name is searched only the first time, so a definition file that appears
    /// there later is not noticed. Off at first.
    void searchDirectoriesOnce(bool once) { m_searchesOnce = once; }

private:
    std::deque<XmlTree> m_files; // elements refer to their tree
    QSet<QString> m_loadedFiles; // canonical names
    QSet<QString> m_searchedDirectories;
    bool m_searchesOnce = false;
};

} // namespace tavidoc
