#include "sourcebrowser/token_stream.h"

namespace tavidoc {

using namespace SourceBrowserToken;

namespace {

using Token = SourceBrowserTokenRecord;

int closerOf(int opener)
{
    return opener == '(' ? ')' : opener == '[' ? ']' : '}';
}

bool isOpener(const Token &token)
{
    return token.is('(') || token.is('[') || token.is('{');
}

bool isCloser(const Token &token)
{
    return token.is(')') || token.is(']') || token.is('}');
}

} // namespace

SourceBrowserTokenRecord SourceBrowserTokenStream::next()
{
    for (;;) {
        Token token = nextAny();
        if (token.word == Word::Extension)
            continue;
        if (token.word != Word::ExtensionCall)
            return token;
        token = nextAny();
        if (isOpener(token))
            skipGroup(token);
        else
            giveBack(token);
    }
}

SourceBrowserTokenRecord SourceBrowserTokenStream::takeGiven()
{
    const Token token = m_given.back();
    m_given.pop_back();
    return token;
}

SourceBrowserTokenRecord SourceBrowserTokenStream::peek()
{
    const Token token = next();
    giveBack(token);
    return token;
}

bool SourceBrowserTokenStream::isFollowedBy(int code)
{
    const Token token = nextAny();
    giveBack(token);
    return token.is(code) && !token.blankBefore;
}

void SourceBrowserTokenStream::releaseLines()
{
    if (m_given.empty()) // else a token that was read ahead may be on another line
        m_scanner.releaseLines();
}

void SourceBrowserTokenStream::skipGroup(const Token &opener)
{
    if (opener.is('{'))
        return skipBraces(1);
    const int closer = closerOf(opener.code);
    m_scanner.setKeywordFree(true);
    int nesting = 1;
    int braces = 0;
    while (nesting > 0) {
        const Token token = nextAny();
        nesting += token.is(opener.code) - token.is(closer);
        braces += token.is('{') - token.is('}');
        if (token.is(EndOfInput) || (token.is(';') && braces <= 0)) {
            giveBack(token);
            break;
        }
        noteConditional(token);
    }
    m_scanner.setKeywordFree(false);
}

/// Skips braces until \a depth of them are closed. The branches of conditionals share their braces.
void SourceBrowserTokenStream::skipBraces(int depth)
{
    m_scanner.setKeywordFree(true);
    m_scanner.keepLines(false);
    m_depth = depth;
    m_bodyMayBeStray = false;
    while (m_depth > 0) {
        const Token token = nextAny();
        if (token.is('{')) {
            ++m_depth;
        } else if (token.is('}')) {
            --m_depth;
        } else if (token.isConditional()) {
            noteConditional(token);
        } else if (token.is(EndOfInput)) {
            break;
        } else if (token.column == 0 && endsLostBody(token)) {
            Token again = token;
            if (const WordEntry *entry = wordEntry(token.text)) {
                again.code = entry->code;
                again.word = entry->word;
            }
            giveBack(again);
            break;
        }
    }
    m_depth = 0;
    m_scanner.keepLines(true);
    m_scanner.setKeywordFree(false);
}

void SourceBrowserTokenStream::skipReopenedBraces()
{
    if (m_depth > 0)
        skipBraces(m_depth);
}

/// Whether \a token, at the start of its line inside braces, can only begin a declaration at file level: a closing
/// brace was lost.
bool SourceBrowserTokenStream::endsLostBody(const Token &token) const
{
    if (!token.isIdentifier())
        return false;
    const bool begins =
        m_bodyMayBeStray || token.text == u"typedef" || token.text == u"extern" || token.text == u"namespace";
    return begins && m_owner.mayLoseBrace();
}

void SourceBrowserTokenStream::skipParenthesis()
{
    for (Token token = nextAny(); !token.is(EndOfInput) && !token.is(')'); token = nextAny())
        noteConditional(token);
}

void SourceBrowserTokenStream::skipUntil(int code)
{
    for (Token token = nextAny(); !token.is(EndOfInput) && !token.is(code); token = nextAny()) {
        if (token.is('{') || token.is('('))
            skipGroup(token);
        else if (token.is('}'))
            return giveBack(token);
        else
            noteConditional(token);
    }
}

bool SourceBrowserTokenStream::skipAngles()
{
    int nesting = 1;
    while (nesting > 0) {
        const Token token = nextAny();
        const bool isValue = token.is('{') && !token.blankBefore; // "IsEnum<T>{}"
        if (token.is(EndOfInput) || token.is(';') || token.is('}') || (token.is('{') && !isValue)) {
            giveBack(token);
            return false;
        }
        if (token.is('(') || token.is('[') || isValue)
            skipGroup(token);
        else if (token.is(ConditionalBranch) && m_owner.isConditionalInside())
            skipBranches();
        else if (token.isConditional())
            noteConditional(token);
        else if (token.is('<') && (isFollowedBy('<') || isFollowedBy('=')))
            nextAny();
        else if ((token.is('<') || token.is('>')) && !isFollowedBy('='))
            nesting += token.is('<') ? 1 : -1;
    }
    return true;
}

bool SourceBrowserTokenStream::skipToAngle()
{
    constexpr size_t longest = 100; // limits what is read again if there is no ">"
    std::vector<Token> tokens;
    int angles = 1;
    int groups = 0;
    while (tokens.size() < longest) {
        const Token &token = tokens.emplace_back(next());
        groups += isOpener(token) - isCloser(token);
        if (groups == 0 && (token.is('<') || token.is('>')))
            angles += token.is('<') ? 1 : -1;
        if (angles == 0)
            return true;
        if (groups < 0 || token.is(';') || token.is('=') || token.is(EndOfInput) || token.isConditional())
            break;
    }
    for (; !tokens.empty(); tokens.pop_back())
        giveBack(tokens.back());
    return false;
}

void SourceBrowserTokenStream::skipConstraint()
{
    bool wantsOperand = true;
    for (;;) {
        const Token token = next();
        if (token.isConditional()) {
            noteConditional(token);
        } else if ((token.is('&') || token.text == u"|") && isFollowedBy(token.code)) {
            nextAny();
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
void SourceBrowserTokenStream::skipRequirements()
{
    Token token = next();
    if (token.is('(')) {
        skipGroup(token);
        token = next();
    }
    if (token.is('{'))
        skipGroup(token);
    else
        giveBack(token);
}

void SourceBrowserTokenStream::noteConditional(const Token &token)
{
    if (!token.isConditional())
        return;
    if (token.is(ConditionalBegin)) {
        m_conditionals.push_back({m_depth});
        return m_owner.conditionalBegins();
    }
    if (m_conditionals.empty())
        return;
    Conditional &conditional = m_conditionals.back();
    const bool isFirst = conditional.firstDepth < 0;
    if (token.is(ConditionalBranch)) {
        if (isFirst)
            conditional.firstDepth = m_depth;
        m_depth = conditional.depth;
        return m_owner.branchBegins();
    }
    if (isFirst)
        m_bodyMayBeStray |= m_depth > conditional.depth;
    else
        m_depth = conditional.firstDepth;
    m_conditionals.pop_back();
    m_owner.conditionalEnds();
}

void SourceBrowserTokenStream::skipBranches()
{
    const size_t open = m_conditionals.size();
    while (m_conditionals.size() >= open) {
        const Token token = nextAny();
        if (token.is(EndOfInput))
            return;
        if (token.is(ConditionalBegin) || token.is(ConditionalEnd))
            noteConditional(token);
    }
}

} // namespace tavidoc
