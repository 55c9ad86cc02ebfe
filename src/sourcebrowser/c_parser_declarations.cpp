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
    switch (token.code) {
    case '=':
        if (m_pending.parentheses == 0 && !m_pending.isOperator() && !isComparison(token))
            return initialiser(token);
        break;
    case ':':
        if (m_pending.key < 0 && m_pending.isAfterArguments())
            return constructorInitialisers();
        if (m_pending.tokens.size() == 1 && m_context->body == Body::Class) { // a section of somebody's own
            endDeclaration();
            return false;
        }
        break;
    case String:
        if (m_pending.parentheses == 0 && !m_pending.tokens.empty() && !m_pending.endsWith(Extern) &&
            !m_pending.isOperator()) {
            finish(); // a string belongs to no declaration
            return false;
        }
        break;
    case Template:
        if (m_pending.parentheses == 0 && !m_pending.endsWith(Scope))
            return templateParameters(token);
        break;
    case Using:
    case Namespace:
        if (m_pending.parentheses == 0) {
            m_pending.isCutOff = true;
            finish();
            giveBack(token);
            return false;
        }
        break;
    default:
        break;
    }
    if (m_pending.restartsWith(token, m_scanner->pendingComment().isPresent()))
        restart(token);
    m_pending.note(token);
    return true;
}

/// What was collected are macros on lines of their own; the declaration begins with \a token.
void SourceBrowserCParser::restart(const Token &token)
{
    SourceBrowserPendingComment between = std::move(m_scanner->pendingComment());
    finish(); // one of them may wrap a declaration
    if (between.isPresent())
        m_scanner->pendingComment() = std::move(between);
    begin(token);
}

/// "#else" inside a declaration: only the first branch counts when the conditional began inside
/// it; otherwise the declaration ends here, and the next branch has its own.
bool SourceBrowserCParser::branchInDeclaration(const Token &token)
{
    if (!m_conditions.empty() && m_conditions.back().declaration == m_declarationNumber &&
        m_conditions.back().insideDeclaration) {
        skipBranches();
        return true;
    }
    finish();
    noteCondition(token);
    return false;
}

/// Whether \a equals is the second half of "!=", "<=", ">=" or "==", or the first half of the last.
bool SourceBrowserCParser::isComparison(const Token &equals)
{
    if (!equals.blankBefore && !m_pending.tokens.empty()) {
        const Token &before = m_pending.tokens.back();
        if (before.is('!') || before.is('<') || before.is('>') || before.is('='))
            return true;
    }
    return isFollowedBy('=');
}

/// Whether the next token is \a code, with nothing between it and the last one.
bool SourceBrowserCParser::isFollowedBy(int code)
{
    const Token token = next();
    giveBack(token);
    return token.is(code) && !token.blankBefore;
}

/// Skips an initialiser up to the "," or ";" after it and keeps its first token.
bool SourceBrowserCParser::initialiser(const Token &equals)
{
    m_pending.tokens.push_back(equals);
    m_pending.isInitialised = true;
    for (bool isFirst = true;; isFirst = false) {
        const Token token = nextWithExtensions();
        switch (token.code) {
        case ',':
        case ';':
        case '}':
        case EndOfInput:
        case ConditionalBranch:
            return collect(token);
        case '(':
        case '[':
        case '{':
            skipGroup(token);
            break;
        case ConditionalBegin:
        case ConditionalEnd:
            noteCondition(token);
            break;
        default:
            if (isFirst)
                m_pending.tokens.push_back(token);
            break;
        }
    }
}

/// Passes over what a constructor initialises, up to its body.
bool SourceBrowserCParser::constructorInitialisers()
{
    int previous = 0;
    for (;;) {
        const Token token = nextWithExtensions();
        if (token.is('{') && previous != Identifier && previous != '>') {
            finishWithBody(token);
            return false;
        }
        if (token.is(';') || token.is('}') || token.is(EndOfInput) || token.is(ConditionalBranch))
            return collect(token);
        if (token.is('(') || token.is('[') || token.is('{'))
            skipGroup(token);
        else if (token.code >= ConditionalBegin)
            noteCondition(token);
        if (token.code < ConditionalBegin)
            previous = token.code;
    }
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
        finishWithBody(brace);
        return false;
    }
    // "int value {3};" or a macro that stands before braces
    skipGroup(brace);
    m_pending.isInitialised = true;
    return m_pending.tokens.size() > 1;
}

void SourceBrowserCParser::finishWithBody(const Token &brace)
{
    std::vector<SourceBrowserDeclarator> declarators;
    if (!m_pending.isFriend)
        declarators = m_reader.read(m_pending.tokens, className(), m_pending.isTypedef);
    if (!declarators.empty() && declarators.front().kind == SourceBrowserDeclarator::Function)
        declareFunction(declarators.front(), true, &brace);
    else
        skipGroup(brace);
    endDeclaration();
    m_afterBody = true;
}

/// Comments inside the declaration are gone; one that it did not take waits on.
void SourceBrowserCParser::endDeclaration()
{
    restoreComment();
    m_pending.tokens.clear();
    m_afterBody = false;
}

void SourceBrowserCParser::restoreComment()
{
    m_scanner->pendingComment() = std::move(m_pending.comment);
    m_pending.comment.clear();
}

QString SourceBrowserCParser::className() const
{
    return isInClass() ? m_context->container->name() : QString();
}

} // namespace tavidoc
