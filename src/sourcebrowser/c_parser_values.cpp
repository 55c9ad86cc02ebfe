#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace SourceBrowserToken;

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
    if (m_pending.isTemplate && m_pending.tokens.size() == 2 && m_pending.tokens.front().text == u"concept")
        return conceptDeclaration();
    m_pending.tokens.push_back(equals);
    m_pending.isInitialised = true;
    int angles = 0;
    bool isAfterWord = false;
    for (bool isFirst = true;; isFirst = false) {
        const Token token = nextWithExtensions();
        if (token.is(',') && angles > 0 && skipToAngle()) {
            --angles;
            continue;
        }
        angles += token.is('<') && isAfterWord && !token.blankBefore;
        angles -= token.is('>') && angles > 0;
        isAfterWord = token.isIdentifier();
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

/// After a "," in a value, skips to the ">" that makes what is around it template arguments. Takes no token when there
/// is none.
bool SourceBrowserCParser::skipToAngle()
{
    constexpr size_t longest = 100; // what is looked at again when there is none
    std::vector<Token> tokens;
    int angles = 1;
    int groups = 0;
    while (tokens.size() < longest) {
        const Token &token = tokens.emplace_back(nextWithExtensions());
        if (token.is('(') || token.is('[') || token.is('{'))
            ++groups;
        else if (token.is(')') || token.is(']') || token.is('}'))
            --groups;
        else if (groups == 0 && (token.is('<') || token.is('>')))
            angles += token.is('<') ? 1 : -1;
        if (angles == 0)
            return true;
        if (groups < 0 || token.is(';') || token.is('=') || token.is(EndOfInput) || token.code >= ConditionalBegin)
            break;
    }
    for (; !tokens.empty(); tokens.pop_back())
        giveBack(tokens.back());
    return false;
}

/// Passes over what a constructor initialises, up to its body.
bool SourceBrowserCParser::constructorInitialisers()
{
    int previous = 0;
    for (;;) {
        const Token token = nextWithExtensions();
        if (token.is('{') && previous != Identifier && previous != '>') {
            return finishWithBody(token);
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

} // namespace tavidoc
