#include "sourcebrowser/container.h"

#include "sourcebrowser/declaration_text.h"

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// Distinguishes overloaded methods.
QString signature(const SourceBrowserMethod &method)
{
    QString text = method.name() + u'(';
    for (const SourceBrowserArgument &argument : method.arguments())
        text += argument.type.text + u',';
    return method.isConst ? text + ")const"_L1 : text;
}

/// \a signature as a class template writes it inside: `Vector<T> &&` is "Vector &&" in the class Vector.
QString withoutOwnArguments(const QString &signature, QStringView className)
{
    QString text;
    qsizetype copied = 0;
    for (qsizetype at = signature.indexOf(className); at >= 0; at = signature.indexOf(className, copied)) {
        qsizetype end = at + className.size();
        text += QStringView(signature).sliced(copied, end - copied);
        copied = end;
        if (end == signature.size() || signature[end] != u'<')
            continue;
        for (int nesting = 0; end < signature.size() && (nesting > 0 || end == copied); ++end)
            nesting += (signature[end] == u'<') - (signature[end] == u'>');
        copied = end;
    }
    return text += QStringView(signature).sliced(copied);
}

} // namespace

const QString &SourceBrowserContainer::anonymousName()
{
    static const QString name = u"(Anonymous)"_s;
    return name;
}

SourceBrowserContainer *SourceBrowserContainer::from(SourceBrowserObject *object)
{
    // Most objects are macros and functions, and a failing cast is slow.
    const Phylum phylum = object->phylum();
    const bool mayBe = phylum == Class || phylum == Structure || phylum == Namespace;
    return mayBe ? dynamic_cast<SourceBrowserContainer *>(object) : nullptr;
}

SourceBrowserContainer::~SourceBrowserContainer()
{
    Members doomed = std::move(m_members);
    while (!doomed.empty()) {
        const std::unique_ptr<SourceBrowserObject> member = std::move(doomed.back());
        doomed.pop_back();
        SourceBrowserContainer *container = member ? from(member.get()) : nullptr;
        if (!container)
            continue;
        for (std::unique_ptr<SourceBrowserObject> &nested : container->m_members)
            doomed.push_back(std::move(nested));
        container->m_members.clear();
    }
}

QString SourceBrowserContainer::description(unsigned) const
{
    return structureText(*this);
}

SourceBrowserObject &SourceBrowserContainer::add(std::unique_ptr<SourceBrowserObject> member)
{
    SourceBrowserObject &added = *member;
    added.m_container = this;
    added.m_place = static_cast<int>(m_members.size());
    m_members.push_back(std::move(member));
    if (m_index)
        m_index->insert(&added);
    return added;
}

std::unique_ptr<SourceBrowserObject> SourceBrowserContainer::take(const SourceBrowserObject &member)
{
    if (member.m_container != this)
        return nullptr;
    std::unique_ptr<SourceBrowserObject> taken = std::move(m_members[static_cast<size_t>(member.m_place)]);
    taken->m_container = nullptr;
    taken->m_place = -1;
    if (m_index)
        m_index->remove(&member);
    m_hasGaps = true;
    return taken;
}

SourceBrowserContainer::Members SourceBrowserContainer::takeMembers()
{
    settle();
    for (const std::unique_ptr<SourceBrowserObject> &member : m_members) {
        member->m_container = nullptr;
        member->m_place = -1;
    }
    m_index.reset();
    return std::exchange(m_members, {});
}

void SourceBrowserContainer::settle()
{
    if (!m_hasGaps)
        return;
    std::erase(m_members, nullptr);
    for (size_t place = 0; place < m_members.size(); ++place)
        m_members[place]->m_place = static_cast<int>(place);
    m_hasGaps = false;
}

SourceBrowserMethod *SourceBrowserContainer::method(const QString &name) const
{
    return index().methods.value(name);
}

SourceBrowserMethod *SourceBrowserContainer::method(const SourceBrowserMethod &wanted) const
{
    SourceBrowserMethod *newest = method(wanted.name());
    if (!newest)
        return nullptr;
    Index &known = index();
    if (!std::exchange(known.hasSignatures, true)) {
        for (const std::unique_ptr<SourceBrowserObject> &member : m_members) {
            if (auto *method = dynamic_cast<SourceBrowserMethod *>(member.get()))
                known.signatures.insert(signature(*method), method);
        }
    }
    const QString written = signature(wanted);
    if (SourceBrowserMethod *same = known.signatures.value(written))
        return same;
    return known.signatures.value(withoutOwnArguments(written, name()), newest);
}

SourceBrowserVariable *SourceBrowserContainer::variable(const QString &name) const
{
    return index().variables.value(name);
}

SourceBrowserContainer *SourceBrowserContainer::containedContainer(const QString &name) const
{
    return index().containers.value(name);
}

void SourceBrowserContainer::update(const SourceBrowserContainer &newer)
{
    Lines updated = lines();
    if (newer.lines().first >= 0)
        updated.first = newer.lines().first;
    if (newer.lines().last >= 0)
        updated.last = newer.lines().last;
    setLines(updated);
    if (!newer.declarationFile().isEmpty())
        setDeclarationFile(newer.declarationFile());
    if (!newer.definitionFile().isEmpty())
        setDefinitionFile(newer.definitionFile());
    if (!newer.documentation().isEmpty())
        setDocumentation(newer.documentation(), newer.documentationLine());
    if (!newer.documentation().isEmpty() || source().begin.line < 0) {
        setSource(newer.source()); // of the declaration that the comment is about
        setForm(newer.form());
    }
    if (!newer.text().isEmpty())
        setText(newer.text());
    if (!newer.baseClasses().empty())
        setBaseClasses(newer.baseClasses());
}

void SourceBrowserContainer::Index::insert(SourceBrowserObject *member)
{
    if (auto *method = dynamic_cast<SourceBrowserMethod *>(member))
        insertMethod(method);
    else if (auto *variable = dynamic_cast<SourceBrowserVariable *>(member))
        variables.insert(member->name(), variable);
    else if (auto *container = dynamic_cast<SourceBrowserContainer *>(member))
        containers.insert(member->name(), container);
}

void SourceBrowserContainer::Index::insertMethod(SourceBrowserMethod *method)
{
    methods.insert(method->name(), method);
    if (hasSignatures)
        signatures.insert(signature(*method), method);
}

void SourceBrowserContainer::Index::remove(const SourceBrowserObject *member)
{
    if (const auto *method = hasSignatures ? dynamic_cast<const SourceBrowserMethod *>(member) : nullptr)
        signatures.remove(signature(*method));
    if (methods.value(member->name()) == member)
        methods.remove(member->name());
    if (variables.value(member->name()) == member)
        variables.remove(member->name());
    if (containers.value(member->name()) == member)
        containers.remove(member->name());
}

SourceBrowserContainer::Index &SourceBrowserContainer::index() const
{
    if (!m_index) {
        m_index = std::make_unique<Index>();
        for (const std::unique_ptr<SourceBrowserObject> &member : m_members) {
            if (member)
                m_index->insert(member.get());
        }
    }
    return *m_index;
}

} // namespace tavidoc
