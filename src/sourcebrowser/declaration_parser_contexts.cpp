#include "sourcebrowser/declaration_parser.h"

namespace tavidoc {

using namespace SourceBrowserToken;

namespace {

constexpr int s_deepestContainer = 1000;

} // namespace

SourceBrowserParserContext *SourceBrowserDeclarationParser::open(Body body, SourceBrowserContainer *container)
{
    Context &context = m_contexts.emplace_back();
    context.body = body;
    context.parent = m_context;
    context.container = container;
    context.depth = m_context->depth + 1;
    context.containers = m_context->containers + (body != Body::Block);
    context.scope = container->qualifiedName();
    context.column = m_pending.column;
    if (context.isClass())
        context.className = constructorName(container->name());
    m_context = &context;
    return m_context;
}

/// Leaves the innermost context. Its closing brace is on \a line, counted from 0; -1 if it is missing.
void SourceBrowserDeclarationParser::closeContext(int line)
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

/// Updates the scopes in \a container after it was renamed, once the outermost class around it is complete: an
/// update at every level would take quadratic time.
void SourceBrowserDeclarationParser::rescope(SourceBrowserContainer &container)
{
    if (isInClass())
        m_context->holdsRenamed = true;
    else
        m_model.rescope(container);
}

/// Closes the class if \a first begins a declaration of the file: it is at the left margin like the class itself,
/// left of its members, so the closing brace of the class was lost.
void SourceBrowserDeclarationParser::closeLostContainers(const Token &first)
{
    if (!isInClass())
        return;
    if (m_context->memberColumn < 0)
        m_context->memberColumn = first.column;
    if (first.is('}') || first.column > 0 || m_context->column > 0)
        return;
    const bool beginsDeclaration = !first.isPunctuation();
    const bool fileLevelOnly = first.is(Typedef) || first.is(Extern) || first.is(Namespace);
    if (m_context->memberColumn <= 0 || !(m_context->mayBeStray ? beginsDeclaration : fileLevelOnly && lacksBrace()))
        return;
    for (; isInClass(); --m_lostBraces)
        closeContext(-1);
}

/// Whether the rest of the file closes fewer braces than are open. While the class's own brace is still to come,
/// a "typedef" at the left margin is one of its members. The rest is read ahead only once.
bool SourceBrowserDeclarationParser::lacksBrace()
{
    if (!m_knowsLostBraces) {
        m_knowsLostBraces = true;
        m_lostBraces = m_context->depth - m_scanner.closersAhead();
    }
    return m_lostBraces > 0;
}

bool SourceBrowserDeclarationParser::isTooDeep() const
{
    return m_context->containers >= s_deepestContainer;
}

/// The context of the declaration: a friend belongs to the scope around the class.
const SourceBrowserParserContext &SourceBrowserDeclarationParser::home() const
{
    const Context *context = m_context;
    while (m_pending.isFriend && context->isClass())
        context = context->parent;
    return *context;
}

/// The name of constructors; empty outside classes.
const QString &SourceBrowserDeclarationParser::className() const
{
    static const QString none;
    if (m_pending.isFriend)
        return none;
    return m_context->otherNames.isEmpty() ? m_context->className : classNameInBranches();
}

/// The name of constructors that is in the declaration, if the class has another name in each branch of a conditional.
const QString &SourceBrowserDeclarationParser::classNameInBranches() const
{
    for (const Token &token : m_pending.tokens) {
        const auto found = m_context->otherNames.constFind(token.text.toString());
        if (found != m_context->otherNames.constEnd())
            return *found;
    }
    return m_context->className;
}

/// Makes \a context the innermost one. Containers that are left or entered again are reported, so that the events
/// stay balanced.
void SourceBrowserDeclarationParser::switchTo(Context *context)
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

void SourceBrowserDeclarationParser::conditionalBegins()
{
    m_conditions.push_back({.context = m_context,
                            .declaration = m_declarationNumber,
                            .isInsideDeclaration = m_pending.isTemplate || !m_pending.tokens.empty()});
}

/// Every branch begins in the context before the conditional.
void SourceBrowserDeclarationParser::branchBegins()
{
    SourceBrowserParserCondition &condition = m_conditions.back();
    if (!condition.firstContext)
        condition.firstContext = m_context;
    if (isInClass() && m_context->depth > condition.context->depth)
        condition.heads.names << m_context->className;
    switchTo(condition.context);
}

/// After the conditional, the context is the one at the end of its first branch.
void SourceBrowserDeclarationParser::conditionalEnds()
{
    const SourceBrowserParserCondition &condition = m_conditions.back();
    if (!condition.firstContext)
        m_context->mayBeStray |= m_context->depth > condition.context->depth;
    else if (m_context->depth != condition.firstContext->depth)
        switchTo(condition.firstContext);
    if (!condition.heads.names.isEmpty()) {
        m_heads = condition.heads;
        m_heads.declaration = m_declarationNumber;
        if (isInClass() && m_context->depth > condition.context->depth)
            m_context->otherNames = m_heads.names;
    }
    m_conditions.pop_back();
}

bool SourceBrowserDeclarationParser::isConditionalInside() const
{
    return !m_conditions.empty() && m_conditions.back().declaration == m_declarationNumber &&
           m_conditions.back().isInsideDeclaration;
}

bool SourceBrowserDeclarationParser::mayLoseBrace() const
{
    return m_pending.column == 0 && !isInClass();
}

} // namespace tavidoc
