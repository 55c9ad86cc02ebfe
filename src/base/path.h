#pragma once

/*!!
 * \h1 path.h
 *
 * File names. The parts of a name are separated by the first or by the last dot after the last slash; headers and
 * sources are recognised by the text after the first.
 *
 * \table{2.4in,*}
 * || Part | Of \tt{/book/use.old.dg}
 * | \xref{fileName} | \tt{use.old.dg}
 * | \xref{directory} | \tt{/book}
 * | \xref{completeSuffix} | \tt{old.dg}
 * | \xref{suffix} | \tt{dg}
 * | \xref{baseName} | \tt{use}
 * | \xref{completeBaseName} | \tt{use.old}
 * \endtable
 */

#include <QString>

namespace tavidoc {

/*!
 * \h1 \this
 * A file path. Its parts are those of the file name, the text after the last "/".
 * \sa \xref{path_h}{path.h}
 * \ingroup \this
 */
class Path
{
public:
    Path() = default;
    explicit Path(QString text);

    /*!
     * \h1 Path::\this
     * The path as it was given.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] const QString &given() const { return m_given; }
    /*!
     * \h1 Path::\this
     * The cleaned path for messages: no "." components, ".." folded, no doubled "/".
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString text() const;

    /*!
     * \h1 Path::\this
     * The file name, without directories.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString fileName() const;
    /*!
     * \h1 Path::\this
     * The directory of the file, as given; "." for a path without a directory.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString directory() const;
    /*!
     * \h1 Path::\this
     * The text after the first dot of the file name; empty without a dot.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString completeSuffix() const;
    /*!
     * \h1 Path::\this
     * The text after the last dot of the file name; empty without a dot.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString suffix() const;
    /*!
     * \h1 Path::\this
     * The text before the first dot of the file name.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString baseName() const;
    /*!
     * \h1 Path::\this
     * The text before the last dot of the file name.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString completeBaseName() const;

private:
    QString m_given;
    mutable QString m_cleaned; // null before the first call of text()
};

} // namespace tavidoc
