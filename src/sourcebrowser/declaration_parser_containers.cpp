#include "sourcebrowser/declaration_parser.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

void SourceBrowserDeclarationParser::namespaceStatement(const Token &first)
{
    begin(first);
    QString name;
    QStringList outer; // of "a::b::c": a and b
    Token token = m_stream.next();
    for (; !token.is('{') && !token.is(EndOfInput); token = m_stream.next()) {
        if (token.isConditional()) {
            m_stream.noteConditional(token);
        } else if (token.is('=') || token.is(';')) { // an alias
            if (token.is('='))
                m_stream.skipUntil(';');
            m_pending.comment.clear();
            return endDeclaration();
        } else if (token.is('[') && m_stream.peek().is('[')) {
            m_stream.skipGroup(token);
        } else if (token.is(Skipped)) {
            continue;
        } else if (m_isComplete && token.is(Scope) && !name.isEmpty()) {
            outer << std::exchange(name, {});
        } else if (token.isIdentifier() && name.isEmpty()) {
            name = token.text.toString();
        } else {
            complain(token.line, u"Bad namespace identifier"_s);
        }
    }
    if (token.is(EndOfInput))
        return endDeclaration();
    if (isTooDeep()) {
        m_stream.skipGroup(token);
        return endDeclaration();
    }
    if (name.isEmpty())
        name = u'(' + m_file.mid(m_file.lastIndexOf(u'/') + 1) + u')';
    endAt(token);
    SourceBrowserContainer *parent = outerNamespaces(outer);
    auto object = std::make_unique<SourceBrowserContainer>(SourceBrowserObject::Namespace, name);
    place(*object, m_pending.line);
    if (!outer.isEmpty())
        object->setScope(parent->qualifiedName());
    attachComment(*object, m_pending.line);
    if (m_events)
        m_events->declareContainer(SourceBrowserObject::Namespace, name, name, {}, m_pending.line);
    SourceBrowserContainer *container = merge(std::move(object), *parent);
    open(Body::Namespace, container)->phylum = SourceBrowserObject::Namespace;
    endDeclaration();
}

/// The namespace that is the last of \a names, each in the one before it.
SourceBrowserContainer *SourceBrowserDeclarationParser::outerNamespaces(const QStringList &names)
{
    SourceBrowserContainer *parent = m_context->container;
    for (const QString &name : names) {
        auto object = std::make_unique<SourceBrowserContainer>(SourceBrowserObject::Namespace, name);
        place(*object, m_pending.line);
        object->setScope(parent->qualifiedName());
        object->setSource({}); // the text names the innermost one too
        parent = merge(std::move(object), *parent);
    }
    return parent;
}

/// Adds \a container to \a parent, or updates the one that has its qualified name already. Of C++, only a namespace does.
SourceBrowserContainer *SourceBrowserDeclarationParser::merge(std::unique_ptr<SourceBrowserContainer> container,
                                                              SourceBrowserContainer &parent)
{
    const bool isAlone =
        container->isAnonymous() || (m_isComplete && container->phylum() != SourceBrowserObject::Namespace);
    SourceBrowserContainer *known = isAlone ? nullptr : m_model.container(container->qualifiedName());
    if (known && known->container() == &parent) {
        known->update(*container);
        return known;
    }
    return static_cast<SourceBrowserContainer *>(&m_model.add(parent, std::move(container)));
}

SourceBrowserClassHead SourceBrowserDeclarationParser::head() const
{
    return {m_pending.tokens, static_cast<size_t>(m_pending.key)};
}

void SourceBrowserDeclarationParser::classBody()
{
    const SourceBrowserClassHead head = this->head();
    const bool isClass = head.keyword().is(Class);
    const bool isStructure = !isClass && (m_pending.isTypedef || m_context->body == Body::Structure);
    QString name = head.name();
    const bool isNamed = !name.isEmpty();
    if (!isNamed)
        name = SourceBrowserContainer::anonymousName();
    const auto phylum = isClass ? SourceBrowserObject::Class : SourceBrowserObject::Structure;
    const QString className = constructorName(name);
    if (m_isComplete && isNamed && m_pending.isTemplate)
        name += head.arguments();
    auto object = std::make_unique<SourceBrowserContainer>(phylum, name);
    place(*object, m_pending.line);
    if (head.keyword().is(Union))
        object->setForm(SourceBrowserObject::Form::Union);
    const bool hasOtherHeads = m_heads.declaration == m_declarationNumber;
    attachComment(*object, hasOtherHeads && m_heads.line >= 0 ? m_heads.line : m_pending.line);
    object->setBaseClasses(head.baseClasses());
    // Deliberate: the event of a structure outside a typedef says "class", its object "structure".
    const auto reported = isStructure ? SourceBrowserObject::Structure : SourceBrowserObject::Class;
    if (m_events)
        m_events->declareContainer(reported, name, name, {}, m_pending.line);
    SourceBrowserContainer *container = merge(std::move(object), *m_context->container);
    Context &context = *open(isStructure ? Body::Structure : Body::Class, container);
    context.phylum = reported;
    context.className = className;
    // Deliberate: private in a "struct" outside a typedef too.
    context.access = isStructure ? SourceBrowserObject::Public : SourceBrowserObject::Private;
    context.declaredAccess = isClass ? SourceBrowserObject::Private : SourceBrowserObject::Public;
    context.isTypedef = m_pending.isTypedef;
    context.isStatic = m_pending.isStatic;
    if (hasOtherHeads)
        context.otherNames = m_heads.names;
    context.isNamed = isNamed;
    context.composedType = head.type(isNamed ? name : QString());
    context.begin = m_pending.beginsAt;
    context.line = m_pending.line;
    endDeclaration();
    m_scanner.pendingComment().clear();
}

/// Reads the declarators after the "}" of a class or structure.
void SourceBrowserDeclarationParser::afterBody(const Context &closed, const Token &brace)
{
    m_scanner.pendingComment().clear();
    begin(brace);
    m_pending.beginsAt = closed.begin;
    m_pending.line = closed.line;
    m_pending.column = closed.column;
    m_pending.isTypedef = closed.isTypedef;
    m_pending.isStatic = closed.isStatic;
    continueAfter(*closed.container, closed.composedType, closed.isNamed, brace);
}

/// Whether \a token, after the "}" of a type, begins another declaration, so that the ";" between is missing.
bool SourceBrowserDeclarationParser::startsAnother(const Token &token)
{
    if (token.word == Word::BasicType) {
        const Token next = m_stream.peek();
        return !next.is(';') && !next.is(','); // "typedef enum {...} bool;" names a type in C
    }
    return token.is(Typedef) || token.is(Extern) || token.is(Struct) || token.is(Class) || token.is(Enum) ||
           token.is(Template) || token.is(Using) || token.is(Namespace) || token.is(Public) || token.is(Private) ||
           token.is(Protected);
}

/// Reads the declarators of the type \a object, whose text is \a type.
void SourceBrowserDeclarationParser::continueAfter(SourceBrowserObject &object, const QString &type, bool isNamed,
                                                   const Token &brace)
{
    m_composedType = type;
    Token composed = brace;
    composed.code = Composed;
    composed.text = m_composedType;
    composed.blankBefore = true;
    m_pending.tokens = {composed};
    m_composed = &object;
    m_composedIsNamed = isNamed;
    bool goesOn = true;
    while (goesOn) {
        const Token token = m_stream.next();
        if (m_pending.tokens.size() == 1 && startsAnother(token)) {
            endAt(token);
            m_stream.giveBack(token);
            finish();
            break;
        }
        goesOn = collect(token);
    }
    m_composed = nullptr;
}

/// Whether \a declarator, after a named body, is a macro instead of a variable: `struct point {...} PACKED;`.
bool SourceBrowserDeclarationParser::isComposedMacro(const SourceBrowserDeclarator &declarator) const
{
    return m_composed && m_composedIsNamed && !m_pending.isTypedef &&
           (declarator.isBarePlainName || declarator.kind == SourceBrowserDeclarator::Function) &&
           isInCapitals(declarator.name);
}

/// Reads an enumeration and the declarators after it.
void SourceBrowserDeclarationParser::enumBody(const Token &brace)
{
    const SourceBrowserClassHead head = this->head();
    const QString name = head.name();
    const bool isNamed = !name.isEmpty();
    auto object = std::make_unique<SourceBrowserEnum>(SourceBrowserObject::Unknown,
                                                      isNamed ? name : SourceBrowserContainer::anonymousName());
    place(*object, m_pending.line);
    if (head.isScopedEnumeration())
        object->setForm(SourceBrowserObject::Form::ScopedEnumeration);
    attachComment(*object, m_pending.line);
    const QString type = head.type(name);
    Pending rest = m_pending;
    m_pending.tokens.clear();
    const int last = enumerators(*object);
    m_pending = std::move(rest);
    SourceBrowserObject::Lines lines = object->lines();
    lines.last = last - 1;
    object->setLines(lines);
    SourceBrowserObject &added = m_model.add(*m_context->container, std::move(object));
    m_pending.key = -1;
    m_pending.groupEnd = -1;
    continueAfter(added, type, isNamed, brace);
}

/// Reads up to the closing brace and returns its line, counted from 1.
int SourceBrowserDeclarationParser::enumerators(SourceBrowserEnum &enumeration)
{
    std::vector<Token> tokens;
    int nesting = 0;
    const auto complete = [&] {
        if (!tokens.empty() && tokens.front().isIdentifier())
            enumeration.append(SourceBrowserDeclaratorReader::sourceText(tokens));
        tokens.clear();
        m_stream.releaseLines();
    };
    for (;;) {
        const Token token = m_stream.next();
        if (token.isConditional()) {
            if (token.is(ConditionalBranch))
                complete();
            m_stream.noteConditional(token);
            continue;
        }
        nesting += (token.is('(') || token.is('[')) - (token.is(')') || token.is(']'));
        const bool ends = token.is('}') || token.is(EndOfInput) || token.is(';');
        if (ends || (token.is(',') && nesting <= 0)) {
            complete();
            nesting = 0;
            if (token.is(';'))
                m_stream.giveBack(token);
            if (ends)
                return token.line;
        } else {
            tokens.push_back(token);
        }
    }
}

} // namespace tavidoc
