#pragma once

/*!!
 * \h1 container.h
 *
 * Declarations with members. Their base class is in \xref{../object/object_h.htm}{object.h}.
 */

#include "sourcebrowser/members.h"

#include <QHash>

#include <memory>
#include <vector>

namespace tavidoc {

/*!
 * \h1 \this
 * One entry in the list of base classes.
 *
 * \synopsis
 *
 * \param{name} the base as written, white space simplified.
 *
 * \param{access} of the inheritance.
 *
 * \param{hasAccess} whether the access is written; without it that of a structure is public.
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
    bool hasAccess = false; ///< the access is written
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
    /// The name of containers and enumerations without one: "(Anonymous)".
    static const QString &anonymousName();
    /// \a object as a container; null if it is something else.
    [[nodiscard]] static SourceBrowserContainer *from(SourceBrowserObject *object);
    [[nodiscard]] bool isAnonymous() const { return name() == anonymousName(); }
    /// Frees nested members without recursion.
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
     * Takes ownership of \a{member} and becomes its container.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    SourceBrowserObject &add(std::unique_ptr<SourceBrowserObject> member);
    /*!
     * \h1 SourceBrowserContainer::\this
     * Hands \a{member} back; null if it is not a member of this container. Its place among the members stays null
     * until \xref{settle} is called.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    std::unique_ptr<SourceBrowserObject> take(const SourceBrowserObject &member);
    /// Hands all members over and leaves the container empty.
    Members takeMembers();
    /*!
     * \h1 SourceBrowserContainer::\this
     * Closes the gaps that \xref{take} left.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    void settle();

    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest method of that name; null if there is none.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] SourceBrowserMethod *method(const QString &name) const;
    /// The method with the name, argument types and "const" of \a wanted, else the newest one with
    /// that name; null if there is none.
    [[nodiscard]] SourceBrowserMethod *method(const SourceBrowserMethod &wanted) const;
    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest variable or typedef of that name; null if there is none.
     * \synopsis
     * \sa \xref{SourceBrowserContainer}
     * \ingroup SourceBrowserContainer
     */
    [[nodiscard]] SourceBrowserVariable *variable(const QString &name) const;
    /*!
     * \h1 SourceBrowserContainer::\this
     * The newest container of that name among the members; null if there is none.
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
     * Takes over the known lines, texts and bases of \a{newer}, a later declaration of the same container.
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
        QHash<QString, SourceBrowserMethod *> signatures; ///< built on demand
        bool hasSignatures = false;
        void insert(SourceBrowserObject *member);
        void insertMethod(SourceBrowserMethod *method);
        void remove(const SourceBrowserObject *member);
    };

    [[nodiscard]] Index &index() const;

    Members m_members;
    std::vector<SourceBrowserBaseClass> m_baseClasses;
    mutable std::unique_ptr<Index> m_index; ///< built on demand
    bool m_hasGaps = false;
};

} // namespace tavidoc
