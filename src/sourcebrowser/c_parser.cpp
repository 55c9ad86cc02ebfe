#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

constexpr int s_deepestContainer = 1000;

QString withoutDirectory(const QString &file)
{
    return file.mid(file.lastIndexOf(u'/') + 1);
}

} // namespace

SourceBrowserCParser::SourceBrowserCParser(SourceBrowserModel *model, SourceBrowserEventInterface *events)
    : m_model(model), m_events(events)
{
}

SourceBrowserCParser::~SourceBrowserCParser() = default;

void SourceBrowserCParser::beginGroup(const QString &) {}
void SourceBrowserCParser::addResult(const QString &, int, const QString &) {}
void SourceBrowserCParser::endGroup() {}

void SourceBrowserCParser::parse(const QString &file, const QStringList &fixmeWords)
{
    m_file = file;
    if (m_model)
        m_model->forget(file);
    beginGroup("Parsing "_L1 + withoutDirectory(file));
    reset();
    m_scanner = std::make_unique<SourceBrowserCScanner>(*this, file, m_events, m_model, m_statistics, fixmeWords);
    for (Token token = nextWithExtensions(); !token.is(EndOfInput); token = nextWithExtensions())
        statement(token);
    switchTo(&m_contexts.front());
    m_overview = m_scanner->overview();
    m_overviewComments = m_scanner->overviewComments();
    m_scanner.reset();
    m_objects->root().settle();
    endGroup();
    if (m_model)
        m_model->setStatistics(file, m_statistics);
    m_objects = nullptr;
    m_ownModel.reset();
}

void SourceBrowserCParser::reset()
{
    m_ownModel = m_model ? nullptr : std::make_unique<SourceBrowserModel>();
    m_objects = m_model ? m_model : m_ownModel.get();
    m_statistics = {};
    m_given.clear();
    m_contexts.clear();
    m_contexts.emplace_back();
    m_context = &m_contexts.front();
    m_context->container = &m_objects->root();
    m_conditions.clear();
    m_absorbed.clear();
    m_reader.reset();
    m_depth = 0;
    m_bodyMayBeStray = false;
    m_knowsLostBraces = false;
}

void SourceBrowserCParser::complain(int line, const QString &message)
{
    addResult(m_file, line, message);
}

SourceBrowserTokenRecord SourceBrowserCParser::next()
{
    return m_given.empty() ? m_scanner->read() : takeGiven();
}

SourceBrowserTokenRecord SourceBrowserCParser::takeGiven()
{
    const Token token = m_given.back();
    m_given.pop_back();
    return token;
}

/// The next token, which stays where it is.
SourceBrowserTokenRecord SourceBrowserCParser::peek()
{
    const Token token = nextWithExtensions();
    giveBack(token);
    return token;
}

/// The next token that is not a compiler extension. Any number of extensions is skipped.
SourceBrowserTokenRecord SourceBrowserCParser::nextWithExtensions()
{
    for (;;) {
        Token token = next();
        if (token.word == Word::Extension)
            continue;
        if (token.word != Word::ExtensionCall)
            return token;
        token = next();
        if (token.is('(') || token.is('[') || token.is('{'))
            skipGroup(token);
        else
            giveBack(token);
    }
}

SourceBrowserCParser::Context *SourceBrowserCParser::open(Body body, SourceBrowserContainer *container)
{
    Context &context = m_contexts.emplace_back();
    context.body = body;
    context.parent = m_context;
    context.container = container;
    context.depth = m_context->depth + 1;
    context.containers = m_context->containers + (body != Body::Block);
    context.scope = container->qualifiedName();
    context.column = m_pending.column;
    if (body == Body::Class || body == Body::Structure) {
        const QString &name = container->name(); // constructors of "class Outer::Inner" are "Inner"
        context.className = name.mid(name.lastIndexOf(u':') + 1);
    }
    m_context = &context;
    return m_context;
}

/// Leaves the innermost context; its closing brace is on \a line, counted from 0, or is
/// missing when that is -1.
void SourceBrowserCParser::closeContext(int line)
{
    const Context &closed = *m_context;
    m_context = closed.parent;
    if (closed.body == Body::Block)
        return;
    closed.container->settle();
    if (line >= 0) {
        SourceBrowserObject::Lines lines = closed.container->lines();
        lines.last = line;
        closed.container->setLines(lines);
    }
    if (closed.holdsRenamed)
        rescope(*closed.container);
    if (m_events)
        m_events->endContainer();
}

/// Passes the new name of \a container on to its members, once the outermost class around it is complete:
/// doing so at every level would be quadratic in the depth.
void SourceBrowserCParser::rescope(SourceBrowserContainer &container)
{
    if (isInClass())
        m_context->holdsRenamed = true;
    else
        m_objects->rescope(container);
}

/// Reads one statement of the innermost context.
void SourceBrowserCParser::statement(const Token &first)
{
    if (first.code >= ConditionalBegin) {
        m_pending.tokens.clear();
        m_pending.isTemplate = false;
        noteCondition(first);
        if (m_depth > 0)
            skipBraces(m_depth);
        return;
    }
    if (first.is(Skipped))
        return;
    if (m_given.empty()) // else a token that was read ahead may be on another line
        m_scanner->releaseLines();
    closeLostContainers(first);
    switch (first.code) {
    case '}':
        if (m_context->parent) {
            const Context &closed = *m_context;
            closeContext(first.line - 1);
            if (closed.body == Body::Class || closed.body == Body::Structure)
                afterBody(closed, first);
        }
        return;
    case Using:
        skipUntil(';');
        return m_scanner->pendingComment().clear(); // it documents nothing
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
        return skipGroup(first);
    if (first.is(String))
        return stringStatement();
    if (!beginsDeclaration(first) || (first.isIdentifier() && bodyStatement(first)))
        return;
    declaration(first);
}

/// Whether a declaration may begin with \a first. Every other token is passed over alone.
bool SourceBrowserCParser::beginsDeclaration(const Token &first)
{
    switch (first.code) {
    case '[':
        return peek().is('[');
    case '~':
    case Scope:
        return peek().isIdentifier() && m_given.back().word == Word::Plain;
    case Ellipsis:
    case Number:
        return false;
    default:
        return first.code >= Class;
    }
}

/// A string belongs to no declaration, but what is in braces after it is read at file level.
void SourceBrowserCParser::stringStatement()
{
    if (isInClass() || !peek().is('{'))
        return;
    next();
    open(Body::Block, m_context->container);
}

/// Reports what does not belong in a structure after "typedef". False when \a first is
/// skipped; what C++ allows there is complained of and read.
bool SourceBrowserCParser::structureToken(const Token &first)
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
           (first.code > 255 && !first.is(Number) && !first.is(Skipped) && !first.is(String));
}

/// Reads a statement that begins with an identifier but is not a declaration. False when \a first does not begin one.
bool SourceBrowserCParser::bodyStatement(const Token &first)
{
    if (!isInClass())
        return false;
    if (first.text == u"Q_PROPERTY" || first.text == u"Q_ENUM" || first.text == u"Q_OVERRIDE") {
        skipParenthesis();
        return true;
    }
    if (first.text == u"Q_SIGNALS") {
        accessLabel(first);
        return true;
    }
    return false;
}

void SourceBrowserCParser::accessLabel(const Token &first)
{
    if (!isInClass())
        return;
    const Token token = nextWithExtensions();
    if (token.isIdentifier()) { // "public Q_SLOTS:"
        const Token colon = nextWithExtensions();
        if (!colon.is(':')) {
            giveBack(colon);
            giveBack(token);
        }
    } else if (!token.is(':')) {
        giveBack(token);
    }
    setAccess(first.is(Private)     ? SourceBrowserObject::Private
              : first.is(Protected) ? SourceBrowserObject::Protected
                                    : SourceBrowserObject::Public,
              first.line - 1);
}

/// The access of the members that follow; the label is on \a line, counted from 0.
void SourceBrowserCParser::setAccess(SourceBrowserObject::Access access, int line)
{
    m_context->access = access;
    if (m_events)
        m_events->visibilityChange(access, line);
}

/// A declaration of the file that begins where the class around it began, left of the class's
/// members: the class's closing brace was lost.
void SourceBrowserCParser::closeLostContainers(const Token &first)
{
    if (!isInClass())
        return;
    if (m_context->memberColumn < 0)
        m_context->memberColumn = first.column;
    if (first.is('}') || first.column > 0 || m_context->column > 0)
        return;
    const bool beginsDeclaration = first.isIdentifier() || first.code >= Class;
    const bool fileLevelOnly = first.is(Typedef) || first.is(Extern) || first.is(Namespace);
    if (m_context->memberColumn <= 0 || !(m_context->mayBeStray ? beginsDeclaration : fileLevelOnly && lacksBrace()))
        return;
    for (; isInClass(); --m_lostBraces)
        closeContext(-1);
}

/// Whether the rest of the file closes fewer braces than are open. A "typedef" at the left margin of a
/// class ends nothing while the class's own brace is still to come. The file is looked through once.
bool SourceBrowserCParser::lacksBrace()
{
    if (!m_knowsLostBraces) {
        m_knowsLostBraces = true;
        m_lostBraces = m_context->depth - m_scanner->closersAhead();
    }
    return m_lostBraces > 0;
}

bool SourceBrowserCParser::isInClass() const
{
    return m_context->body == Body::Class || m_context->body == Body::Structure;
}

bool SourceBrowserCParser::isTooDeep() const
{
    return m_context->containers >= s_deepestContainer;
}

} // namespace tavidoc
