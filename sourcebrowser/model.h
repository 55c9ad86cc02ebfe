#pragma once

#include "sourcebrowser/container.h"
#include "sourcebrowser/line_statistics.h"

#include <QMap>

/// The declarations of all headers that were read. The model owns what stands at file level,
/// containers own the rest. The collections are borrowed views of it; they are valid until the
/// next change.
class SourceBrowserModel
{
public:
    using Collection = std::vector<const SourceBrowserObject *>;

    SourceBrowserModel();

    /// The nameless container that holds what stands at file level.
    [[nodiscard]] SourceBrowserContainer &root() { return m_root; }
    [[nodiscard]] const SourceBrowserContainer &root() const { return m_root; }

    /// Containers, functions and methods, variables and typedefs, each by qualified name in plain
    /// string order with equal keys in order of declaration; enumerations in order of
    /// declaration; macros, keyed like the others.
    [[nodiscard]] const Collection &containers() const { return collections().containers; }
    [[nodiscard]] const Collection &functions() const { return collections().functions; }
    [[nodiscard]] const Collection &variables() const { return collections().variables; }
    [[nodiscard]] const Collection &enumerations() const { return collections().enumerations; }
    [[nodiscard]] const Collection &macros() const { return collections().macros; }

    /// The declaration of that name, bare or qualified with "." or "::"; the first one declared
    /// when there are several, and one with that qualified name before one with that bare name.
    /// Null without one.
    [[nodiscard]] const SourceBrowserObject *find(QStringView name) const;

    /// The container with that qualified name; null without one.
    [[nodiscard]] SourceBrowserContainer *container(const QString &qualifiedName) const;

    /// Adds \a member to \a parent and keeps the dictionary of containers.
    SourceBrowserObject &add(SourceBrowserContainer &parent, std::unique_ptr<SourceBrowserObject> member);
    /// Hands \a member back to be changed or deleted; it must stand in \a parent.
    std::unique_ptr<SourceBrowserObject> take(SourceBrowserContainer &parent, const SourceBrowserObject &member);

    /// Gives \a object, which stands in the model, another name.
    void rename(SourceBrowserObject &object, const QString &name);

    /// Removes what was declared in \a file. A container that still has members from other files stays.
    void forget(const QString &file);
    void setStatistics(const QString &file, const SourceBrowserLineStatistics &statistics);
    /// By file name, in the order of the names.
    [[nodiscard]] const QMap<QString, SourceBrowserLineStatistics> &statistics() const { return m_statistics; }

private:
    struct Collections
    {
        Collection containers, functions, variables, enumerations, macros;
        void file(const SourceBrowserObject *object);
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

    SourceBrowserContainer m_root;
    QHash<QString, SourceBrowserContainer *> m_containers; // borrowed, by qualified name
    QMap<QString, SourceBrowserLineStatistics> m_statistics;
    // Both are made when first asked for after a change.
    mutable std::unique_ptr<Collections> m_collections;
    mutable std::unique_ptr<Index> m_index;
};
