#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

/// Declares what was collected.
void SourceBrowserCParser::finish()
{
    if (m_pending.isFriend || m_pending.tokens.empty() || (m_pending.isCutOff && m_pending.holdsCapitalsOnly()))
        return endDeclaration();
    bool isFirst = true;
    QString newName;
    for (SourceBrowserDeclarator &declarator : m_reader.read(m_pending.tokens, className(), m_pending.isTypedef)) {
        if (!newName.isEmpty() && !m_composedIsNamed) { // `*B` in `typedef struct {...} A, *B;` is an `A *`
            const qsizetype removed = m_composedType.size();
            declarator.type.text.replace(0, removed, newName);
            if (declarator.type.insertion >= 0)
                declarator.type.insertion += static_cast<int>(newName.size() - removed);
        }
        if (isComposedMacro(declarator))
            continue;
        if (declarator.kind == SourceBrowserDeclarator::Function) {
            declareFunction(declarator, isFirst, nullptr);
        } else if (m_composed && isFirst && m_pending.isTypedef && declarator.isBarePlainName) {
            newName = declarator.name;
            nameComposed(*m_composed, newName);
        } else if (declarator.kind == SourceBrowserDeclarator::Object) {
            declareObject(declarator, isFirst);
        }
        isFirst = false;
    }
    endDeclaration();
}

/// Gives \a composed, the type that was just read, the name of its typedef. A container of that name that is
/// known takes over what the type holds.
void SourceBrowserCParser::nameComposed(SourceBrowserObject &composed, const QString &name)
{
    m_reader.addType(name);
    auto *container = dynamic_cast<SourceBrowserContainer *>(&composed);
    if (!container)
        return composed.setName(name);
    SourceBrowserContainer &named = m_objects->rename(*container, name, m_absorbed);
    m_composed = &named;
    if (&named == container)
        rescope(named);
}

void SourceBrowserCParser::attachComment(SourceBrowserObject &object, int line)
{
    if (!m_pending.comment.reaches(line))
        return;
    object.setDocumentation(m_pending.comment.text(), m_pending.comment.firstLine());
    m_pending.comment.clear();
}

void SourceBrowserCParser::place(SourceBrowserObject &object, int line)
{
    object.setAccess(m_context->access);
    object.setScope(m_context->scope);
    object.setDeclarationFile(m_file);
    object.setLines({line, -1, -1, -1});
}

void SourceBrowserCParser::declareObject(const SourceBrowserDeclarator &declarator, bool takesComment)
{
    const auto phylum = m_pending.isTypedef ? SourceBrowserObject::Typedef : SourceBrowserObject::Variable;
    auto variable = std::make_unique<SourceBrowserVariable>(phylum, declarator.name, declarator.type);
    place(*variable, m_pending.line);
    SourceBrowserObject::Lines lines = variable->lines();
    lines.last = m_scanner->line() - 1;
    variable->setLines(lines);
    variable->isStatic = m_pending.isStatic;
    variable->isInitialised = m_pending.isInitialised;
    if (takesComment)
        attachComment(*variable, m_pending.line);
    if (m_pending.isTypedef)
        m_reader.addType(declarator.name);
    if (m_events)
        m_events->declareObject(phylum, declarator.name, variable->description(), m_pending.line);
    m_objects->add(*m_context->container, std::move(variable));
}

/// Declares a function; with \a brace, skips its body first.
void SourceBrowserCParser::declareFunction(const SourceBrowserDeclarator &declarator, bool takesComment,
                                           const Token *brace)
{
    SourceBrowserContainer &container = *m_context->container; // the body's conditionals may change the context
    auto method = std::make_unique<SourceBrowserMethod>(declarator.name, declarator.type);
    method->setArguments(declarator.arguments);
    place(*method, m_pending.line);
    method->isStatic = m_pending.isStatic;
    method->isVirtual = m_pending.isVirtual;
    method->isConst = declarator.isConst;
    method->isPure = declarator.isPure;
    method->isDeleted = declarator.isDeleted;
    if (m_events)
        m_events->declareContainer(SourceBrowserObject::Method, declarator.name, method->description(), {},
                                   m_pending.line);
    SourceBrowserObject::Lines lines = method->lines();
    if (brace) {
        lines.bodyFirst = brace->line - 1;
        skipGroup(*brace);
        lines.bodyLast = m_scanner->line() - 1;
        method->setDefinitionFile(m_file);
    } else {
        lines.last = m_scanner->line() - 1;
    }
    method->setLines(lines);
    if (m_events)
        m_events->endContainer();
    if (takesComment)
        attachComment(*method, brace ? lines.bodyFirst : m_pending.line);
    if (!declarator.qualifier.isEmpty())
        return matchDefinition(declarator, *method);
    addMethod(container, std::move(method));
}

/// Adds \a method; a virtual one takes the place of one with the same name and keeps its body.
void SourceBrowserCParser::addMethod(SourceBrowserContainer &container, std::unique_ptr<SourceBrowserMethod> method)
{
    const SourceBrowserMethod *older = method->isVirtual ? container.method(method->name()) : nullptr;
    if (older) {
        SourceBrowserObject::Lines lines = method->lines();
        if (lines.bodyFirst < 0) {
            lines.bodyFirst = older->lines().bodyFirst;
            lines.bodyLast = older->lines().bodyLast;
            method->setDefinitionFile(older->definitionFile());
        }
        method->setLines(lines);
        if (method->documentation().isEmpty())
            method->setDocumentation(older->documentation(), older->documentationLine());
        m_objects->take(container, *older);
    }
    m_objects->add(container, std::move(method));
}

/// A definition outside its class: its lines go to the declaration in the class, and its comment
/// when that has none.
void SourceBrowserCParser::matchDefinition(const SourceBrowserDeclarator &declarator,
                                           const SourceBrowserMethod &definition)
{
    QString name = declarator.qualifier;
    name.replace("::"_L1, "."_L1);
    if (name.startsWith(u'.'))
        name.remove(0, 1);
    SourceBrowserContainer *container =
        m_context->scope.isEmpty() ? nullptr : m_objects->container(m_context->scope + u'.' + name);
    if (!container)
        container = m_objects->container(name);
    if (!container)
        return complain(m_pending.line + 1, "Class "_L1 + declarator.qualifier + " not found"_L1);
    SourceBrowserMethod *method = container->method(definition);
    if (!method)
        return complain(m_pending.line + 1,
                        "Method "_L1 + declarator.name + " not found in class "_L1 + declarator.qualifier);
    if (method->documentation().isEmpty())
        method->setDocumentation(definition.documentation(), definition.documentationLine());
    const SourceBrowserObject::Lines &lines = definition.lines();
    if (lines.bodyFirst < 0)
        return;
    SourceBrowserObject::Lines updated = method->lines();
    updated.bodyFirst = lines.bodyFirst;
    updated.bodyLast = lines.bodyLast;
    method->setLines(updated);
    method->setDefinitionFile(m_file);
}

} // namespace tavidoc
