#pragma once

/*!!
 * \h1 events.h
 *
 * Reports declarations while a header is read. A class with one method is reported as
 *
 * \table{0.4in,1.8in,*}
 * || | Event | With
 * | 1 | \xref{declareContainer} | the class
 * | 2 | \xref{visibilityChange} | \tt{public:}
 * | 3 | \xref{declareContainer} | the method
 * | 4 | \xref{endContainer} | of the method
 * | 5 | \xref{endContainer} | of the class
 * \endtable
 */

#include "sourcebrowser/object.h"

namespace tavidoc {

/*!
 * \h1 \this
 * Receives the events of a header. Every operation does nothing unless it is overridden. All lines are counted
 * from 0.
 * \sa \xref{events_h}{events.h}
 * \ingroup \this
 */
class SourceBrowserEventInterface
{
public:
    virtual ~SourceBrowserEventInterface() = default;

    /*!
     * \h1 SourceBrowserEventInterface::\this
     * A directive with its continuation lines; \tt{#region NAME} or \tt{#endregion} for a comment that marks a region.
     * \a{count} is the number of directive lines so far.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void preprocessorLine(const QString &text, int line, int count);
    /*!
     * \h1 SourceBrowserEventInterface::\this
     * A line comment that begins with the fix-me word \a{word}.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void fixmeComment(const QString &word, int line);
    /*!
     * \h1 SourceBrowserEventInterface::\this
     * A container or a function begins; all events up to its \xref{endContainer} belong to it. The \a{declaration} of
     * a class, structure or namespace is its name, that of a function its prototype. \a{further} is empty.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void declareContainer(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                                  const QString &further, int line);
    /*!
     * \h1 SourceBrowserEventInterface::\this
     * The innermost open container or function ends.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void endContainer();
    /*!
     * \h1 SourceBrowserEventInterface::\this
     * A variable or typedef, with its declaration as text.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void declareObject(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                               int line);
    /*!
     * \h1 SourceBrowserEventInterface::\this
     * An access label.
     * \synopsis
     * \sa \xref{SourceBrowserEventInterface}
     * \ingroup SourceBrowserEventInterface
     */
    virtual void visibilityChange(SourceBrowserObject::Access access, int line);
};

} // namespace tavidoc
