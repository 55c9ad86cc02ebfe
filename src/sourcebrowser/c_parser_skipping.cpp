#include "sourcebrowser/c_parser.h"

namespace tavidoc {

using namespace SourceBrowserToken;

namespace {

int closerOf(int opener)
{
    return opener == '(' ? ')' : opener == '[' ? ']' : '}';
}

} // namespace

/// Skips to the closer that matches \a opener. A group in parentheses or brackets that is never
/// closed ends at a ";".
void SourceBrowserCParser::skipGroup(const Token &opener)
{
    if (opener.is('{'))
        return skipBraces(1);
    const int closer = closerOf(opener.code);
    m_scanner->setKeywordFree(true);
    int nesting = 1;
    int braces = 0;
    while (nesting > 0) {
        const Token token = next();
        nesting += token.is(opener.code) - token.is(closer);
        braces += token.is('{') - token.is('}');
        if (token.is(EndOfInput) || (token.is(';') && braces <= 0))
            break;
        if (token.code >= ConditionalBegin)
            noteCondition(token);
    }
    m_scanner->setKeywordFree(false);
}

/// Skips the braces that are open to a depth of \a depth. The branches of conditionals share
/// their braces.
void SourceBrowserCParser::skipBraces(int depth)
{
    m_scanner->setKeywordFree(true);
    m_scanner->keepLines(false);
    m_depth = depth;
    m_bodyMayBeStray = false;
    while (m_depth > 0) {
        const Token token = next();
        if (token.is('{')) {
            ++m_depth;
        } else if (token.is('}')) {
            --m_depth;
        } else if (token.code >= ConditionalBegin) {
            noteCondition(token);
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
    m_scanner->keepLines(true);
    m_scanner->setKeywordFree(false);
}

/// Whether \a token, at the start of its line inside braces, can only begin a declaration at file
/// level: a closing brace was lost.
bool SourceBrowserCParser::endsLostBody(const Token &token) const
{
    if (!token.isIdentifier() || m_pending.column > 0 || isInClass())
        return false;
    return m_bodyMayBeStray || token.text == u"typedef" || token.text == u"extern" || token.text == u"namespace";
}

void SourceBrowserCParser::skipParenthesis()
{
    for (Token token = next(); !token.is(EndOfInput) && !token.is(')'); token = next()) {
        if (token.code >= ConditionalBegin)
            noteCondition(token);
    }
}

void SourceBrowserCParser::skipUntil(int code)
{
    for (Token token = next(); !token.is(EndOfInput) && !token.is(code); token = next()) {
        if (token.is('{') || token.is('('))
            skipGroup(token);
        else if (token.is('}'))
            return giveBack(token);
        else if (token.code >= ConditionalBegin)
            noteCondition(token);
    }
}

/// Every branch of a conditional begins with the braces that were open before it; after it the
/// braces are those at the end of its first branch.
void SourceBrowserCParser::noteCondition(const Token &token)
{
    if (token.is(ConditionalBegin)) {
        const bool isInside = m_pending.isTemplate || !m_pending.tokens.empty();
        m_conditions.push_back({m_context, m_depth, m_declarationNumber, isInside, false, nullptr, 0});
        return;
    }
    if (m_conditions.empty())
        return;
    Condition &condition = m_conditions.back();
    if (token.is(ConditionalBranch)) {
        if (!condition.hasBranched) {
            condition.hasBranched = true;
            condition.firstContext = m_context;
            condition.firstDepth = m_depth;
        }
        switchTo(condition.context);
        m_depth = condition.depth;
        return;
    }
    if (condition.hasBranched && m_context->depth != condition.firstContext->depth)
        switchTo(condition.firstContext);
    if (condition.hasBranched) {
        m_depth = condition.firstDepth;
    } else {
        m_context->mayBeStray |= m_context->depth > condition.context->depth;
        m_bodyMayBeStray |= m_depth > condition.depth;
    }
    m_conditions.pop_back();
}

/// Makes \a context the innermost one. The listener hears of containers that are left or entered
/// again, so that its picture stays balanced.
void SourceBrowserCParser::switchTo(Context *context)
{
    std::vector<Context *> entered;
    Context *common = context;
    while (common != m_context) {
        if (common->depth > m_context->depth) {
            entered.push_back(common);
            common = common->parent;
        } else {
            closeContext(-1);
        }
    }
    for (; !entered.empty(); entered.pop_back()) {
        Context *next = entered.back();
        if (m_events && next->container != m_context->container)
            m_events->declareContainer(next->phylum, next->container->name(), next->container->name(), {},
                                       next->container->lines().first);
        m_context = next;
    }
}

/// Skips the other branches of the conditional that began inside the declaration being read.
void SourceBrowserCParser::skipBranches()
{
    const size_t open = m_conditions.size();
    while (m_conditions.size() >= open) {
        const Token token = next();
        if (token.is(EndOfInput))
            return;
        if (token.is(ConditionalBegin) || token.is(ConditionalEnd))
            noteCondition(token);
    }
}

} // namespace tavidoc
