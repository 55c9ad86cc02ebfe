#pragma once

#include "sourcebrowser/object.h"

#include <QStringList>

#include <vector>

/// A type as text, and where in it the declared name belongs.
struct SourceBrowserType
{
    QString text;
    int insertion = -1; ///< index into text; -1 when the name simply follows

    [[nodiscard]] bool hasInsertion() const { return insertion >= 0 && insertion < text.size(); }
};

/// A variable, a member variable or a typedef.
class SourceBrowserVariable : public SourceBrowserObject
{
public:
    SourceBrowserVariable(Phylum phylum, const QString &name, const SourceBrowserType &type = {});

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    /// True for an object of the same class with the same name.
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    /// The type, trimmed; of a function, what it returns.
    [[nodiscard]] const SourceBrowserType &type() const { return m_type; }
    void setType(const SourceBrowserType &type);

    bool isStatic = false;      ///< declared "static" or "register"
    bool isInitialised = false; ///< has an initialiser

private:
    SourceBrowserType m_type;
};

/// An argument of a function. "..." is an argument without a name whose type is "...".
struct SourceBrowserArgument
{
    SourceBrowserType type;
    QString name;         ///< empty when the declaration gives none
    QString defaultValue; ///< as written, white space simplified; never rendered
};

/// A function, method, constructor, destructor or operator.
class SourceBrowserMethod : public SourceBrowserVariable
{
public:
    explicit SourceBrowserMethod(const QString &name, const SourceBrowserType &returnType = {});

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    [[nodiscard]] const std::vector<SourceBrowserArgument> &arguments() const { return m_arguments; }
    void setArguments(std::vector<SourceBrowserArgument> arguments) { m_arguments = std::move(arguments); }

    bool isVirtual = false;
    bool isConst = false;
    bool isPure = false;    ///< "= 0"
    bool isDeleted = false; ///< "= delete"

private:
    std::vector<SourceBrowserArgument> m_arguments;
};

/// An enumeration with the texts of its enumerators ("A", "B = 1") in order.
class SourceBrowserEnum : public SourceBrowserObject
{
public:
    using SourceBrowserObject::SourceBrowserObject;

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;
    [[nodiscard]] bool isEquivalent(const SourceBrowserObject &other) const override;

    [[nodiscard]] const QStringList &enumerators() const { return m_enumerators; }
    void append(const QString &enumerator) { m_enumerators.append(enumerator); }

private:
    QStringList m_enumerators;
};

/// A `#define`; its text is the whole directive, continuation lines included.
class SourceBrowserMacro : public SourceBrowserObject
{
public:
    SourceBrowserMacro(const QString &name, const QString &directive);
};
