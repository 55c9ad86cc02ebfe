#include "sourcebrowser/declaration_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

/// Reads a declaration that begins with \a first.
void SourceBrowserDeclarationParser::declaration(const Token &first)
{
    begin(first);
    bool goesOn = collect(first);
    while (goesOn) {
        const Token token = m_stream.next();
        goesOn = collect(token);
    }
}

void SourceBrowserDeclarationParser::begin(const Token &first)
{
    ++m_declarationNumber;
    std::vector<Token> tokens = std::move(m_pending.tokens);
    tokens.clear();
    SourceBrowserPendingComment comment = std::move(m_pending.comment); // for its memory
    m_pending = {};
    m_pending.tokens = std::move(tokens);
    m_pending.beginsAt = positionOf(first);
    m_pending.line = first.line - 1;
    m_pending.column = first.column;
    m_pending.lastLine = first.line;
    m_pending.className = m_context->className;
    std::swap(comment, m_scanner.pendingComment());
    m_scanner.pendingComment().clear();
    m_pending.comment = std::move(comment);
}

/// Adds one more token to the declaration. False if it ends the declaration.
bool SourceBrowserDeclarationParser::collect(const Token &token)
{
    switch (token.code) {
    case EndOfInput:
        endAt(token);
        m_pending.isCutOff = true;
        finish();
        return false;
    case ';':
        if (m_pending.isOldStyle()) {
            m_pending.dropOldArgument();
            return true;
        }
        endAt(token);
        finish();
        return false;
    case '}':
        endAt(token);
        m_pending.isCutOff = true;
        m_stream.giveBack(token);
        finish();
        return false;
    case '{':
        if (m_pending.parentheses == 0)
            return braceInDeclaration(token);
        m_stream.skipGroup(token); // part of a default argument
        return true;
    case ConditionalBegin:
    case ConditionalEnd:
        if (token.is(ConditionalBegin) || isConditionalInside())
            m_pending.lastLine = token.line;
        m_stream.noteConditional(token);
        return true;
    case ConditionalBranch:
        return branchInDeclaration(token);
    default:
        return collectPart(token);
    }
}

/// Adds a token that is neither the end of a declaration by itself nor a conditional.
bool SourceBrowserDeclarationParser::collectPart(const Token &token)
{
    if (token.isKeyword() && isName(token)) {
        Token name = token;
        name.code = Identifier;
        name.word = Word::Plain;
        m_pending.note(name);
        return true;
    }
    if (token.is(Skipped) && !m_pending.isInText())
        return true;
    if (m_pending.parentheses == 0) {
        if (const std::optional<bool> goesOn = collectTurn(token))
            return *goesOn;
    }
    if (token.is(')') && m_scanner.pendingComment().isPresent())
        m_scanner.pendingComment().clear(); // it belongs to the arguments
    if (token.line != m_pending.lastLine || m_scanner.pendingComment().isPresent())
        leaveMacros(token);
    m_pending.note(token);
    return true;
}

/// Reads a part of the declaration that begins with \a token outside brackets and needs more than to be noted: a value,
/// template parameters, or the beginning of something else. Null if \a token is to be noted.
std::optional<bool> SourceBrowserDeclarationParser::collectTurn(const Token &token)
{
    switch (token.code) {
    case '=':
        if (!m_pending.isOperator() && !isComparison(token))
            return initialiser(token);
        break;
    case ':':
        if (m_pending.key < 0 && m_pending.isAfterArguments() && !beginsWidth())
            return constructorInitialisers(token);
        if (m_context->body == Body::Class && endsWithSection(token)) {
            endDeclaration();
            return false;
        }
        break;
    case Public:
    case Protected:
    case Private:
        if (isInClass() && isLabel())
            return cutOff(token);
        break;
    case String:
        if (!m_pending.tokens.empty() && !m_pending.endsWith(Extern) && !m_pending.isOperator()) {
            endAt(token);
            finish(); // a string belongs to no declaration
            return false;
        }
        break;
    case Template:
        if (!m_pending.endsWith(Scope)) {
            if (token.line != m_pending.lastLine)
                leaveMacros(token);
            return templateParameters();
        }
        break;
    case Using:
        if (m_isComplete && m_pending.isTemplate && m_pending.tokens.empty())
            return aliasDeclaration();
        return cutOff(token);
    case Namespace:
        return cutOff(token);
    default:
        break;
    }
    return std::nullopt;
}

/// Whether the ":" read last, after a group, begins the width of a bit field and not a constructor's initialisers, each
/// of which has a value.
bool SourceBrowserDeclarationParser::beginsWidth()
{
    if (m_pending.isFieldInParentheses())
        return true;
    if (!m_pending.mayBeFieldInParentheses())
        return false;
    const Token width = m_stream.next();
    const bool isName = width.isPlainName() && (m_stream.peek().is(';') || m_stream.peek().is(','));
    m_stream.giveBack(width);
    return isName || width.is(Number) || width.is('(');
}

/// Starts again with \a token if the tokens so far are standalone macros.
void SourceBrowserDeclarationParser::leaveMacros(const Token &token)
{
    SourceBrowserPendingComment &next = m_scanner.pendingComment();
    if (m_pending.restartsWith(token, next)) {
        endAt(token);
        leave();
        begin(token);
    } else if (next.isPresent() && !m_pending.comment.isPresent() && m_pending.isMacroRun()) {
        std::swap(m_pending.comment, next); // "API /*! what f does */ int f(void);"
    }
}

/// Ends the declaration before its ";", because \a token begins something else.
bool SourceBrowserDeclarationParser::cutOff(const Token &token)
{
    endAt(token);
    leave();
    m_stream.giveBack(token);
    return false;
}

/// Ends the declaration before a token that does not belong to it. Mostly its tokens are macros on lines of their
/// own; a comment after them documents the next declaration.
void SourceBrowserDeclarationParser::leave()
{
    SourceBrowserPendingComment between;
    if (m_pending.isReplacedBy(m_scanner.pendingComment()))
        std::swap(between, m_scanner.pendingComment());
    m_pending.isCutOff = true;
    finish();
    if (between.isPresent())
        m_scanner.pendingComment() = std::move(between);
}

/// Whether the word before \a colon is a user-defined access label: alone, or on a line of its own
/// after macros.
bool SourceBrowserDeclarationParser::endsWithSection(const Token &colon)
{
    const std::vector<Token> &tokens = m_pending.tokens;
    if (tokens.empty() || !tokens.back().isIdentifier())
        return false;
    if (tokens.size() == 1)
        return true;
    const bool isMacroRun = m_pending.isMacroRun();
    if (!isMacroRun && !(m_pending.isMacroRun(tokens.size() - 1) && m_stream.peek().line != colon.line))
        return false;
    const bool isSignals = tokens.back().text == u"Q_SIGNALS";
    if (!isSignals && tokens.back().line == tokens[tokens.size() - 2].line)
        return false;
    if (isSignals)
        setAccess(SourceBrowserObject::Public, colon.line - 1);
    return true;
}

/// Whether \a keyword, which C lacks, is a name: it is after a type and before a token that follows a declarator, or it
/// is the tag of a structure.
bool SourceBrowserDeclarationParser::isName(const Token &keyword)
{
    if (m_pending.endsWith(Struct) || m_pending.endsWith(Union))
        return isKeywordOfCPlusPlus(keyword);
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
        const Token token = m_stream.next();
        const bool isAttribute = token.is('[') && m_stream.peek().is('['); // "BEGIN class [[x]] C {"
        m_stream.giveBack(token);
        const int next = isAttribute ? 0 : token.code;
        return next == ';' || next == ',' || next == '=' || next == '[' || next == '(' ||
               (next == ':' && keyword.line == before.line && !m_pending.isMacroRun());
    }
    case Throw:
        return m_pending.groupEnd < 0 && (m_stream.peek().is(';') || m_stream.peek().is('('));
    case Operator: {
        const Token token = m_stream.next();
        const bool isFunction = token.is('(') && !m_stream.peek().is(')'); // not "operator()"
        m_stream.giveBack(token);
        return isFunction || token.is(';');
    }
    default:
        return false;
    }
}

/// Whether the access keyword read last begins a label, not a base class or a member.
bool SourceBrowserDeclarationParser::isLabel()
{
    const Token word = m_stream.next();
    bool isLabel = word.is(':');
    if (isLabel || word.isIdentifier()) {
        const Token next = m_stream.next();
        isLabel = isLabel ? !next.is(Number) : next.is(':');
        m_stream.giveBack(next);
    }
    m_stream.giveBack(word);
    return isLabel;
}

/// "#else" inside a declaration: only the first branch is read if the conditional began inside the declaration;
/// otherwise the declaration ends here, and the next branch has its own.
bool SourceBrowserDeclarationParser::branchInDeclaration(const Token &token)
{
    if (isConditionalInside() && !m_pending.isMacroRun()) {
        m_stream.skipBranches();
        return true;
    }
    m_pending.isCutOff |= m_pending.isMacroRun();
    m_pending.isBranchHead = m_pending.key >= 0 && head().opensBody();
    if (m_pending.isBranchHead && !m_conditions.empty()) {
        SourceBrowserBranchHeads &heads = m_conditions.back().heads;
        heads.names << constructorName(head().name());
        heads.line = heads.line < 0 ? m_pending.line : heads.line;
        m_pending.declaresNothing |= head().keyword().is(Class) || !head().baseClasses().empty(); // else a variable
    }
    endAt(token);
    finish();
    m_stream.noteConditional(token);
    return false;
}

/// A "{" outside brackets: a container, an enumeration, a body or an initialiser.
bool SourceBrowserDeclarationParser::braceInDeclaration(const Token &brace)
{
    if (m_pending.isLanguageBlock()) {
        restoreComment();
        open(Body::Block, m_context->container);
        return false;
    }
    if (m_pending.key >= 0 && head().opensBody()) {
        endAt(brace);
        if (head().keyword().is(Enum)) {
            enumBody(brace);
            return false;
        }
        if (!isTooDeep()) {
            classBody();
            return false;
        }
        m_stream.skipGroup(brace);
        return true;
    }
    if (m_pending.groupEnd >= 0) {
        endAt(brace);
        return finishWithBody(brace);
    }
    // "int value {3};" or a macro before braces
    m_stream.skipGroup(brace);
    m_pending.isInitialised = true;
    return m_pending.tokens.size() > 1;
}

/// Skips a function's body, or the value of a variable: `int a GUARDED_BY(b) {3};`. False if the declaration has
/// ended.
bool SourceBrowserDeclarationParser::finishWithBody(const Token &brace)
{
    const bool isMacroRun = m_pending.isMacroRun();
    const SourceBrowserDeclarators declarators = readPending(true);
    if (!declarators.empty() && declarators.front().kind == SourceBrowserDeclarator::Function) {
        declareFunction(declarators.front(), true, &brace);
    } else {
        m_stream.skipGroup(brace);
        if (!isMacroRun) {
            SourceBrowserPendingComment &comment = m_scanner.pendingComment();
            comment.clear(); // it belongs to the body
            const bool isObject = !declarators.empty() && declarators.front().kind == SourceBrowserDeclarator::Object;
            if (isObject && (m_stream.peek().is(';') || m_stream.peek().is(','))) {
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

/// Drops comments inside the declaration. A comment that macros did not use is kept for the next declaration.
void SourceBrowserDeclarationParser::endDeclaration()
{
    restoreComment();
    m_pending.tokens.clear();
    m_pending.isTemplate = false;
    m_afterBody = false;
}

void SourceBrowserDeclarationParser::restoreComment()
{
    m_scanner.pendingComment() = std::move(m_pending.comment);
    m_pending.comment.clear();
}

} // namespace tavidoc
