#include "sourcebrowser/model.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

using Collection = SourceBrowserModel::Collection;
using Collections = SourceBrowserModel::Collections;

/// Calls \a visit for every object in \a root in order of declaration: a container before its members.
void visitAll(const SourceBrowserContainer &root, const std::function<void(SourceBrowserObject *)> &visit)
{
    struct Place
    {
        const SourceBrowserContainer *container;
        size_t next;
    };
    std::vector<Place> open = {{&root, 0}};
    while (!open.empty()) {
        const SourceBrowserContainer::Members &members = open.back().container->members();
        if (open.back().next == members.size()) {
            open.pop_back();
            continue;
        }
        SourceBrowserObject *member = members[open.back().next++].get();
        if (!member)
            continue;
        visit(member);
        if (const auto *container = SourceBrowserContainer::from(member))
            open.push_back({container, 0});
    }
}

void keepFirst(QHash<QString, const SourceBrowserObject *> &table, const QString &key,
               const SourceBrowserObject *object)
{
    const SourceBrowserObject *&entry = table[key];
    if (!entry)
        entry = object;
}

/// The key of a name in the index. A type that is defined outside its container has a name that is itself qualified.
QString withStops(QString name)
{
    if (name.contains(u':'))
        name.replace("::"_L1, "."_L1);
    return name;
}

bool comesBefore(const SourceBrowserObject *one, const SourceBrowserObject *other)
{
    if (one->scope() == other->scope())
        return one->name() < other->name();
    return one->qualifiedName() < other->qualifiedName();
}

SourceBrowserModel::Position positionOf(SourceBrowserObject::Phylum phylum)
{
    switch (phylum) {
    case SourceBrowserObject::Class:
    case SourceBrowserObject::Structure:
    case SourceBrowserObject::Namespace:
        return SourceBrowserModel::Containers;
    case SourceBrowserObject::Method:
        return SourceBrowserModel::Functions;
    case SourceBrowserObject::Variable:
    case SourceBrowserObject::Typedef:
        return SourceBrowserModel::Variables;
    case SourceBrowserObject::Unknown:
        return SourceBrowserModel::Enumerations;
    case SourceBrowserObject::Macro:
        return SourceBrowserModel::Macros;
    }
    Q_UNREACHABLE();
}

void addTo(Collections &collections, const SourceBrowserObject *object)
{
    collections[positionOf(object->phylum())].push_back(object);
}

/// Sorts all collections except the enumerations, which stay in order of declaration.
void sort(Collections &collections)
{
    for (std::size_t position = 0; position < collections.size(); ++position) {
        if (position != SourceBrowserModel::Enumerations)
            std::stable_sort(collections[position].begin(), collections[position].end(), comesBefore);
    }
}

} // namespace

SourceBrowserModel::SourceBrowserModel() : m_root(SourceBrowserObject::Namespace) {}

const SourceBrowserModel::Collections &SourceBrowserModel::all() const
{
    if (!m_collections) {
        m_collections = std::make_unique<Collections>();
        visitAll(m_root, [this](SourceBrowserObject *object) { addTo(*m_collections, object); });
        sort(*m_collections);
    }
    return *m_collections;
}

SourceBrowserModel::Collection
SourceBrowserModel::chosen(const std::function<bool(const SourceBrowserObject &)> &isWanted) const
{
    Collections wanted;
    visitAll(m_root, [&](const SourceBrowserObject *object) {
        if (isWanted(*object))
            addTo(wanted, object);
    });
    sort(wanted); // cheaper than sorting all of them
    Collection result;
    for (const Collection &collection : wanted)
        result.insert(result.end(), collection.begin(), collection.end());
    return result;
}

const SourceBrowserModel::Index &SourceBrowserModel::index() const
{
    if (!m_index) {
        m_index = std::make_unique<Index>();
        visitAll(m_root, [this](SourceBrowserObject *object) {
            keepFirst(m_index->byName, withStops(object->name()), object);
            keepFirst(m_index->byQualifiedName, withStops(object->qualifiedName()), object);
        });
    }
    return *m_index;
}

void SourceBrowserModel::noteChange()
{
    m_collections.reset();
    m_index.reset();
}

const SourceBrowserObject *SourceBrowserModel::find(QStringView name) const
{
    const QString key = withStops(name.toString());
    if (const SourceBrowserObject *object = index().byQualifiedName.value(key))
        return object;
    return index().byName.value(key);
}

SourceBrowserContainer *SourceBrowserModel::container(const QString &qualifiedName) const
{
    return m_containers.value(qualifiedName);
}

SourceBrowserObject &SourceBrowserModel::add(SourceBrowserContainer &parent,
                                             std::unique_ptr<SourceBrowserObject> member)
{
    noteChange();
    SourceBrowserObject &added = parent.add(std::move(member));
    if (auto *container = SourceBrowserContainer::from(&added))
        m_containers.insert(container->qualifiedName(), container);
    return added;
}

std::unique_ptr<SourceBrowserObject> SourceBrowserModel::take(SourceBrowserContainer &parent,
                                                              const SourceBrowserObject &member)
{
    noteChange();
    if (const auto *container = dynamic_cast<const SourceBrowserContainer *>(&member))
        forgetName(*container);
    return parent.take(member);
}

/// Removes \a container from the dictionary, unless its name refers to another one there.
void SourceBrowserModel::forgetName(const SourceBrowserContainer &container)
{
    const auto known = m_containers.constFind(container.qualifiedName());
    if (known != m_containers.constEnd() && *known == &container)
        m_containers.erase(known);
}

SourceBrowserContainer &SourceBrowserModel::rename(SourceBrowserContainer &container, const QString &name,
                                                   std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed)
{
    noteChange();
    forgetName(container);
    container.setName(name);
    SourceBrowserContainer *&known = m_containers[container.qualifiedName()];
    if (known && known->container() == container.container())
        absorb(*known, container, absorbed);
    else
        known = &container;
    return *known;
}

/// Moves all members of \a newer to \a known and merges containers of the same name at every level.
void SourceBrowserModel::absorb(SourceBrowserContainer &known, SourceBrowserContainer &newer,
                                std::vector<std::unique_ptr<SourceBrowserObject>> &absorbed)
{
    absorbed.push_back(newer.container()->take(newer));
    std::vector<std::pair<SourceBrowserContainer *, SourceBrowserContainer *>> open = {{&known, &newer}};
    while (!open.empty()) {
        const auto [to, from] = open.back();
        open.pop_back();
        to->update(*from);
        const QString scope = to->qualifiedName();
        for (std::unique_ptr<SourceBrowserObject> &member : from->takeMembers()) {
            auto *nested = dynamic_cast<SourceBrowserContainer *>(member.get());
            SourceBrowserContainer *same =
                nested && !nested->isAnonymous() ? to->containedContainer(nested->name()) : nullptr;
            if (same) {
                forgetName(*nested);
                open.emplace_back(same, nested);
                absorbed.push_back(std::move(member));
            } else {
                if (nested)
                    forgetName(*nested);
                member->setScope(scope);
                to->add(std::move(member));
                if (nested) {
                    m_containers.insert(nested->qualifiedName(), nested);
                    rescope(*nested);
                }
            }
        }
    }
}

void SourceBrowserModel::rescope(SourceBrowserContainer &container)
{
    noteChange();
    QString scope;
    const SourceBrowserContainer *scopeOwner = nullptr;
    visitAll(container, [&](SourceBrowserObject *member) {
        if (member->container() != scopeOwner) {
            scopeOwner = member->container();
            scope = scopeOwner->qualifiedName();
        }
        auto *nested = dynamic_cast<SourceBrowserContainer *>(member);
        if (nested)
            forgetName(*nested);
        member->setScope(scope);
        if (nested)
            m_containers.insert(nested->qualifiedName(), nested);
    });
}

void SourceBrowserModel::forget(const QString &file)
{
    std::vector<SourceBrowserObject *> declaredHere;
    visitAll(m_root, [&](SourceBrowserObject *object) {
        if (object->declarationFile() == file)
            declaredHere.push_back(object);
    });
    // Backwards, so that a container comes after its members, which are gone by then.
    for (auto object = declaredHere.rbegin(); object != declaredHere.rend(); ++object) {
        SourceBrowserContainer &parent = *(*object)->container();
        if (auto *container = dynamic_cast<SourceBrowserContainer *>(*object)) {
            container->settle();
            if (!container->members().empty())
                continue;
        }
        take(parent, **object);
    }
    m_root.settle();
    for (SourceBrowserContainer *container : std::as_const(m_containers))
        container->settle();
    m_statistics.remove(file);
}

void SourceBrowserModel::setStatistics(const QString &file, const SourceBrowserLineStatistics &statistics)
{
    m_statistics.insert(file, statistics);
}

} // namespace tavidoc
