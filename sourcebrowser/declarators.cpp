#include "sourcebrowser/declarators.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

bool isWordCharacter(QChar unit)
{
    return unit.isLetterOrNumber() || unit == u'_' || unit == u'$' || unit == u'"';
}

bool isTag(const SourceBrowserTokenRecord &token)
{
    return token.is(Struct) || token.is(Union) || token.is(Enum) || token.is(Class) || token.word == Word::TypeName;
}

bool isStorage(const SourceBrowserTokenRecord &token)
{
    return token.is(Extern) || token.is(Static) || token.is(Register) || token.is(Typedef) || token.is(Virtual) ||
           token.is(Friend) || token.is(String) || token.word == Word::Storage;
}

bool isPlain(const SourceBrowserTokenRecord &token)
{
    return token.isIdentifier() && (token.word == Word::Plain || token.word == Word::Suffix);
}

/// Whether a blank belongs between the end of \a text and \a token in the text of a type.
bool wantsBlank(const QString &text, const SourceBrowserTokenRecord &token)
{
    const QChar last = text.back();
    const QChar first = token.text.front();
    if (isWordCharacter(first))
        return isWordCharacter(last) || last == u',' || last == u'>' || last == u')' || last == u']';
    if (first == u'*' || first == u'&' || first == u'^')
        return last != u'*' && last != u'&' && last != u'(' && last != u':' && last != u'^';
    if (first == u'(')
        return isWordCharacter(last) && token.blankBefore;
    return first == u'.' && last != u'(';
}

void appendToType(QString &text, const SourceBrowserTokenRecord &token)
{
    if (!text.isEmpty() && wantsBlank(text, token))
        text += u' ';
    text += token.text;
}

} // namespace

QString SourceBrowserDeclaratorReader::sourceText(std::span<const Token> tokens)
{
    QString text;
    for (const Token &token : tokens) {
        if (token.blankBefore && !text.isEmpty())
            text += u' ';
        text += token.text;
    }
    return text;
}

QString SourceBrowserDeclaratorReader::typeText(std::span<const Token> tokens)
{
    QString text;
    for (const Token &token : tokens)
        appendToType(text, token);
    return text;
}

void SourceBrowserDeclaratorReader::linkBrackets(std::vector<Token> &tokens)
{
    std::vector<Index> open;
    const auto closes = [&](int opener, Index closer) {
        // An unmatched "<" between is a comparison.
        while (!open.empty() && opener != '<' && tokens[static_cast<size_t>(open.back())].is('<'))
            open.pop_back();
        if (open.empty() || !tokens[static_cast<size_t>(open.back())].is(opener))
            return;
        tokens[static_cast<size_t>(open.back())].match = closer;
        tokens[static_cast<size_t>(closer)].match = open.back();
        open.pop_back();
    };
    const Index size = static_cast<Index>(tokens.size());
    for (Index at = 0; at < size; ++at) {
        Token &token = tokens[static_cast<size_t>(at)];
        token.match = -1;
        switch (token.code) {
        case '(':
        case '[':
        case '{':
            token.match = size;
            open.push_back(at);
            break;
        case '<':
            if (at > 0 && tokens[static_cast<size_t>(at - 1)].isIdentifier())
                open.push_back(at);
            break;
        case ')':
            closes('(', at);
            break;
        case ']':
            closes('[', at);
            break;
        case '}':
            closes('{', at);
            break;
        case '>':
            if (at > 0 && !tokens[static_cast<size_t>(at - 1)].is('-'))
                closes('<', at);
            break;
        default:
            break;
        }
    }
}

std::vector<SourceBrowserDeclarator> SourceBrowserDeclaratorReader::read(std::vector<Token> &tokens,
                                                                         const QString &className, bool isTypedef)
{
    m_tokens = &tokens;
    m_className = className;
    m_isTypedef = isTypedef;
    linkBrackets(tokens);
    const Index end = static_cast<Index>(tokens.size());
    m_lastStrong = -1;
    for (Index at = 0; at < end; at = afterGroup(at)) {
        const Token &here = token(at);
        if (here.word == Word::Statement && !(at > 0 && (token(at - 1).is('=') || token(at - 1).is(Operator))))
            return {};
        if (here.word == Word::BasicType || here.word == Word::TypeOperator || isTag(here) || here.is('*') ||
            (isPlain(here) && here.word == Word::Plain && !looksLikeMacro(at)))
            m_lastStrong = at;
    }
    std::vector<SourceBrowserDeclarator> declarators;
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

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::afterGroup(Index at) const
{
    return token(at).match > at ? std::min<Index>(token(at).match, static_cast<Index>(m_tokens->size()) - 1) + 1
                                : at + 1;
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::findTopLevel(Index from, Index end, int code) const
{
    Index at = from;
    while (at < end && !token(at).is(code))
        at = afterGroup(at);
    return std::min(at, end);
}

/// A qualifier, or a macro that by its name stands for one and is part of the type.
bool SourceBrowserDeclaratorReader::isQualifier(Index at) const
{
    const Token &here = token(at);
    return here.is(Const) || here.is(Volatile) || here.word == Word::Qualifier ||
           (here.word == Word::TypeOperator && here.text == u"_Atomic" && code(at + 1, size()) != '(') ||
           (isPlain(here) &&
            (here.text.endsWith("_RESTRICT"_L1) || here.text.endsWith("_CONST"_L1) || here.text == u"CONST" ||
             here.text == u"RESTRICT") &&
            at + 1 < size() &&
            (isPlain(token(at + 1)) || token(at + 1).word == Word::BasicType || token(at + 1).is('*') ||
             token(at + 1).is(Struct)));
}

/// A word in capitals, or one of a compiler's own: likely a macro.
bool SourceBrowserDeclaratorReader::looksLikeMacro(Index at) const
{
    const QStringView text = token(at).text;
    if (text.startsWith("__"_L1))
        return true;
    if (text.size() < 2 || std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.isLower(); }))
        return false;
    return !m_types.contains(text.toString());
}

/// The end of a qualified name that begins at \a at: words joined by "::", with template
/// arguments. When it ends with "::", something else than a word follows.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::chainEnd(Index at, Index end) const
{
    if (code(at, end) == Scope)
        ++at;
    while (at < end && token(at).isIdentifier()) {
        ++at;
        if (code(at, end) == '<' && token(at).match > at && token(at).match < end)
            at = token(at).match + 1;
        if (code(at, end) != Scope)
            return skipAttributes(at, end);
        ++at;
        if (code(at, end) == Template)
            ++at;
    }
    return at;
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::skipAttributes(Index at, Index end) const
{
    while (code(at, end) == '[' && code(at + 1, end) == '[')
        at = afterGroup(at);
    return std::min(at, end);
}

/// When the group at \a open holds nothing but another group, that one's "("; else -1.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::wrappedArguments(Index open) const
{
    const Index close = token(open).match;
    const Index size = static_cast<Index>(m_tokens->size());
    if (close >= size || open + 1 >= close || !token(open + 1).is('('))
        return -1;
    return token(open + 1).match == close - 1 ? open + 1 : -1;
}

SourceBrowserDeclarator SourceBrowserDeclaratorReader::readOne(Index begin, Index end, bool isArgument)
{
    m_items.clear();
    Shape shape;
    Index at = readItems(begin, end, shape, isArgument);
    if (shape.failed)
        return {};
    const bool nameFollows =
        at < end && (token(at).is('*') || token(at).is('&') || token(at).is('^') || token(at).is('(') ||
                     token(at).is(Scope) || token(at).is(Ellipsis) || (isPlain(token(at)) && shape.nameBegin < 0));
    if (shape.nameBegin < 0 && !nameFollows)
        nameFromItems(shape, isArgument);
    m_specifiers = specifierText();
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
/// in \a shape with its argument list. The result is where the reading stopped.
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
            at = chainEnd(skipAttributes(at + 1, end), end);
            m_items.push_back({Item::Type, begin, at});
        } else if (here.is(Operator)) {
            at = readOperator(at, at, end, shape);
        } else if (here.is('~') && code(at + 1, end) == Identifier) {
            shape.nameBegin = at;
            shape.nameEnd = at + 2;
            at = beginArguments(at + 2, end, shape);
        } else if (isPlain(here) || here.is(Scope)) {
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
        if (code(stop, end) != '~')
            return at; // a pointer to a member
        shape.nameBegin = at;
        shape.nameEnd = stop + 2;
        return beginArguments(stop + 2, end, shape);
    }
    if (code(stop, end) != '(') {
        m_items.push_back({Item::Plain, at, stop});
        return stop;
    }
    if (hasTypeBefore(m_items.size()) && looksLikeMacro(at) && code(stop + 1, end) == Identifier &&
        code(stop + 2, end) == ',' && code(stop + 3, end) == '(') { // "int REDIRECT(name, (int), other)"
        shape.nameBegin = stop + 1;
        shape.nameEnd = stop + 2;
        beginArguments(stop + 3, end, shape);
        return std::min(afterGroup(stop), end);
    }
    const bool followsName =
        !m_items.empty() && m_items.back().kind == Item::Plain && hasTypeBefore(m_items.size() - 1);
    if (const Index inner = wrappedArguments(stop); inner >= 0 && followsName) {
        shape.nameBegin = m_items.back().begin;
        shape.nameEnd = m_items.back().end;
        m_items.pop_back();
        shape.arguments = inner;
        shape.isFunction = true;
        return std::min(afterGroup(stop), end);
    }
    if (isNestedDeclarator(stop, end)) {
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

bool SourceBrowserDeclaratorReader::hasTypeBefore(size_t count) const
{
    return std::any_of(m_items.begin(), m_items.begin() + static_cast<std::ptrdiff_t>(count),
                       [](const Item &item) { return item.kind == Item::Type || item.kind == Item::Plain; });
}

/// Whether the name at \a begin, followed by a group at \a open, is the function's name and not a
/// macro with arguments.
bool SourceBrowserDeclaratorReader::callIsName(Index begin, Index open, Index end) const
{
    const Index close = token(open).match;
    const bool isMacro = looksLikeMacro(begin);
    const int inside = code(open + 1, end);
    if (inside == String || inside == Number)
        return false;
    bool hasType = false;
    int plainWords = 0;
    int ownWords = 0;
    for (const Item &item : m_items) {
        hasType |= item.kind == Item::Type;
        plainWords += item.kind == Item::Plain;
        ownWords += item.kind == Item::Plain && !looksLikeMacro(item.begin);
    }
    if (hasType || ownWords > 0) {
        // "int variable ATTRIBUTE(3)"
        const bool afterName = !m_items.empty() && m_items.back().kind == Item::Plain &&
                               !looksLikeMacro(m_items.back().begin) && (hasType || ownWords > 1);
        return !(isMacro && afterName);
    }
    if (!m_className.isEmpty() && token(begin).text == m_className && token(begin).isIdentifier())
        return true;
    if (open - begin > 2 && token(open - 2).is(Scope))
        return true; // a constructor outside its class
    const bool followsTypeCall =
        std::any_of(m_items.begin(), m_items.end(), [this](const Item &item) { return isTypeCall(item); });
    if (plainWords == 0 && (isMacro || !followsTypeCall))
        return false;
    const bool typeFollows = close + 1 < end && (token(close + 1).word == Word::BasicType || isTag(token(close + 1)));
    return !typeFollows && (!isMacro || m_lastStrong < close);
}

/// Chooses the declared name among the words, when no declarator follows them.
void SourceBrowserDeclaratorReader::nameFromItems(Shape &shape, bool isArgument)
{
    std::vector<size_t> words; // those that may be the name
    bool hasType = false;
    for (size_t index = 0; index < m_items.size(); ++index) {
        if (m_items[index].kind == Item::Type) {
            hasType = true;
            words.clear();
        } else if (m_items[index].kind == Item::Plain) {
            words.push_back(index);
        } else if (m_items[index].kind == Item::Call && (isArgument || !looksLikeMacro(m_items[index].begin))) {
            hasType |= words.empty();
        }
    }
    if (words.empty() || (!hasType && words.size() < 2))
        return;
    std::vector<size_t> own;
    std::copy_if(words.begin(), words.end(), std::back_inserter(own),
                 [this](size_t index) { return !looksLikeMacro(m_items[index].begin); });
    size_t chosen = words.back();
    if (!own.empty() && (hasType || own.size() > 1 || own.back() == words.back()))
        chosen = own.back();
    shape.nameBegin = m_items[chosen].begin;
    shape.nameEnd = m_items[chosen].end;
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(chosen), m_items.end());
}

/// Whether a macro's argument is a type, as in `API(char *) name(void)`.
bool SourceBrowserDeclaratorReader::isTypeCall(const Item &item) const
{
    if (item.kind != Item::Call || item.end - item.begin < 4)
        return false;
    const Token &first = token(item.begin + 2);
    return first.word == Word::BasicType || first.is(Const) || isTag(first) || token(item.end - 2).is('*') ||
           (item.end - item.begin == 4 && isPlain(first) && !looksLikeMacro(item.begin + 2));
}

/// How likely \a item is the type, when no keyword is.
int SourceBrowserDeclaratorReader::rank(const Item &item) const
{
    if (item.kind == Item::Plain)
        return looksLikeMacro(item.begin) ? 1 : 3;
    if (!isTypeCall(item))
        return 0;
    return item.end - item.begin > 4 || !isPlain(token(item.begin + 2)) ? 2 : 1;
}

/// The type that the words before the declarator name. Words that no type is made of are macros.
QString SourceBrowserDeclaratorReader::specifierText() const
{
    const bool hasType =
        std::any_of(m_items.begin(), m_items.end(), [](const Item &item) { return item.kind == Item::Type; });
    int chosen = -1;
    for (int index = 0; !hasType && index < static_cast<int>(m_items.size()); ++index) {
        const Item &item = m_items[static_cast<size_t>(index)];
        if (item.kind != Item::Qualifier && (chosen < 0 || rank(item) >= rank(m_items[static_cast<size_t>(chosen)])))
            chosen = index;
    }
    QString text;
    for (int index = 0; index < static_cast<int>(m_items.size()); ++index) {
        const Item &item = m_items[static_cast<size_t>(index)];
        if (item.kind != Item::Qualifier && item.kind != Item::Type && index != chosen)
            continue;
        for (const Token &part : range(item.begin, item.end))
            appendToType(text, part);
    }
    const bool isOnlyQualified = !hasType && chosen < 0;
    return isOnlyQualified ? QString() : text;
}
