#pragma once

/*!!
 * \h1 model.h
 *
 * All declarations, as lists and by name.
 *
 * \code
 * for (const SourceBrowserObject *function : model.functions())
 *     print(function->description());
 * \endcode
 */

#include "sourcebrowser/container.h"
#include "sourcebrowser/line_statistics.h"

#include <QMap>

#include <array>
#include <functional>

namespace tavidoc {

/*!
 * \h1 \this
 * The declarations of all headers that were read. The model owns those at file level, containers own the rest.
 * The collections are borrowed views; they are valid until the next change.
 * \sa \xref{model_h}{model.h}
 * \ingroup \this
 */
class SourceBrowserModel
{
public:
    using Collection = std::vector<const SourceBrowserObject *>;
    /// The positions of the collections in all().
    enum Position : std::size_t
    {
        Containers,
        Functions,
        Variables,
        Enumerations,
        Macros,
        PositionCount
    };
    using Collections = std::array<Collection, PositionCount>;

    SourceBrowserModel();

    /// The nameless container of the declarations at file level.
    [[nodiscard]] SourceBrowserContainer &root() { return m_root; }
    [[nodiscard]] const SourceBrowserContainer &root() const { return m_root; }

    /*!
     * \h1 SourceBrowserModel::\this
     * All collections: \xref{containers}, \xref{functions}, \xref{variables}, \xref{enumerations} and \xref{macros}, in
     * this order.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collections &all() const;
    /*!
     * \h1 SourceBrowserModel::\this
     * Namespaces, classes, structures and unions by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &containers() const { return all()[Containers]; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Functions and methods by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &functions() const { return all()[Functions]; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Variables and typedefs by qualified name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &variables() const { return all()[Variables]; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Enumerations in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &enumerations() const { return all()[Enumerations]; }
    /*!
     * \h1 SourceBrowserModel::\this
     * Macros by name, equal names in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const Collection &macros() const { return all()[Macros]; }
    /*!
     * \h1 SourceBrowserModel::\this
     * The declarations for which \a{isWanted} returns true, in the order of \xref{all}.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] Collection chosen(const std::function<bool(const SourceBrowserObject &)> &isWanted) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * The declaration with that name, bare or qualified with \tt{.} or \tt{::}; null when there is none. A qualified
     * name is preferred to a bare one, and among several the first declaration is returned.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] const SourceBrowserObject *find(QStringView name) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * The container with that qualified name; null when there is none.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    [[nodiscard]] SourceBrowserContainer *container(const QString &qualifiedName) const;

    /*!
     * \h1 SourceBrowserModel::\this
     * Adds \a{member} to \a{parent} and updates the dictionary of containers.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    SourceBrowserObject &add(SourceBrowserContainer &parent, std::unique_ptr<SourceBrowserObject> member);
    /*!
     * \h1 SourceBrowserModel::\this
     * Hands \a{member} back to be changed or deleted; it must be a member of \a{parent}.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    std::unique_ptr<SourceBrowserObject> take(SourceBrowserContainer &parent, const SourceBrowserObject &member);

    /*!
     * \h1 SourceBrowserModel::\this
     * Renames \a{container}, which must be in the model, and returns the container with that name. If another one
     * has the name already, it takes over all members of \a{container}, and the emptied containers are moved to
     * \a{absorbed}. Otherwise the members learn the new name when \xref{rescope} is called.
     * \synopsis
     * \sa \xref{SourceBrowserModel}
     * \ingroup SourceBrowserModel
     */
    SourceBrowserContainer &rename(SourceBrowserContainer &container, const QString &name,
                                   std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed);
    /*!
     * \h1 SourceBrowserModel::\this
     * Updates the scopes of everything in \a{container} to the names of the containers around it.
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
    /// The first object of each name.
    struct Index
    {
        QHash<QString, const SourceBrowserObject *> byQualifiedName;
        QHash<QString, const SourceBrowserObject *> byName;
    };

    [[nodiscard]] const Index &index() const;
    void noteChange();
    void forgetName(const SourceBrowserContainer &container);
    void absorb(SourceBrowserContainer &known, SourceBrowserContainer &newer,
                std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed);

    SourceBrowserContainer m_root;
    QHash<QString, SourceBrowserContainer *> m_containers; ///< borrowed, by qualified name
    QMap<QString, SourceBrowserLineStatistics> m_statistics;
    // Both are built on demand and dropped by every change.
    mutable std::unique_ptr<Collections> m_collections;
    mutable std::unique_ptr<Index> m_index;
};

} // namespace tavidoc
