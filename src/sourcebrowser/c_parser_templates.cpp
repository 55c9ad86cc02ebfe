#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace SourceBrowserToken;

/// Passes over "<...>" after "template", and over what the parameters are required to be.
bool SourceBrowserCParser::templateParameters(const Token &keyword)
{
    Token token = nextWithExtensions();
    if (!token.is('<')) {
        giveBack(token);
        m_pending.isInstantiation = m_pending.tokens.empty() || m_pending.endsWith(Extern) || m_pending.isMacroRun();
        return true;
    }
    m_pending.isTemplate = true;
    if (!skipAngles())
        return true;
    token = nextWithExtensions();
    if (token.text == u"requires")
        skipConstraint();
    else
        giveBack(token);
    if (m_pending.tokens.empty())
        m_pending.column = keyword.column;
    return true;
}

/// Skips to the ">" that matches a "<" just read. False when something else ends it.
bool SourceBrowserCParser::skipAngles()
{
    int nesting = 1;
    while (nesting > 0) {
        const Token token = next();
        const bool isValue = token.is('{') && !token.blankBefore; // "IsEnum<T>{}"
        if (token.is(EndOfInput) || token.is(';') || token.is('}') || (token.is('{') && !isValue)) {
            giveBack(token);
            return false;
        }
        if (token.is('(') || token.is('[') || isValue)
            skipGroup(token);
        else if (token.is(ConditionalBranch) && isConditionalInside())
            skipBranches();
        else if (token.code >= ConditionalBegin)
            noteCondition(token);
        else if (token.is('<') && (isFollowedBy('<') || isFollowedBy('=')))
            next();
        else if ((token.is('<') || token.is('>')) && !isFollowedBy('='))
            nesting += token.is('<') ? 1 : -1;
    }
    return true;
}

/// Skips the expression after "requires": names and groups, joined by "&&" and "||".
void SourceBrowserCParser::skipConstraint()
{
    bool wantsOperand = true;
    for (;;) {
        const Token token = nextWithExtensions();
        if (token.code >= ConditionalBegin) {
            noteCondition(token);
        } else if ((token.is('&') || token.text == u"|") && isFollowedBy(token.code)) {
            next();
            wantsOperand = true;
        } else if (token.is(Scope) || token.is('!')) {
            wantsOperand = true;
        } else if (token.is('<') && !wantsOperand) {
            if (!skipAngles())
                return;
        } else if (wantsOperand && token.text == u"requires") {
            skipRequirements();
            wantsOperand = false;
        } else if (wantsOperand && token.is('(')) {
            skipGroup(token);
            wantsOperand = false;
        } else if (wantsOperand && (token.isIdentifier() || token.is(Number))) {
            wantsOperand = false;
        } else {
            return giveBack(token);
        }
    }
}

/// Skips the arguments and the body of a "requires" expression.
void SourceBrowserCParser::skipRequirements()
{
    Token token = nextWithExtensions();
    if (token.is('(')) {
        skipGroup(token);
        token = nextWithExtensions();
    }
    if (token.is('{'))
        skipGroup(token);
    else
        giveBack(token);
}

} // namespace tavidoc
