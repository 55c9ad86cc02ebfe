#pragma once

/*!!
 * \h1 container.h
 *
 * The declarations that contain others. What they share with them is in \xref{../object/object_h.htm}{object.h}.
 */

#include "sourcebrowser/members.h"

#include <QHash>

#include <memory>
#include <vector>

namespace tavidoc {

/*!
 * \h1 \this
 * One entry of the list of bases of a class.
 *
 * \synopsis
 *
 * \param{name} the base as written, white space simplified.
 *
 * \param{access} whether its members stay public.
 *
 * \param{isVirtual} whether it is a virtual base.
 * \sa \xref{container_h}{container.h}
 * \ingroup Types
 */
struct SourceBrowserBaseClass
{
    QString name; ///< as written, white space simplified
    SourceBrowserObject::Access access = SourceBrowserObject::Private;
    bool isVirtual = false;
};

/*!
 * \h1 \this
 * A namespace, class, structure or union. It owns its members.
 * \sa \xref{container_h}{container.h}
 * \ingroup \this
 */
class SourceBrowserContainer : public SourceBrowserObject
{
public:
    using Members = std::vector<std::unique_ptr<SourceBrowserObject>>;

    using SourceBrowserObject::SourceBrowserObject;
    /// The name of what has none: "(Anonymous)".
    static const QString &anonymousName();
    /// \a object as a container; null when it is none.
    [[nodiscard]] static SourceBrowserContainer *from(SourceBrowserObject *object);
    [[nodiscard]] bool isAnonymous() const { return name() == anonymousName(); }
    /// Frees what is nested without recursion.
    ~SourceBrowserContainer() override;

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;

    /*!
     * \h1 SourceBrowserContainer::\this
     * All members in order of declaration.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] const Members &members() const { return m_members; }
    /*!
     * \h1 SourceBrowserContainer::\this
     * Takes \a{member} over and becomes its container.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    SourceBrowserObject &add(std::unique_ptr<SourceBrowserObject> member);
    /*!
     * \h1 SourceBrowserContainer::\this
     * Hands \a{member} back; null when this container does not hold it. It leaves an empty place among the members
     * until \xref{settle} is called.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    std::unique_ptr<SourceBrowserObject> take(const SourceBrowserObject &member);
    /// Hands all members over.
    Members takeMembers();
    /*!
     * \h1 SourceBrowserContainer::\this
     * Closes the empty places that \xref{take} left.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    void settle();

    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest method of that name; null without one.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] SourceBrowserMethod *method(const QString &name) const;
    /// The method with the name, the types of arguments and the "const" of \a wanted, else the newest
    /// of that name; null without one.
    [[nodiscard]] SourceBrowserMethod *method(const SourceBrowserMethod &wanted) const;
    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest variable or typedef of that name; null without one.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] SourceBrowserVariable *variable(const QString &name) const;
    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest container of that name among the members; null without one.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] SourceBrowserContainer *containedContainer(const QString &name) const;

    /*!
     * \h1 SourceBrowserContainer::\this
     * The bases in order; empty for a namespace.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] const std::vector<SourceBrowserBaseClass> &baseClasses() const { return m_baseClasses; }
    void setBaseClasses(std::vector<SourceBrowserBaseClass> bases) { m_baseClasses = std::move(bases); }

    /*!
     * \h1 SourceBrowserContainer::\this
     * Takes over lines, texts and bases of \a{newer} where they are known: the same container
     * was declared again.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    void update(const SourceBrowserContainer &newer);

private:
    struct Index
    {
        QHash<QString, SourceBrowserMethod *> methods;
        QHash<QString, SourceBrowserVariable *> variables;
        QHash<QString, SourceBrowserContainer *> containers;
        QHash<QString, SourceBrowserMethod *> signatures; ///< made when first asked for
        bool hasSignatures = false;
        void insert(SourceBrowserObject *member);
        void insertMethod(SourceBrowserMethod *method);
        void remove(const SourceBrowserObject *member);
    };

    [[nodiscard]] Index &index() const;

    Members m_members;
    std::vector<SourceBrowserBaseClass> m_baseClasses;
    mutable std::unique_ptr<Index> m_index; ///< made when first asked for
    bool m_hasGaps = false;
};

} // namespace tavidoc
