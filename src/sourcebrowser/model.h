#pragma once

/*!!
 * \h1 model.h
 *
 * All declarations, in lists and by name.
 *
 * \code
 * for (const SourceBrowserObject *function : model.functions())
 *     print(function->description());
 * \endcode
 */

#include "sourcebrowser/container.h"
#include "sourcebrowser/line_statistics.h"

#include <QMap>

namespace tavidoc {

/*!
 * \h1 \this
 * The declarations of all headers that were read. The model owns what stands at file level,
 * containers own the rest. The collections are borrowed views of it; they are valid until the
 * next change.
 * \sa \xref{model_h}{model.h}
 * \ingroup \this
 */
class SourceBrowserModel
{
public:
    using Collection = std::vector<const SourceBrowserObject *>;

    SourceBrowserModel();

    /// The nameless container that holds what stands at file level.
    [[nodiscard]] SourceBrowserContainer &root() { return m_root; }
    [[nodiscard]] const SourceBrowserContainer &root() const { return m_root; }

    /*!
     * \h1 SourceBrowserModel::\this
     * Namespaces, classes, structures and unions by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &containers() const { return collections().containers; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Functions and methods by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &functions() const { return collections().functions; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Variables and typedefs by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &variables() const { return collections().variables; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Enumerations in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &enumerations() const { return collections().enumerations; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Macros by name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &macros() const { return collections().macros; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Those of all declarations that \a{isWanted} says yes to: first containers, then functions, variables, enumerations
     * and macros, each in the order of their collection.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] Collection chosen(const std::function<bool(const SourceBrowserObject &)> &isWanted) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * The declaration of that name, bare or qualified with \tt{.} or \tt{::}; the first one declared when there are
     * several, and one with that qualified name before one with that bare name. Null without one.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const SourceBrowserObject *find(QStringView name) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * The container with that qualified name; null without one.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] SourceBrowserContainer *container(const QString &qualifiedName) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * Adds \a{member} to \a{parent} and keeps the dictionary of containers.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    SourceBrowserObject &add(SourceBrowserContainer &parent, std::unique_ptr<SourceBrowserObject> member);
    /*!
     * \h1 SourceBrowserModel::\this
     * Hands \a{member} back to be changed or deleted; it must stand in \a{parent}.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    std::unique_ptr<SourceBrowserObject> take(SourceBrowserContainer &parent, const SourceBrowserObject &member);

    /*!
     * \h1 SourceBrowserModel::\this
     * Gives \a{container}, which stands in the model, another name. One that has that name already takes over all
     * that \a{container} holds, and what is empty then is added to \a{absorbed}. The container with the name is handed
     * back; when it is \a{container}, what it holds learns of the name by \xref{rescope}.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    SourceBrowserContainer &rename(SourceBrowserContainer &container, const QString &name,
                                   std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed);
    /*!
     * \h1 SourceBrowserModel::\this
     * Tells everything in \a{container} the names of the containers around it.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    void rescope(SourceBrowserContainer &container);

    /*!
     * \h1 SourceBrowserModel::\this
     * Removes what was declared in \a{file}. A container that still has members from other files stays.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    void forget(const QString &file);
    void setStatistics(const QString &file, const SourceBrowserLineStatistics &statistics);
    /*!
     * \h1 SourceBrowserModel::\this
     * What was counted in each file, by file name, in the order of the names.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const QMap<QString, SourceBrowserLineStatistics> &statistics() const { return m_statistics; }

private:
    struct Collections
    {
        Collection containers, functions, variables, enumerations, macros;
        void file(const SourceBrowserObject *object);
        void sort();
    };
    /// The first object of each name.
    struct Index
    {
        QHash<QString, const SourceBrowserObject *> byQualifiedName;
        QHash<QString, const SourceBrowserObject *> byName;
    };

    [[nodiscard]] const Collections &collections() const;
    [[nodiscard]] const Index &index() const;
    void noteChange();
    void forgetName(const SourceBrowserContainer &container);
    void absorb(SourceBrowserContainer &known, SourceBrowserContainer &newer,
                std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed);

    SourceBrowserContainer m_root;
    QHash<QString, SourceBrowserContainer *> m_containers; // borrowed, by qualified name
    QMap<QString, SourceBrowserLineStatistics> m_statistics;
    // Both are made when first asked for after a change.
    mutable std::unique_ptr<Collections> m_collections;
    mutable std::unique_ptr<Index> m_index;
};

} // namespace tavidoc
