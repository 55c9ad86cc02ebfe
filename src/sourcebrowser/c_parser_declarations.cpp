#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

/// Reads a declaration that begins with \a first.
void SourceBrowserCParser::declaration(const Token &first)
{
    begin(first);
    bool goesOn = collect(first);
    while (goesOn) {
        const Token token = nextWithExtensions();
        goesOn = collect(token);
    }
}

void SourceBrowserCParser::begin(const Token &first)
{
    ++m_declarationNumber;
    std::vector<Token> tokens = std::move(m_pending.tokens);
    tokens.clear();
    SourceBrowserPendingComment comment = std::move(m_pending.comment); // for its memory
    m_pending = {};
    m_pending.tokens = std::move(tokens);
    m_pending.line = first.line - 1;
    m_pending.column = first.column;
    m_pending.lastLine = first.line;
    m_pending.className = m_context->className;
    std::swap(comment, m_scanner->pendingComment());
    m_scanner->pendingComment().clear();
    m_pending.comment = std::move(comment);
}

/// Takes one more token of the declaration. False when the declaration has ended.
bool SourceBrowserCParser::collect(const Token &token)
{
    switch (token.code) {
    case EndOfInput:
        m_pending.isCutOff = true;
        finish();
        return false;
    case ';':
        if (m_pending.isOldStyle()) {
            m_pending.tokens.push_back(token);
            return true;
        }
        finish();
        return false;
    case '}':
        m_pending.isCutOff = true;
        giveBack(token);
        finish();
        return false;
    case '{':
        if (m_pending.parentheses == 0)
            return braceInDeclaration(token);
        skipGroup(token); // part of a default argument
        return true;
    case ConditionalBegin:
    case ConditionalEnd:
        if (token.is(ConditionalBegin) || isConditionalInside())
            m_pending.lastLine = token.line;
        noteCondition(token);
        return true;
    case ConditionalBranch:
        return branchInDeclaration(token);
    default:
        return collectPart(token);
    }
}

/// Takes a token that neither ends the declaration by itself nor branches it.
bool SourceBrowserCParser::collectPart(const Token &token)
{
    if (token.word == Word::Keyword && isName(token)) {
        Token name = token;
        name.code = Identifier;
        name.word = Word::Plain;
        m_pending.note(name);
        return true;
    }
    switch (token.code) {
    case '=':
        if (m_pending.parentheses == 0 && !m_pending.isOperator() && !isComparison(token))
            return initialiser(token);
        break;
    case ':':
        if (m_pending.key < 0 && m_pending.isAfterArguments())
            return constructorInitialisers();
        if (m_context->body == Body::Class && endsWithSection(token)) {
            endDeclaration();
            return false;
        }
        break;
    case ')':
        if (m_scanner->pendingComment().isPresent())
            m_scanner->pendingComment().clear(); // it is the arguments'
        break;
    case Skipped:
        if (!m_pending.isInText())
            return true;
        break;
    case Public:
    case Protected:
    case Private:
        if (m_pending.parentheses == 0 && isInClass() && isLabel())
            return cutOff(token);
        break;
    case String:
        if (m_pending.parentheses == 0 && !m_pending.tokens.empty() && !m_pending.endsWith(Extern) &&
            !m_pending.isOperator()) {
            finish(); // a string belongs to no declaration
            return false;
        }
        break;
    case Template:
        if (m_pending.parentheses == 0 && !m_pending.endsWith(Scope)) {
            if (token.line != m_pending.lastLine)
                leaveMacros(token);
            return templateParameters(token);
        }
        break;
    case Using:
    case Namespace:
        if (m_pending.parentheses == 0)
            return cutOff(token);
        break;
    default:
        break;
    }
    if (token.line != m_pending.lastLine || m_scanner->pendingComment().isPresent())
        leaveMacros(token);
    m_pending.note(token);
    return true;
}

/// Starts again with \a token when the tokens so far are standalone macros.
void SourceBrowserCParser::leaveMacros(const Token &token)
{
    SourceBrowserPendingComment &next = m_scanner->pendingComment();
    if (m_pending.restartsWith(token, next)) {
        leave();
        begin(token);
    } else if (next.isPresent() && !m_pending.comment.isPresent() && m_pending.isMacroRun()) {
        std::swap(m_pending.comment, next); // "API /*! what f does */ int f(void);"
    }
}

/// Ends the declaration before its ";", because \a token begins something else.
bool SourceBrowserCParser::cutOff(const Token &token)
{
    leave();
    giveBack(token);
    return false;
}

/// Declares what was collected before something that does not belong to it, macros on lines of
/// their own for the most part. A comment after them is that of what follows.
void SourceBrowserCParser::leave()
{
    SourceBrowserPendingComment between;
    if (m_pending.isReplacedBy(m_scanner->pendingComment()))
        std::swap(between, m_scanner->pendingComment());
    m_pending.isCutOff = true;
    finish();
    if (between.isPresent())
        m_scanner->pendingComment() = std::move(between);
}

/// Whether the word before \a colon is a user-defined access label: alone, or on a line of its own
/// after macros.
bool SourceBrowserCParser::endsWithSection(const Token &colon)
{
    const std::vector<Token> &tokens = m_pending.tokens;
    if (tokens.empty() || !tokens.back().isIdentifier())
        return false;
    if (tokens.size() == 1)
        return true;
    if (!m_pending.isMacroRun())
        return false;
    const bool isSignals = tokens.back().text == u"Q_SIGNALS";
    if (!isSignals && tokens.back().line == tokens[tokens.size() - 2].line)
        return false;
    if (isSignals)
        setAccess(SourceBrowserObject::Public, colon.line - 1);
    return true;
}

/// Whether \a keyword, which C does not have, is a name: after a type, before what follows a declarator.
bool SourceBrowserCParser::isName(const Token &keyword)
{
    if (m_pending.tokens.empty() || m_pending.parentheses > 0)
        return false;
    const Token &before = m_pending.tokens.back();
    if (!before.isIdentifier() && !before.is('*') && !before.is('&') && !before.is(','))
        return false;
    switch (keyword.code) {
    case Class:
    case Public:
    case Protected:
    case Private:
    case Virtual:
    case Friend:
    case Using:
    case Template:
    case Namespace: {
        const Token token = nextWithExtensions();
        const bool isAttribute = token.is('[') && peek().is('['); // "BEGIN class [[x]] C {"
        giveBack(token);
        const int next = isAttribute ? 0 : token.code;
        return next == ';' || next == ',' || next == '=' || next == '[' || next == '(' ||
               (next == ':' && keyword.line == before.line && !m_pending.isMacroRun());
    }
    case Throw:
        return m_pending.groupEnd < 0 && (peek().is(';') || m_given.back().is('('));
    case Operator: {
        const Token token = nextWithExtensions();
        const bool isFunction = token.is('(') && !peek().is(')'); // not "operator()"
        giveBack(token);
        return isFunction || token.is(';');
    }
    default:
        return false;
    }
}

/// Whether an access keyword that was just read begins a label and not a base class or a member.
bool SourceBrowserCParser::isLabel()
{
    const Token word = nextWithExtensions();
    bool isLabel = word.is(':');
    if (isLabel || word.isIdentifier()) {
        const Token next = nextWithExtensions();
        isLabel = isLabel ? !next.is(Number) : next.is(':');
        giveBack(next);
    }
    giveBack(word);
    return isLabel;
}

/// Whether the innermost conditional began inside the declaration that is being read.
bool SourceBrowserCParser::isConditionalInside() const
{
    return !m_conditions.empty() && m_conditions.back().declaration == m_declarationNumber &&
           m_conditions.back().insideDeclaration;
}

/// "#else" inside a declaration: only the first branch counts when the conditional began inside
/// it; otherwise the declaration ends here, and the next branch has its own.
bool SourceBrowserCParser::branchInDeclaration(const Token &token)
{
    if (isConditionalInside() && !m_pending.isMacroRun()) {
        skipBranches();
        return true;
    }
    m_pending.isCutOff |= m_pending.isMacroRun();
    finish();
    noteCondition(token);
    return false;
}

/// A "{" outside brackets: a container, an enumeration, a body or an initialiser.
bool SourceBrowserCParser::braceInDeclaration(const Token &brace)
{
    if (m_pending.isLanguageBlock()) {
        restoreComment();
        open(Body::Block, m_context->container);
        return false;
    }
    if (m_pending.key >= 0 && opensClass()) {
        if (m_pending.tokens[static_cast<size_t>(m_pending.key)].is(Enum)) {
            enumBody(brace);
            return false;
        }
        if (!isTooDeep()) {
            classBody();
            return false;
        }
        skipGroup(brace);
        return true;
    }
    if (m_pending.groupEnd >= 0) {
        return finishWithBody(brace);
    }
    // "int value {3};" or a macro before braces
    skipGroup(brace);
    m_pending.isInitialised = true;
    return m_pending.tokens.size() > 1;
}

/// Skips a function's body, or the value of a variable: `int a GUARDED_BY(b) {3};`. False when the declaration has
/// ended.
bool SourceBrowserCParser::finishWithBody(const Token &brace)
{
    const bool isMacroRun = m_pending.isMacroRun();
    const std::vector<SourceBrowserDeclarator> declarators = readPending(true);
    if (!declarators.empty() && declarators.front().kind == SourceBrowserDeclarator::Function) {
        declareFunction(declarators.front(), true, &brace);
    } else {
        skipGroup(brace);
        if (!isMacroRun) {
            SourceBrowserPendingComment &comment = m_scanner->pendingComment();
            comment.clear(); // it is the body's
            const bool isObject = !declarators.empty() && declarators.front().kind == SourceBrowserDeclarator::Object;
            if (isObject && (peek().is(';') || m_given.back().is(','))) {
                m_pending.isInitialised = true;
                return true;
            }
            m_pending.comment = std::move(comment);
        }
    }
    endDeclaration();
    m_afterBody = true;
    return false;
}

/// Comments inside the declaration are gone; one that macros did not take waits on.
void SourceBrowserCParser::endDeclaration()
{
    restoreComment();
    m_pending.tokens.clear();
    m_pending.isTemplate = false;
    m_afterBody = false;
}

void SourceBrowserCParser::restoreComment()
{
    m_scanner->pendingComment() = std::move(m_pending.comment);
    m_pending.comment.clear();
}

/// The name that constructors have here; empty outside classes.
const QString &SourceBrowserCParser::className() const
{
    static const QString none;
    return m_pending.isFriend ? none : m_context->className;
}

} // namespace tavidoc
