#include "sourcebrowser/declarators.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

using Token = SourceBrowserTokenRecord;

/// Whether \a token may follow the arguments in the type of a member function.
bool isFunctionQualifier(const Token &token)
{
    return token.is(Const) || token.is(Volatile) || token.is('&');
}

} // namespace

/// Whether the group at \a open holds a declarator, as in `int (*name)(int)`, instead of arguments.
bool SourceBrowserDeclaratorReader::isNestedDeclarator(Index open, Index end) const
{
    const Index close = token(open).match;
    while (code(open + 1, end) == '(')
        ++open;
    if (close >= end || open + 1 >= close)
        return false;
    if (isPointer(token(open + 1)))
        return true;
    const int after = code(close + 1, end);
    if (!isWord(token(open + 1)) && token(open + 1).word != Word::Storage)
        return false;
    Index at = token(open + 1).word == Word::Storage ? open + 2 : chainEnd(open + 1, close);
    if (at < close && token(at - 1).is(Scope) && token(at).is('*'))
        return true;
    while (at < close && isWord(token(at)))
        ++at;
    if (at < close && token(at).is('*'))
        return after == '(' || after == '[';
    return (at == close || token(at).is(')')) && after == '(' && wrappedArguments(close + 1) < 0;
}

/// Whether the group at \a open, after a type, holds only a declared name, as in `int (name)[3]`, or a function, as in
/// `int *(name(int))`.
bool SourceBrowserDeclaratorReader::isNameInParentheses(Index open, Index end) const
{
    if (open == 0 || token(open - 1).is(')'))
        return false;
    const int after = code(afterGroup(open), end);
    if (token(open).match >= end || (after != 0 && after != ')' && after != '[' && after != '=' && after != ':'))
        return false;
    Index at = open + 1;
    while (code(at, end) == '(')
        ++at;
    const Index stop = chainEnd(at, end);
    if (stop == at || !isWord(token(stop - 1)))
        return false;
    return token(code(stop, end) == '(' ? afterGroup(stop) : stop).is(')');
}

/// Whether the group at \a open is that of a macro call which is the type of a name in parentheses: `TYPE(x) (min)()`.
bool SourceBrowserDeclaratorReader::isTypeBeforeName(Index open, Index end) const
{
    const Index name = token(open).match + 1;
    return name + 3 < end && token(name).is('(') && isWord(token(name + 1)) && token(name + 2).is(')') &&
           token(name + 3).is('(') && looksLikeMacro(open - 1);
}

/// Reads pointers, the name and what follows it, from the first token after the type.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readShape(Index at, Index end, Shape &shape,
                                                                              bool isArgument)
{
    int nesting = 0;
    at = readPointers(at, end, shape, nesting, isArgument);
    if (shape.nameBegin < 0 && at < end && (isWord(token(at)) || token(at).is(Scope)))
        at = readName(at, end, shape, isArgument);
    else if (code(at, end) == Operator)
        at = readOperator(at, at, end, shape);
    return readSuffixes(at, end, shape, nesting, isArgument);
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readPointers(Index at, Index end, Shape &shape,
                                                                                 int &nesting, bool isArgument)
{
    while (at < end) {
        const Token &here = token(at);
        if (here.is('[') && code(at + 1, end) == '[') {
            at = skipAttributes(at, end);
        } else if (isPointer(here)) {
            if (!shape.prefix.isEmpty() && shape.prefix.back().isLetterOrNumber())
                shape.prefix.append(u' ');
            shape.prefix.append(here.text);
            ++at;
        } else if (isQualifier(at)) {
            if (!shape.prefix.isEmpty() && shape.prefix.back().isLetterOrNumber())
                shape.prefix.append(u' ');
            shape.prefix.append(here.text);
            ++at;
            if (at < end && !isPointer(token(at)) && !token(at).is(')') && !token(at).is('(') && !token(at).is('['))
                shape.prefix.append(u' ');
        } else if (here.is('(') && ((nesting > 0 && token(at - 1).is('(')) || isNestedDeclarator(at, end) ||
                                    (!isArgument && isNameInParentheses(at, end)))) {
            shape.prefix.append(u'(');
            ++nesting;
            ++at;
        } else if (here.is(Ellipsis)) {
            shape.prefix.append(here.text);
            ++at;
        } else if (here.word == Word::Storage) {
            ++at;
        } else if (isWord(here) || here.is(Scope)) {
            const Index stop = chainEnd(at, end);
            const bool toMember = stop > at && token(stop - 1).is(Scope) && code(stop, end) == '*';
            if (toMember)
                appendTypeText(shape.prefix, range(at, stop));
            else if (stop == at || !isPointerAhead(stop, end))
                return at;
            at = stop; // otherwise a calling convention
        } else {
            return at;
        }
    }
    return at;
}

bool SourceBrowserDeclaratorReader::isPointerAhead(Index at, Index end) const
{
    while (at < end && isWord(token(at)))
        ++at;
    return at < end && isPointer(token(at));
}

/// Reads a run of words after pointers. One is the name, the others are macros.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readName(Index at, Index end, Shape &shape,
                                                                             bool isArgument)
{
    Index previous = -1;
    Index previousEnd = -1;
    Index last = at;
    Index stop = at;
    bool previousIsOwn = false;
    while (stop < end && (isWord(token(stop)) || token(stop).is(Scope))) {
        if (stop > at && (!previousIsOwn || !looksLikeMacro(last))) {
            previous = last;
            previousEnd = stop;
            previousIsOwn = !looksLikeMacro(last);
        }
        last = stop;
        stop = chainEnd(stop, end);
        if (stop == last)
            break;
    }
    if (code(stop, end) == Operator) // words that do not qualify it are calling conventions
        return readOperator(token(stop - 1).is(Scope) ? last : stop, stop, end, shape);
    const bool beforeGroup = code(stop, end) == '(';
    const Index inner = beforeGroup ? wrappedArguments(stop) : -1;
    const bool lastIsMacro = previous >= 0 && previousIsOwn && looksLikeMacro(last);
    if (beforeGroup && isRedirection(last, stop, end)) // "FILE *REDIRECT(name, (int), other)"
        return readRedirection(stop, end, shape);
    shape.nameBegin = last;
    shape.nameEnd = stop;
    if (previous >= 0 && (inner >= 0 || lastIsMacro)) {
        shape.nameBegin = previous;
        shape.nameEnd = previousEnd;
        if (beforeGroup)
            stop = std::min(afterGroup(stop), end);
        if (inner >= 0 && !isArgument) {
            shape.arguments = inner;
            shape.isFunction = true;
        } else if (inner >= 0 && lastIsMacro &&
                   holdsArguments(inner, end)) { // a pointer is returned: "int *f OF((int))"
            appendTypeText(shape.suffix, range(inner, afterGroup(inner)));
        }
    }
    return stop;
}

/// Reads an operator's name, whose qualification begins at \a begin, and the "(" after it.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readOperator(Index begin, Index at, Index end,
                                                                                 Shape &shape)
{
    shape.nameBegin = begin;
    ++at;
    if (code(at, end) == '(' && token(at).match == at + 1)
        shape.nameEnd = at + 2;
    else
        shape.nameEnd = findTopLevel(at, end, '(');
    return beginArguments(skipAttributes(shape.nameEnd, end), end, shape);
}

/// Reads arrays, argument lists and closing parentheses after the name.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readSuffixes(Index at, Index end, Shape &shape,
                                                                                 int nesting, bool isArgument)
{
    bool isFresh = shape.arguments < 0; // nothing has followed the name yet
    bool isAfterGroup = false;          // the last part was the arguments of a function type
    while (at < end) {
        const Token &here = token(at);
        const Index after = std::min(afterGroup(at), end);
        if (here.is('[') && code(at + 1, end) == '[') {
            at = after;
        } else if (isAfterGroup && nesting == 0 && isFunctionQualifier(here)) {
            appendToType(shape.suffix, here);
            at = after;
        } else if (here.is('[')) {
            appendSourceText(shape.suffix, range(at, after));
            isFresh = false;
            at = after;
        } else if (here.is('(') && isFresh && beginsValue(code(at + 1, end))) {
            at = after; // a value
            isFresh = false;
        } else if (here.is('(')) {
            if (isFresh && shape.nameBegin >= 0 && !isArgument && !m_isTypedef) {
                shape.arguments = at;
                shape.isFunction = true;
            } else {
                appendTypeText(shape.suffix, range(at, after));
                isAfterGroup = true;
            }
            isFresh = false;
            at = after;
        } else if (here.is(')') && nesting > 0) {
            if (shape.prefix.endsWith(u'('))
                shape.prefix.removeLast(); // Parentheses around a mere name have no meaning.
            else {
                shape.suffix.append(u')');
                isFresh = false;
            }
            --nesting;
            ++at;
        } else if (isWord(here) && code(at + 1, end) == '(' && wrappedArguments(at + 1) >= 0 && shape.arguments < 0) {
            const Index inner = wrappedArguments(at + 1);
            appendTypeText(shape.suffix, range(inner, afterGroup(inner)));
            at = std::min(afterGroup(at + 1), end);
        } else if (nesting > 0 && isWord(here)) {
            ++at;
        } else {
            break;
        }
    }
    shape.failed |= nesting > 0;
    return at;
}

/// Completes the declarator; \a at is the end of its shape.
SourceBrowserDeclarator SourceBrowserDeclaratorReader::finish(const QString &specifiers, Shape &shape, Index at,
                                                              Index end, bool isArgument)
{
    SourceBrowserDeclarator declarator;
    if (shape.failed || (shape.nameBegin < 0 && !isArgument))
        return declarator;
    const Index stop = readTail(at, end, shape, declarator);
    if (stop < end && !token(stop).is('=') && !shape.isFunction)
        return declarator;
    if (shape.isFunction && m_isTypedef) {
        SourceBrowserTextBuffer suffix;
        appendTypeText(suffix, range(shape.arguments, std::min(afterGroup(shape.arguments), end)));
        suffix.append(shape.suffix.view());
        if (declarator.isConst)
            suffix.append(u" const");
        shape.suffix = std::move(suffix);
        shape.isFunction = false;
    }
    if (declarator.type.text.isEmpty())
        declarator.type.text = specifiers;
    completeType(shape, declarator.type);
    declarator.isBarePlainName = shape.prefix.isEmpty() && shape.suffix.isEmpty() && !shape.isFunction;
    if (shape.nameBegin >= 0)
        setName(shape, declarator, isArgument);
    if (shape.isFunction && !declarator.name.isEmpty()) {
        declarator.kind = SourceBrowserDeclarator::Function;
        declarator.arguments = readArguments(shape.arguments);
    } else if (!declarator.name.isEmpty() && declarator.qualifier.isEmpty()) {
        declarator.kind = SourceBrowserDeclarator::Object;
    }
    return declarator;
}

/// Adds the parts before and after the name to \a type.
void SourceBrowserDeclaratorReader::completeType(const Shape &shape, SourceBrowserType &type)
{
    if (shape.prefix.isEmpty() && shape.suffix.isEmpty())
        return;
    SourceBrowserTextBuffer text;
    text.append(type.text);
    if (!shape.prefix.isEmpty()) {
        if (!text.isEmpty() && !shape.prefix.startsWith(u'.'))
            text.append(u' ');
        text.append(shape.prefix.view().trimmed());
    }
    if (!shape.suffix.isEmpty()) {
        if (shape.prefix.isEmpty() || shape.prefix.endsWith(u' ') || shape.prefix.back().isLetter())
            text.append(u' ');
        type.insertion = static_cast<int>(text.size());
        text.append(shape.suffix.view());
    }
    type.text = shared(text.view());
}

void SourceBrowserDeclaratorReader::setName(const Shape &shape, SourceBrowserDeclarator &declarator, bool isArgument)
{
    Index begin = shape.nameBegin;
    for (Index at = begin; at < shape.nameEnd; at = afterGroup(at)) {
        if (token(at).is(Operator))
            break;
        if (token(at).is(Scope))
            begin = at + 1;
    }
    if (begin > shape.nameBegin)
        declarator.qualifier = typeText(range(shape.nameBegin, begin - 1));
    if (begin >= shape.nameEnd)
        return; // nothing follows the last "::"
    if (!isArgument)
        declarator.place = positionOf(token(begin));
    if (!token(begin).is(Operator)) {
        const Index nameEnd = token(begin).is('~') ? begin + 2 : begin + 1; // without template arguments
        SourceBrowserTextBuffer name;
        appendTypeText(name, range(begin, std::min(nameEnd, shape.nameEnd)));
        declarator.name = isArgument ? shared(name.view()) : name.view().toString();
        return;
    }
    declarator.name = u"operator"_s;
    if (begin + 1 >= shape.nameEnd)
        return;
    const Token &symbol = token(begin + 1);
    const QString rest = symbol.isPunctuation() ? QString() : typeText(range(begin + 1, shape.nameEnd));
    if (!rest.isEmpty() && !symbol.is(String) && !symbol.is(Skipped)) {
        declarator.name = "operator "_L1 + rest;
        return;
    }
    for (const Token &part : range(begin + 1, shape.nameEnd))
        declarator.name += part.text;
}

/// Whether the name is that of a conversion: `operator int`.
bool SourceBrowserDeclaratorReader::isConversion(const Shape &shape) const
{
    Index at = shape.nameBegin;
    while (at < shape.nameEnd && !token(at).is(Operator))
        ++at;
    if (at + 1 >= shape.nameEnd)
        return false;
    const Token &type = token(at + 1);
    return !type.isPunctuation() && !type.is(String) && !type.is(Skipped) && type.word != Word::Statement &&
           type.text != u"co_await";
}

/// Reads what follows the declarator: qualifiers and "= 0" of a function, the width of a bit
/// field, macros. Returns the index at which it stopped.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::readTail(Index at, Index end, Shape &shape,
                                                                             SourceBrowserDeclarator &declarator)
{
    if (!shape.isFunction && code(at, end) == ':') {
        const Index stop = findTopLevel(at + 1, end, '=');
        shape.suffix.append(u" : ");
        appendSourceText(shape.suffix, range(at + 1, stop));
        return stop;
    }
    while (at < end) {
        const Token &here = token(at);
        if (here.is('=') && shape.isFunction && at + 1 < end) {
            declarator.isPure = token(at + 1).text == u"0";
            declarator.isDeleted = token(at + 1).text == u"delete";
        }
        if (here.is('='))
            return at;
        if (shape.isFunction && here.is('-') && code(at + 1, end) == '>') {
            Index stop = at + 2;
            while (stop < end && !token(stop).is('=') && token(stop).word != Word::Suffix)
                stop = afterGroup(stop);
            declarator.type = returnType(at + 2, std::min(stop, end));
            return end;
        }
        declarator.isConst |= here.is(Const) && shape.isFunction;
        if (!shape.isFunction && !isWord(here) && !isQualifier(at) && !here.is('(') && !here.is('['))
            return at;
        at = std::min(afterGroup(at), end);
    }
    return at;
}

/// The type after "->". A function type is written around the name.
SourceBrowserType SourceBrowserDeclaratorReader::returnType(Index begin, Index end)
{
    if (findTopLevel(begin, end, '(') < end) {
        if (SourceBrowserArgument type = readArgument(begin, end); type.name.isEmpty() && type.type.hasInsertion())
            return type.type;
    }
    return {typeText(range(begin, end)), -1};
}

} // namespace tavidoc
