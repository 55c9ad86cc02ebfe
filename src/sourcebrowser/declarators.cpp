#include "sourcebrowser/declarators.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

bool isTag(const SourceBrowserTokenRecord &token)
{
    return token.is(Struct) || token.is(Union) || token.is(Enum) || token.is(Class) || token.word == Word::TypeName;
}

bool isStorage(const SourceBrowserTokenRecord &token)
{
    return token.is(Extern) || token.is(Static) || token.is(Register) || token.is(Typedef) || token.is(Virtual) ||
           token.is(Friend) || token.is(String) || token.word == Word::Storage;
}

} // namespace

SourceBrowserDeclarators SourceBrowserDeclaratorReader::read(std::vector<Token> &tokens, const QString &className,
                                                             bool isTypedef)
{
    m_tokens = &tokens;
    m_className = className;
    m_isTypedef = isTypedef;
    readWordsAsNames(tokens, isTypedef);
    linkBrackets(tokens);
    const auto end = static_cast<Index>(tokens.size());
    m_lastStrong = -1;
    for (Index at = 0; at < end; at = afterGroup(at)) {
        const Token &here = token(at);
        if (here.is(':')) // the width of a bit field is an expression
            break;
        if (here.word == Word::Statement && !(at > 0 && (token(at - 1).is('=') || token(at - 1).is(Operator))))
            return {};
        if (here.word == Word::BasicType || here.word == Word::TypeOperator || isTag(here) || here.is('*') ||
            (isWord(here) && here.word == Word::Plain && !looksLikeMacro(at)))
            m_lastStrong = at;
    }
    SourceBrowserDeclarators declarators;
    Index next = findTopLevel(0, end, ',');
    declarators.push_back(readOne(0, next, false));
    const QString specifiers = m_specifiers;
    while (next < end) {
        const Index begin = next + 1;
        next = findTopLevel(begin, end, ',');
        Shape shape;
        const Index stop = readShape(begin, next, shape, false);
        declarators.push_back(finish(specifiers, shape, stop, next, false));
    }
    return declarators;
}

SourceBrowserDeclarator SourceBrowserDeclaratorReader::readOne(Index begin, Index end, bool isArgument)
{
    m_items.clear();
    m_counts = {};
    Shape shape;
    Index at = readItems(begin, end, shape, isArgument);
    if (shape.failed)
        return {};
    const bool nameFollows =
        at < end && (token(at).is('*') || token(at).is('&') || token(at).is('^') || token(at).is('(') ||
                     token(at).is(Scope) || token(at).is(Ellipsis) || (isWord(token(at)) && shape.nameBegin < 0));
    if (shape.nameBegin < 0 && !nameFollows)
        nameFromItems(shape, isArgument);
    m_specifiers = isTypeless(shape) ? QString() : specifierText();
    if (shape.nameBegin < 0 || shape.arguments < 0)
        at = shape.nameBegin < 0 ? readShape(at, end, shape, isArgument) : readSuffixes(at, end, shape, 0, isArgument);
    else if (!shape.isFunction)
        shape.failed = true;
    const bool isNamed = shape.nameBegin >= 0 && (!m_specifiers.isEmpty() || shape.isFunction);
    if (!isNamed && !isArgument)
        return readWrapped(begin, end);
    return finish(m_specifiers, shape, at, end, isArgument);
}

/// Reads the words before the declarator. A function's name that is found on the way is noted
/// in \a shape with its argument list. Returns the index at which it stopped.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readItems(Index at, Index end, Shape &shape,
                                                                              bool isArgument)
{
    while (at < end && shape.nameBegin < 0) {
        const Token &here = token(at);
        const Index begin = at;
        if (here.is('[') && code(at + 1, end) == '[') {
            at = skipAttributes(at, end);
        } else if (isQualifier(at)) {
            m_items.push_back({Item::Qualifier, begin, ++at});
        } else if (isStorage(here)) {
            ++at;
            if (here.word == Word::Storage && code(at, end) == '(' && here.text == u"explicit")
                at = std::min(afterGroup(at), end);
        } else if (here.word == Word::BasicType || here.is(Composed)) {
            m_items.push_back({Item::Type, begin, ++at});
        } else if (here.word == Word::TypeOperator) {
            if (code(++at, end) == '(')
                at = std::min(afterGroup(at), end);
            m_items.push_back({Item::Type, begin, at});
        } else if (isTag(here)) {
            at = readTag(at, end, isArgument);
        } else if (here.is(Operator)) {
            at = readOperator(at, at, end, shape);
        } else if (here.is('~') && code(at + 1, end) == Identifier) {
            shape.nameBegin = at;
            shape.nameEnd = at + 2;
            at = beginArguments(at + 2, end, shape);
        } else if (isWord(here) || here.is(Scope)) {
            const Index after = wordOrCall(at, end, shape, isArgument);
            if (after == at)
                return at;
            at = after;
        } else {
            return at;
        }
    }
    return at;
}

/// Reads `struct tag`. A macro between is left out: `struct API tag *`, `struct ALIGNED(8) tag name`.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readTag(Index at, Index end, bool isArgument)
{
    m_items.push_back({Item::Type, at, at + 1});
    const Index begin = skipAttributes(at + 1, end);
    Index stop = chainEnd(begin, end);
    Index name = begin;
    if (stop - begin == 1 && stop < end && looksLikeMacro(begin)) {
        const bool isCall = token(stop).is('(');
        const Index after = isCall ? std::min(afterGroup(stop), end) : stop;
        const Index afterTag = chainEnd(after, end);
        if (afterTag > after && afterTag < end && !looksLikeMacro(after) &&
            (isPointer(token(afterTag)) || (isWord(token(afterTag)) && !looksLikeMacro(afterTag)))) {
            name = after;
            stop = afterTag;
        } else if (isCall && after < end &&
                   (isArgument || isPointer(token(after)) || findTopLevel(stop + 1, after, ',') < after)) {
            stop = after; // "struct TAG(x) *", "struct TAG(x, y) name"; "struct ALIGNED(8) tag" declares nothing
        }
    }
    if (stop > name)
        m_items.push_back({Item::Type, name, stop});
    return stop;
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::beginArguments(Index at, Index end, Shape &shape)
{
    if (code(at, end) != '(') {
        shape.failed = true;
        return end;
    }
    shape.arguments = at;
    shape.isFunction = true;
    return std::min(afterGroup(at), end);
}

/// Reads a name that may be a type, a macro with or without arguments or the function's name.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::wordOrCall(Index at, Index end, Shape &shape,
                                                                               bool isArgument)
{
    const Index stop = chainEnd(at, end);
    if (stop == at)
        return at;
    if (token(stop - 1).is(Scope)) {
        if (code(stop, end) == Operator)
            return readOperator(at, stop, end, shape);
        if (code(stop, end) != '~' || code(stop + 1, end) != Identifier)
            return at; // a pointer to a member
        shape.nameBegin = at;
        shape.nameEnd = stop + 2;
        return beginArguments(stop + 2, end, shape);
    }
    if (code(stop, end) != '(') {
        m_items.push_back({Item::Plain, at, stop});
        return stop;
    }
    if (isRedirection(at, stop, end) && counts().types + counts().words > 0)
        return readRedirection(stop, end, shape);
    if (isArgument && readFunctionOfMacro(at, stop, end, shape))
        return end;
    if (const Index inner = macroArguments(at, stop); inner >= 0 && !m_items.empty() &&
                                                      m_items.back().kind == Item::Plain &&
                                                      counts().types + counts().words > 1) { // "int f OF((int a))"
        shape.nameBegin = m_items.back().begin;
        shape.nameEnd = m_items.back().end;
        m_items.pop_back();
        shape.arguments = inner;
        shape.isFunction = true;
        return std::min(afterGroup(stop), end);
    }
    if (isNestedDeclarator(stop, end) && !isTypeBeforeName(stop, end)) {
        m_items.push_back({Item::Plain, at, stop});
        return stop;
    }
    if (!isArgument && isInitialised(at, stop, end)) { // "int value(3)"
        shape.nameBegin = at;
        shape.nameEnd = stop;
        return end;
    }
    if (isArgument && argumentIsFunction(at, stop, end)) {
        shape.nameBegin = at;
        shape.nameEnd = stop;
        return stop;
    }
    if (!isArgument && isFieldType(at, stop, end)) {
        m_items.push_back({Item::Plain, at, stop});
        return stop;
    }
    if (!isArgument && callIsName(at, stop, end)) {
        shape.nameBegin = at;
        shape.nameEnd = stop;
        return beginArguments(stop, end, shape);
    }
    const Index after = std::min(afterGroup(stop), end);
    m_items.push_back({Item::Call, at, after});
    return after;
}

const SourceBrowserDeclaratorReader::Counts &SourceBrowserDeclaratorReader::counts()
{
    for (; m_counts.upTo < m_items.size(); ++m_counts.upTo) {
        const Item &item = m_items[m_counts.upTo];
        m_counts.types += item.kind == Item::Type;
        m_counts.words += item.kind == Item::Plain;
        m_counts.ownWords += item.kind == Item::Plain && !looksLikeMacro(item.begin);
        m_counts.typeCalls += isTypeCall(item);
    }
    return m_counts;
}

/// Whether the name at \a begin is the type of a bit field whose name is in parentheses: `T (flags) : 3`.
bool SourceBrowserDeclaratorReader::isFieldType(Index begin, Index open, Index end)
{
    return code(afterGroup(open), end) == ':' && isNameInParentheses(open, end) && !looksLikeMacro(begin) &&
           counts().types + counts().words == 0;
}

/// Whether the name at \a begin is a variable and the group at \a open its value.
bool SourceBrowserDeclaratorReader::isInitialised(Index begin, Index open, Index end)
{
    if (!beginsValue(code(open + 1, end)) || afterGroup(open) < end || looksLikeMacro(begin))
        return false;
    return counts().types > 0 ? counts().words == 0 : counts().ownWords == 1;
}

/// Whether the name at \a begin, followed by a group at \a open, is the function's name, not a
/// macro with arguments.
bool SourceBrowserDeclaratorReader::callIsName(Index begin, Index open, Index end)
{
    const Index close = token(open).match;
    const bool isMacro = looksLikeMacro(begin);
    if (beginsValue(code(open + 1, end)))
        return false;
    const Counts &before = counts();
    const bool hasType = before.types > 0;
    if (hasType || before.ownWords > 0) {
        // "int variable ATTRIBUTE(3)"
        const bool afterName = !m_items.empty() && m_items.back().kind == Item::Plain &&
                               !looksLikeMacro(m_items.back().begin) && (hasType || before.ownWords > 1);
        return !(isMacro && afterName);
    }
    if (!m_className.isEmpty() && token(begin).text == m_className && token(begin).isIdentifier())
        return true;
    if (open - begin > 2 && token(open - 2).is(Scope))
        return true;                  // a constructor outside its class
    if (before.words == 0 && isMacro) // "API(void) FD_ZERO(set *s);"
        return before.typeCalls > 0 && afterGroup(open) >= end && token(begin).line == token(begin - 1).line &&
               holdsArguments(open, end);
    if (before.words == 0 && before.typeCalls == 0)
        return !m_items.empty() && isMacroTypeCall(m_items.back()) && holdsArguments(open, end);
    const bool typeFollows = close + 1 < end && (token(close + 1).word == Word::BasicType || isTag(token(close + 1)));
    return !typeFollows && (!isMacro || m_lastStrong < close);
}

/// Whether the name at \a begin, in an argument, is that of a function: `int compare(int, int)`.
bool SourceBrowserDeclaratorReader::argumentIsFunction(Index begin, Index open, Index end)
{
    const Index after = afterGroup(open);
    if (m_items.empty() || looksLikeMacro(begin) || beginsValue(code(open + 1, end)) ||
        (after < end && token(after).isPlainName())) // "int unused(x) name"
        return false;
    const Counts &before = counts();
    if (before.types > 0 || before.words > 0)
        return before.types > 0 ? before.ownWords == 0 : before.ownWords <= 1;
    return m_items.back().kind == Item::Call;
}

/// Whether the function has no type, so that what precedes it is macros: a destructor, a conversion, or a constructor.
bool SourceBrowserDeclaratorReader::isTypeless(const Shape &shape) const
{
    if (!shape.isFunction || shape.nameBegin < 0)
        return false;
    if (shape.nameEnd - shape.nameBegin > 1 && (token(shape.nameEnd - 2).is('~') || isConversion(shape)))
        return true;
    if (m_className.isEmpty() || token(shape.nameBegin).text != m_className)
        return false;
    return std::all_of(m_items.begin(), m_items.end(), [this](const Item &item) {
        return item.kind == Item::Call || (item.kind == Item::Plain && looksLikeMacro(item.begin));
    });
}

/// Chooses the declared name among the words if no declarator follows them.
void SourceBrowserDeclaratorReader::nameFromItems(Shape &shape, bool isArgument)
{
    QVarLengthArray<size_t, 16> words; // those that may be the name
    bool hasType = false;
    for (size_t index = 0; index < m_items.size(); ++index) {
        if (m_items[index].kind == Item::Type) {
            hasType = true;
            words.clear();
        } else if (m_items[index].kind == Item::Plain) {
            words.push_back(index);
        } else if (m_items[index].kind == Item::Call) {
            hasType |= words.empty() && callMayBeType(index, isArgument);
        }
    }
    if (words.empty() || (!hasType && words.size() < 2) || (isArgument && !hasType && areAnnotatedType(words)))
        return;
    QVarLengthArray<size_t, 16> own;
    std::copy_if(words.begin(), words.end(), std::back_inserter(own),
                 [this](size_t index) { return !looksLikeMacro(m_items[index].begin); });
    size_t chosen = words.back();
    if (!own.empty() && (hasType || own.size() > 1 || own.back() == words.back()))
        chosen = own.back();
    shape.nameBegin = m_items[chosen].begin;
    shape.nameEnd = m_items[chosen].end;
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(chosen), m_items.end());
}

} // namespace tavidoc
