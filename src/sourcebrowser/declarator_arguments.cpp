#include "sourcebrowser/declarators.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

/// Reads the arguments of the list at \a open. One that cannot be understood is kept as written.
std::vector<SourceBrowserArgument> SourceBrowserDeclaratorReader::readArguments(Index open)
{
    std::vector<SourceBrowserArgument> arguments;
    const QString specifiers = m_specifiers; // further declarators share them
    const Index end = std::min<Index>(token(open).match, size());
    Index begin = open + 1;
    if (end - begin == 1 && token(begin).text == u"void")
        return arguments;
    if (begin < end)
        arguments.reserve(4); // that most functions do not exceed
    while (begin < end) {
        const Index stop = findTopLevel(begin, end, ',');
        const Index equals = findTopLevel(begin, stop, '=');
        const bool endsOpen = equals - begin > 1 && token(equals - 1).is(Ellipsis);
        SourceBrowserArgument argument = readArgument(begin, endsOpen ? equals - 1 : equals);
        const bool isPack = endsOpen && argument.name.isEmpty(); // `T...`, not `char *format...`
        if (isPack)
            argument = readArgument(begin, equals);
        if (equals < stop)
            argument.defaultValue = sourceText(range(equals + 1, stop));
        if (!argument.type.text.isEmpty())
            arguments.push_back(std::move(argument));
        if (endsOpen && !isPack)
            arguments.push_back({{u"..."_s, -1}, {}, {}});
        begin = stop + 1;
    }
    m_specifiers = specifiers;
    return arguments;
}

SourceBrowserArgument SourceBrowserDeclaratorReader::readArgument(Index begin, Index end)
{
    SourceBrowserArgument argument;
    if (end - begin == 1 && token(begin).is(Ellipsis)) {
        argument.type.text = u"..."_s;
        return argument;
    }
    SourceBrowserDeclarator declarator = readOne(begin, end, true);
    argument.type = std::move(declarator.type);
    argument.name = std::move(declarator.name);
    if (argument.type.text.isEmpty())
        argument = {{shared(typeText(range(begin, end))), -1}, {}, {}};
    return argument;
}

/// Reads the end of an argument that a macro makes a function: `int OF((int))`, `int name OF((int))`. False if the macro
/// call \a word does not.
bool SourceBrowserDeclaratorReader::readFunctionOfMacro(Index word, Index open, Index end, Shape &shape)
{
    const Index inner = wrappedArguments(open);
    if (inner < 0 || afterGroup(open) != end || !looksLikeMacro(word) || !holdsArguments(inner, end))
        return false;
    const int names = counts().types > 0 ? counts().words : counts().words - 1;
    if (names < 0 || names > 1 || m_items.back().kind == Item::Call ||
        (names == 1 && m_items.back().kind != Item::Plain))
        return false;
    if (names == 1) {
        shape.nameBegin = m_items.back().begin;
        shape.nameEnd = m_items.back().end;
        m_items.pop_back();
    }
    appendTypeText(shape.suffix, range(inner, afterGroup(inner)));
    return true;
}

/// Whether the group at \a open can be the arguments of a function: it is empty or begins with a type.
bool SourceBrowserDeclaratorReader::holdsArguments(Index open, Index end) const
{
    const Index first = open + 1;
    if (first >= end || token(open).match == first)
        return true;
    const Token &type = token(first);
    if (type.word == Word::BasicType || type.is(Const) || type.is(Struct) || type.is(Union) || type.is(Enum))
        return true;
    const Index stop = chainEnd(first, end);
    return stop > first && stop < end && (token(stop).isIdentifier() || isPointer(token(stop)));
}

/// Whether \a word and the group at \a open are `REDIRECT(name, (arguments), ...)`.
bool SourceBrowserDeclaratorReader::isRedirection(Index word, Index open, Index end) const
{
    return looksLikeMacro(word) && code(open + 1, end) == Identifier && code(open + 2, end) == ',' &&
           code(open + 3, end) == '(';
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readRedirection(Index open, Index end, Shape &shape)
{
    shape.nameBegin = open + 1;
    shape.nameEnd = open + 2;
    beginArguments(open + 3, end, shape);
    return std::min(afterGroup(open), end);
}

/// Reads a macro call that is the whole declaration: three successive arguments are a type, a name and a list in
/// parentheses.
SourceBrowserDeclarator SourceBrowserDeclaratorReader::readWrapped(Index begin, Index end)
{
    Index open = begin;
    while (open < end && !token(open).is('('))
        ++open;
    const bool saysRemoved = open > begin && open < end && token(open - 1).text.endsWith("REMOVED"_L1);
    if (open >= end || m_isUnwrapping || saysRemoved || token(open).match >= end)
        return {};
    const Index close = token(open).match;
    Index typeBegin = -1;
    Index nameBegin = -1;
    for (Index at = open + 1; at < close;) {
        const Index stop = findTopLevel(at, close, ',');
        const bool isList = token(at).is('(') && token(at).match == stop - 1 && nameBegin >= 0 && typeBegin >= 0;
        if (isList)
            return unwrap(typeBegin, nameBegin, at);
        typeBegin = nameBegin;
        nameBegin = at;
        at = stop + 1;
    }
    return {};
}

SourceBrowserDeclarator SourceBrowserDeclaratorReader::unwrap(Index type, Index name, Index list)
{
    const bool isPointerName = isPointer(token(name));
    if (!token(name).is('(') && (list - name > 3 || !isWord(token(list - 2))))
        return {};
    std::vector<Token> tokens(m_tokens->begin() + type, m_tokens->begin() + name - 1);
    Token parenthesis = token(list);
    if (isPointerName)
        tokens.push_back(parenthesis);
    tokens.insert(tokens.end(), m_tokens->begin() + name, m_tokens->begin() + list - 1);
    if (isPointerName) {
        parenthesis.code = ')';
        parenthesis.text = u")";
        tokens.push_back(parenthesis);
    }
    tokens.insert(tokens.end(), m_tokens->begin() + list, m_tokens->begin() + afterGroup(list));
    SourceBrowserDeclaratorReader reader;
    reader.m_isUnwrapping = true;
    SourceBrowserDeclarators declarators = reader.read(tokens, {}, m_isTypedef);
    return declarators.empty() ? SourceBrowserDeclarator() : std::move(declarators.front());
}

} // namespace tavidoc
