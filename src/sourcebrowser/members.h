#pragma once

/*!!
 * \h1 members.h
 *
 * Declarations without members. Their base class is in \xref{../object/object_h.htm}{object.h}.
 */

#include "sourcebrowser/object.h"

#include <QStringList>

#include <vector>

namespace tavidoc {

/*!
 * \h1 \this
 * A type as text, and the place of the declared name in it: in \tt{int (*)(void)}, after the asterisk.
 *
 * \synopsis
 *
 * \param{text} the type.
 *
 * \param{insertion} index into \a{text}; -1 if the name simply follows.
 * \sa \xref{members_h}{members.h}
 * \ingroup Types
 */
struct SourceBrowserType
{
    QString text;
    int insertion = -1; ///< index into text; -1 if the name simply follows

    [[nodiscard]] bool hasInsertion() const { return insertion >= 0 && insertion < text.size(); }
};

/*!
 * \h1 \this
 * A variable, a member variable or a typedef.
 *
 * \param{isStatic} declared \tt{static} or \tt{register}.
 *
 * \param{isInitialised} has an initialiser; its value is not kept.
 * \sa \xref{members_h}{members.h}
 * \ingroup \this
 */
class SourceBrowserVariable : public SourceBrowserObject
{
public:
    SourceBrowserVariable(Phylum phylum, const QString &name, const SourceBrowserType &type = {});

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    /// True for an object of the same class with the same name.
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    /*!
     * \h1 SourceBrowserVariable::\this
     * The type, trimmed; of a function, the return type.
     * \synopsis
     * \sa \xref{SourceBrowserVariable}
     * \ingroup SourceBrowserVariable
     */
    [[nodiscard]] const SourceBrowserType &type() const { return m_type; }
    void setType(const SourceBrowserType &type);

    bool isStatic = false;      ///< declared "static" or "register"
    bool isInitialised = false; ///< has an initialiser

private:
    SourceBrowserType m_type;
};

/*!
 * \h1 \this
 * An argument of a function. \tt{...} is an argument of the type \tt{...} without a name.
 *
 * \synopsis
 *
 * \param{type} its type.
 *
 * \param{name} its name; empty if the declaration has none.
 *
 * \param{defaultValue} as written, white space simplified; never rendered.
 * \sa \xref{members_h}{members.h}
 * \ingroup Types
 */
struct SourceBrowserArgument
{
    SourceBrowserType type;
    QString name;         ///< empty if the declaration has none
    QString defaultValue; ///< as written, white space simplified; never rendered
};

/*!
 * \h1 \this
 * A function, method, constructor, destructor or operator.
 *
 * \param{isVirtual} declared \tt{virtual}.
 *
 * \param{isConst} with \tt{const} after the arguments.
 *
 * \param{isPure} with \tt{= 0}.
 *
 * \param{isDeleted} with \tt{= delete}.
 * \sa \xref{members_h}{members.h}
 * \ingroup \this
 */
class SourceBrowserMethod : public SourceBrowserVariable
{
public:
    explicit SourceBrowserMethod(const QString &name, const SourceBrowserType &returnType = {});

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    /*!
     * \h1 SourceBrowserMethod::\this
     * The arguments in order; empty for \tt{(void)}.
     * \synopsis
     * \sa \xref{SourceBrowserMethod}
     * \ingroup SourceBrowserMethod
     */
    [[nodiscard]] const std::vector<SourceBrowserArgument> &arguments() const { return m_arguments; }
    void setArguments(std::vector<SourceBrowserArgument> arguments) { m_arguments = std::move(arguments); }

    bool isVirtual = false;
    bool isConst = false;
    bool isPure = false;    ///< "= 0"
    bool isDeleted = false; ///< "= delete"

private:
    std::vector<SourceBrowserArgument> m_arguments;
};

/*!
 * \h1 \this
 * An enumeration.
 * \sa \xref{members_h}{members.h}
 * \ingroup \this
 */
class SourceBrowserEnum : public SourceBrowserObject
{
public:
    using SourceBrowserObject::SourceBrowserObject;

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    /*!
     * \h1 SourceBrowserEnum::\this
     * The enumerators in order, as texts: \tt{A}, \tt{B = 1}.
     * \synopsis
     * \sa \xref{SourceBrowserEnum}
     * \ingroup SourceBrowserEnum
     */
    [[nodiscard]] const QStringList &enumerators() const { return m_enumerators; }
    void append(const QString &enumerator) { m_enumerators.append(enumerator); }

private:
    QStringList m_enumerators;
};

/*!
 * \h1 \this
 * A \tt{#define}. Its \xref{../object/object_h.htm}{text} is the whole directive, continuation lines included.
 * \sa \xref{members_h}{members.h}
 * \ingroup \this
 */
class SourceBrowserMacro : public SourceBrowserObject
{
public:
    SourceBrowserMacro(const QString &name, const QString &directive);
};

} // namespace tavidoc
