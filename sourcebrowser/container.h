#pragma once

#include "sourcebrowser/members.h"

#include <QHash>

#include <memory>
#include <vector>

/// One entry of a class's base list.
struct SourceBrowserBaseClass
{
    QString name; ///< as written, white space simplified
    SourceBrowserObject::Access access = SourceBrowserObject::Private;
    bool isVirtual = false;
};

/// A namespace, class, structure or union. It owns its members.
class SourceBrowserContainer : public SourceBrowserObject
{
public:
    using Members = std::vector<std::unique_ptr<SourceBrowserObject>>;

    using SourceBrowserObject::SourceBrowserObject;
    /// Frees what is nested without recursion.
    ~SourceBrowserContainer() override;

    [[nodiscard]] QString description(unsigned flags) const override;
    using SourceBrowserObject::description;

    /// All members in order of declaration.
    [[nodiscard]] const Members &members() const { return m_members; }
    /// Takes \a member over and becomes its container.
    SourceBrowserObject &add(std::unique_ptr<SourceBrowserObject> member);
    /// Hands \a member back; null when this container does not hold it. It leaves an empty
    /// place among the members until settle() is called.
    std::unique_ptr<SourceBrowserObject> take(const SourceBrowserObject &member);
    /// Closes the empty places that take() left.
    void settle();

    /// The newest method, variable (or typedef) and container of that name; null without one.
    [[nodiscard]] SourceBrowserMethod *method(const QString &name) const;
    [[nodiscard]] SourceBrowserVariable *variable(const QString &name) const;
    [[nodiscard]] SourceBrowserContainer *containedContainer(const QString &name) const;

    [[nodiscard]] const std::vector<SourceBrowserBaseClass> &baseClasses() const { return m_baseClasses; }
    void setBaseClasses(std::vector<SourceBrowserBaseClass> bases) { m_baseClasses = std::move(bases); }

    /// Takes over lines, texts and bases of \a newer where they are known: the same container
    /// was declared again.
    void update(const SourceBrowserContainer &newer);

private:
    struct Index
    {
        QHash<QString, SourceBrowserMethod *> methods;
        QHash<QString, SourceBrowserVariable *> variables;
        QHash<QString, SourceBrowserContainer *> containers;
        void insert(SourceBrowserObject *member);
        void remove(const SourceBrowserObject *member);
    };

    [[nodiscard]] Index &index() const;

    Members m_members;
    std::vector<SourceBrowserBaseClass> m_baseClasses;
    mutable std::unique_ptr<Index> m_index; ///< made when first asked for
    bool m_hasGaps = false;
};
