#pragma once

/*!!
 * \h1 path.h
 *
 * File names, as the program and the library see them. The parts of a name are those of the text after the last
 * slash. They follow the first dot or the last one; a header or a source is known by what follows the first.
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
     * The directory of the file, as given; "." when the path names none.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString directory() const;
    /*!
     * \h1 Path::\this
     * What follows the first dot of the file name; empty without a dot.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString completeSuffix() const;
    /*!
     * \h1 Path::\this
     * What follows the last dot of the file name; empty without a dot.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString suffix() const;
    /*!
     * \h1 Path::\this
     * What precedes the first dot of the file name.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString baseName() const;
    /*!
     * \h1 Path::\this
     * What precedes the last dot of the file name.
     * \synopsis
     * \sa \xref{Path}
     * \ingroup Path
     */
    [[nodiscard]] QString completeBaseName() const;

private:
    QString m_given;
    mutable QString m_cleaned; // null until text() was asked for
};

} // namespace tavidoc
