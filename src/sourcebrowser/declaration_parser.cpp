#include "sourcebrowser/declaration_parser.h"

#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

SourceBrowserDeclarationParser::SourceBrowserDeclarationParser(const Setting &setting)
    : m_parser(setting.parser), m_ownModel(setting.model ? nullptr : std::make_unique<SourceBrowserModel>()),
      m_model(setting.model ? *setting.model : *m_ownModel), m_events(setting.events), m_file(setting.file),
      m_scanner(setting.parser, setting.file, setting.events, setting.model, setting.statistics, setting.fixmeWords),
      m_stream(m_scanner, *this), m_isComplete(setting.isComplete)
{
    m_context = &m_contexts.emplace_back();
    m_context->container = &m_model.root();
}

SourceBrowserDeclarationParser::~SourceBrowserDeclarationParser() = default;

void SourceBrowserDeclarationParser::run()
{
    for (Token token = m_stream.next(); !token.is(EndOfInput); token = m_stream.next())
        statement(token);
    switchTo(&m_contexts.front());
    m_model.root().settle();
}

void SourceBrowserDeclarationParser::complain(int line, const QString &message)
{
    m_parser.addResult(m_file, line, message);
}

/// Reads one statement of the innermost context.
void SourceBrowserDeclarationParser::statement(const Token &first)
{
    if (first.isConditional()) {
        m_pending.tokens.clear();
        m_pending.isTemplate = false;
        m_stream.noteConditional(first);
        m_stream.skipReopenedBraces();
        return;
    }
    if (first.is(Skipped))
        return;
    m_stream.releaseLines();
    closeLostContainers(first);
    switch (first.code) {
    case '}':
        if (m_context->parent) {
            const Context &closed = *m_context;
            closeContext(first.line - 1);
            if (closed.isClass())
                afterBody(closed, first);
        }
        return;
    case Using:
        if (m_isComplete) {
            begin(first);
            aliasDeclaration();
            return;
        }
        m_stream.skipUntil(';');
        return m_scanner.pendingComment().clear(); // it documents nothing
    case Namespace:
        return namespaceStatement(first);
    default:
        break;
    }
    if (m_context->body == Body::Structure && !structureToken(first))
        return;
    if (first.is(Public) || first.is(Protected) || first.is(Private))
        return accessLabel(first);
    if (first.is('{'))
        return m_stream.skipGroup(first);
    if (first.is(String))
        return stringStatement();
    if (!beginsDeclaration(first) || (first.isIdentifier() && bodyStatement(first)))
        return;
    declaration(first);
}

/// Whether a declaration may begin with \a first. Every other token is skipped alone.
bool SourceBrowserDeclarationParser::beginsDeclaration(const Token &first)
{
    switch (first.code) {
    case '[':
        return m_stream.peek().is('[');
    case '~':
    case Scope:
        return m_stream.peek().isPlainName();
    case Ellipsis:
    case Number:
        return false;
    default:
        return first.isIdentifier() || first.isKeyword();
    }
}

/// A string belongs to no declaration, but the content of braces after it is read at file level.
void SourceBrowserDeclarationParser::stringStatement()
{
    if (isInClass() || !m_stream.peek().is('{'))
        return;
    m_stream.next();
    open(Body::Block, m_context->container);
}

/// Reports tokens that do not belong in a structure of a typedef. False if \a first is skipped; those that C++
/// allows there are reported and read.
bool SourceBrowserDeclarationParser::structureToken(const Token &first)
{
    switch (first.code) {
    case Const:
    case Volatile:
    case Identifier:
    case Union:
    case Struct:
    case Enum:
        return true;
    default:
        break;
    }
    if (first.is(';') && m_afterBody)
        return false;
    complain(first.line, u"Bad struct declaration"_s);
    return first.is('~') || first.is('[') ||
           (!first.isPunctuation() && !first.is(Number) && !first.is(Skipped) && !first.is(String));
}

/// Reads a statement in a class that begins with an identifier without being a declaration. False if there is none.
bool SourceBrowserDeclarationParser::bodyStatement(const Token &first)
{
    if (!isInClass())
        return false;
    if (first.text == u"Q_PROPERTY" || first.text == u"Q_ENUM" || first.text == u"Q_OVERRIDE") {
        m_stream.skipParenthesis();
        return true;
    }
    if (first.text == u"Q_SIGNALS") {
        accessLabel(first);
        return true;
    }
    return false;
}

void SourceBrowserDeclarationParser::accessLabel(const Token &first)
{
    if (!isInClass())
        return;
    const Token token = m_stream.next();
    if (token.isIdentifier()) { // "public Q_SLOTS:"
        const Token colon = m_stream.next();
        if (!colon.is(':')) {
            m_stream.giveBack(colon);
            m_stream.giveBack(token);
        }
    } else if (!token.is(':')) {
        m_stream.giveBack(token);
    }
    setAccess(accessOf(first), first.line - 1);
}

/// Sets the access of the next members. The label is on \a line, counted from 0.
void SourceBrowserDeclarationParser::setAccess(SourceBrowserObject::Access access, int line)
{
    m_context->access = access;
    m_context->declaredAccess = access;
    if (m_events)
        m_events->visibilityChange(access, line);
}

} // namespace tavidoc
