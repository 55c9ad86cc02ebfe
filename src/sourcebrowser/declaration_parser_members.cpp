#include "sourcebrowser/declaration_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

/// A class template is known under its bare name: `Outer<T>::Inner<U>` is "Outer::Inner".
QString withoutTemplateArguments(const QString &name)
{
    if (!name.contains(u'<'))
        return name;
    QString bare;
    int nesting = 0;
    for (const QChar unit : name) {
        nesting += unit == u'<';
        if (nesting == 0 && !unit.isSpace())
            bare += unit;
        nesting -= unit == u'>' && nesting > 0;
    }
    return bare;
}

} // namespace

/// Ends a declaration and declares its objects. One that declares nothing uses up its comment, except for macros.
void SourceBrowserDeclarationParser::finish()
{
    const bool isMacroRun = m_pending.isMacroRun();
    const bool isWrapper = isMacroRun && m_pending.endsWithWrapper();
    if (m_pending.tokens.empty() || (m_pending.isCutOff && isMacroRun && !isWrapper))
        return endDeclaration();
    if (isWrapper) {
        m_pending.keepLastCall();
        m_pending.beginsAt = positionOf(m_pending.tokens.front());
    }
    if (!declareAll() && !isMacroRun && !m_pending.isBranchHead)
        m_pending.comment.clear();
    endDeclaration();
}

/// Reads the declarators. Leading macro calls on lines of their own are left out, unless one of them is the type, as
/// in `API(int)` on the line before `f(void)`.
SourceBrowserDeclarators SourceBrowserDeclarationParser::readPending(bool wantsFunction)
{
    std::vector<Token> &tokens = m_pending.tokens;
    const auto macros = static_cast<std::ptrdiff_t>(m_pending.leadingCalls());
    const bool mayStandAlone = macros > 0 && (tokens[static_cast<size_t>(macros)].isIdentifier() ||
                                              tokens[static_cast<size_t>(macros)].word == Word::Keyword);
    if (mayStandAlone) {
        std::vector<Token> rest(tokens.begin() + macros, tokens.end());
        SourceBrowserDeclarators declarators = m_reader.read(rest, className(), m_pending.isTypedef);
        if (!declarators.empty() && !declarators.front().type.text.isEmpty() &&
            (wantsFunction ? declarators.front().kind == SourceBrowserDeclarator::Function
                           : declarators.front().kind != SourceBrowserDeclarator::Nothing)) {
            m_pending.beginsAt = positionOf(tokens[static_cast<size_t>(macros)]);
            return declarators;
        }
    }
    return m_reader.read(tokens, className(), m_pending.isTypedef);
}

/// Declares every declarator. False if nothing is declared.
bool SourceBrowserDeclarationParser::declareAll()
{
    if (m_pending.declaresNothing || m_pending.isForwardDeclaration())
        return false;
    if (m_isComplete && declareGuide())
        return true;
    bool isFirst = true;
    bool declares = false;
    QString newName;
    for (SourceBrowserDeclarator &declarator : readPending(false)) {
        if (!newName.isEmpty() && !m_composedIsNamed) { // `*B` in `typedef struct {...} A, *B;` is an `A *`
            const qsizetype removed = m_composedType.size();
            declarator.type.text.replace(0, removed, newName);
            if (declarator.type.insertion >= 0)
                declarator.type.insertion += static_cast<int>(newName.size() - removed);
        }
        if (isComposedMacro(declarator))
            continue;
        const bool isFunction = declarator.kind == SourceBrowserDeclarator::Function;
        declares |= isFunction || (declarator.kind == SourceBrowserDeclarator::Object && !m_pending.isFriend);
        if (isFunction) {
            declareFunction(declarator, isFirst, nullptr);
        } else if (m_composed && isFirst && m_pending.isTypedef && declarator.isBarePlainName) {
            newName = declarator.name;
            nameComposed(*m_composed, newName);
        } else if (declarator.kind == SourceBrowserDeclarator::Object && !m_pending.isFriend) {
            declareObject(declarator, isFirst);
        }
        isFirst = false;
    }
    return declares;
}

/// Declares a deduction guide, `A(int) -> A<int>`, as a function. False if the tokens are something else.
bool SourceBrowserDeclarationParser::declareGuide()
{
    const std::vector<Token> &tokens = m_pending.tokens;
    const size_t first = !tokens.empty() && tokens.front().text == u"explicit" ? 1 : 0;
    const auto arrow = static_cast<size_t>(m_pending.groupEnd) + 1;
    const bool isGuide = m_pending.groupEnd > 0 && first + 1 < tokens.size() && tokens[first].isPlainName() &&
                         tokens[first + 1].is('(') && arrow + 2 < tokens.size() && tokens[arrow].is('-') &&
                         tokens[arrow + 1].is('>') && tokens[arrow + 2].text == tokens[first].text;
    if (!isGuide || isInClass())
        return false;
    SourceBrowserDeclarator guide;
    guide.kind = SourceBrowserDeclarator::Function;
    guide.name = tokens[first].text.toString();
    guide.place = positionOf(tokens[first]);
    const auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(first);
    std::vector<Token> constructor(begin, tokens.begin() + static_cast<std::ptrdiff_t>(arrow));
    SourceBrowserDeclarators declarators = m_reader.read(constructor, guide.name, false);
    if (!declarators.empty())
        guide.arguments = std::move(declarators.front().arguments);
    m_pending.form = SourceBrowserObject::Form::DeductionGuide;
    declareFunction(guide, true, nullptr);
    return true;
}

/// Names \a composed, the type read last, after its typedef. A known container of that name takes over its members.
void SourceBrowserDeclarationParser::nameComposed(SourceBrowserObject &composed, const QString &name)
{
    m_reader.addType(name);
    auto *container = dynamic_cast<SourceBrowserContainer *>(&composed);
    if (!container)
        return composed.setName(name);
    SourceBrowserContainer &named = m_model.rename(*container, name, m_absorbed);
    m_composed = &named;
    if (&named == container)
        rescope(named);
}

void SourceBrowserDeclarationParser::attachComment(SourceBrowserObject &object, int line)
{
    if (!m_pending.comment.reaches(line))
        return;
    object.setDocumentation(m_pending.comment.text(), m_pending.comment.firstLine());
    m_pending.comment.clear();
}

void SourceBrowserDeclarationParser::place(SourceBrowserObject &object, int line, SourceBrowserObject::Position name)
{
    const Context &context = home();
    object.setAccess(context.access);
    object.setDeclaredAccess(context.declaredAccess);
    object.setScope(context.scope);
    object.setSource({m_pending.beginsAt, name, m_pending.endsAt});
    object.setDeclarationFile(m_file);
    object.setLines({line, -1, -1, -1});
}

void SourceBrowserDeclarationParser::declareObject(const SourceBrowserDeclarator &declarator, bool takesComment)
{
    const auto phylum = m_pending.isTypedef ? SourceBrowserObject::Typedef : SourceBrowserObject::Variable;
    auto variable = std::make_unique<SourceBrowserVariable>(phylum, declarator.name, declarator.type);
    place(*variable, m_pending.line, declarator.place);
    variable->setForm(m_pending.form);
    SourceBrowserObject::Lines lines = variable->lines();
    lines.last = m_scanner.line() - 1;
    variable->setLines(lines);
    variable->isStatic = m_pending.isStatic;
    variable->isInitialised = m_pending.isInitialised;
    if (takesComment)
        attachComment(*variable, m_pending.line);
    if (m_pending.isTypedef)
        m_reader.addType(declarator.name);
    if (m_events)
        m_events->declareObject(phylum, declarator.name, variable->description(), m_pending.line);
    m_model.add(*m_context->container, std::move(variable));
}

/// Declares a function; with \a brace, skips its body first.
void SourceBrowserDeclarationParser::declareFunction(const SourceBrowserDeclarator &declarator, bool takesComment,
                                                     const Token *brace)
{
    SourceBrowserContainer &container = *home().container; // the body's conditionals may change the context
    auto method = std::make_unique<SourceBrowserMethod>(declarator.name, declarator.type);
    method->setArguments(declarator.arguments);
    place(*method, m_pending.line, declarator.place);
    method->setForm(m_pending.isFriend ? SourceBrowserObject::Form::Friend : m_pending.form);
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
        m_stream.skipGroup(*brace);
        lines.bodyLast = m_scanner.line() - 1;
        method->setDefinitionFile(m_file);
    } else {
        lines.last = m_scanner.line() - 1;
    }
    method->setLines(lines);
    if (m_events)
        m_events->endContainer();
    if (takesComment)
        attachComment(*method, brace && !m_isComplete ? lines.bodyFirst : m_pending.line);
    if (!declarator.qualifier.isEmpty()) {
        if (!m_pending.isFriend) // a friend is a member of another class, which declares it
            matchDefinition(declarator, *method);
        return;
    }
    addMethod(container, std::move(method));
}

/// Adds \a method. A virtual one replaces the one with the same name and takes over its body.
void SourceBrowserDeclarationParser::addMethod(SourceBrowserContainer &container,
                                               std::unique_ptr<SourceBrowserMethod> method)
{
    const bool replaces = method->isVirtual && !m_isComplete;
    const SourceBrowserMethod *older = replaces ? container.method(method->name()) : nullptr;
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
        m_model.take(container, *older);
    }
    m_model.add(container, std::move(method));
}

/// The container that \a name means here, in which "::" separates the names.
SourceBrowserContainer *SourceBrowserDeclarationParser::qualifiedContainer(const QString &name) const
{
    QString withStops = name;
    withStops.replace("::"_L1, "."_L1);
    if (withStops.startsWith(u'.'))
        withStops.remove(0, 1);
    // A class that is defined outside its container has colons in its name.
    for (const QString &candidate : {withStops, name}) {
        SourceBrowserContainer *container =
            m_context->scope.isEmpty() ? nullptr : m_model.container(m_context->scope + u'.' + candidate);
        if (!container)
            container = m_model.container(candidate);
        if (container)
            return container;
    }
    return nullptr;
}

/// Passes the lines of a definition outside its class to the declaration in the class, and its comment if that has
/// none.
void SourceBrowserDeclarationParser::matchDefinition(const SourceBrowserDeclarator &declarator,
                                                     const SourceBrowserMethod &definition)
{
    const QString name = withoutTemplateArguments(declarator.qualifier);
    const SourceBrowserContainer *container = qualifiedContainer(name);
    if (!container)
        return complain(m_pending.line + 1, "Class "_L1 + name + " not found"_L1);
    SourceBrowserMethod *method = container->method(definition);
    if (!method)
        return complain(m_pending.line + 1, "Method "_L1 + declarator.name + " not found in class "_L1 + name);
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
