#include "sourcebrowser/declarators.h"

#include <algorithm>
#include <cstring>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

bool isWordCharacter(QChar unit)
{
    return unit.isLetterOrNumber() || unit == u'_' || unit == u'$' || unit == u'"';
}

bool isArithmetic(QChar unit)
{
    return unit == u'+' || unit == u'-' || unit == u'/' || unit == u'%' || unit == u'|' || unit == u'?' ||
           unit == u'=' || unit == u'!';
}

/// Whether the text ends with a "<" or "<<" that is a comparison: there is a blank before it, unlike before template arguments.
bool endsInComparison(QStringView text)
{
    const bool isLess = text.endsWith(u'<');
    while (text.endsWith(u'<'))
        text.chop(1);
    return isLess && text.endsWith(u' ');
}

/// Whether the last word of \a text has a meaning of its own, as "const".
bool endsInKeyword(QStringView text)
{
    qsizetype begin = text.size();
    while (begin > 0 && isWordCharacter(text[begin - 1]))
        --begin;
    return wordEntry(text.sliced(begin)) != nullptr;
}

/// Whether a blank belongs between the end of \a text and \a token in the text of a type.
bool wantsBlank(QStringView text, const SourceBrowserTokenRecord &token)
{
    const QChar last = text.back();
    const QChar first = token.text.front();
    if (isWordCharacter(first))
        return isWordCharacter(last) || last == u',' || (last == u'>' && !text.endsWith("->"_L1)) || last == u')' ||
               last == u']' || (token.blankBefore && (isArithmetic(last) || endsInComparison(text)));
    if (first == u'*' || first == u'&' || first == u'^')
        return last != u'*' && last != u'&' && last != u'(' && last != u':' && last != u'^';
    if (first == u'(')
        return (isWordCharacter(last) || last == u',') && token.blankBefore;
    if (token.is(Scope))
        return token.blankBefore && endsInKeyword(text); // "struct ::a", but not "a :: b"
    if (first == u'.')
        return last == u',' || (token.blankBefore && isWordCharacter(last));
    return token.blankBefore && (isArithmetic(first) || ((first == u'<' || first == u'>') && token.match < 0));
}

} // namespace

void SourceBrowserDeclaratorReader::appendToType(SourceBrowserTextBuffer &text, const Token &token, qsizetype begin)
{
    if (token.text.isEmpty()) // a literal cut off by the end
        return;
    if (text.size() > begin && wantsBlank(text.view().sliced(begin), token))
        text.append(u' ');
    text.append(token.text);
}

void SourceBrowserDeclaratorReader::appendSourceText(SourceBrowserTextBuffer &text, std::span<const Token> tokens)
{
    const qsizetype begin = text.size();
    for (const Token &token : tokens) {
        if (token.blankBefore && text.size() > begin)
            text.append(u' ');
        text.append(token.text);
    }
}

void SourceBrowserDeclaratorReader::appendTypeText(SourceBrowserTextBuffer &text, std::span<const Token> tokens)
{
    const qsizetype begin = text.size();
    for (const Token &token : tokens)
        appendToType(text, token, begin);
}

QString SourceBrowserDeclaratorReader::sourceText(std::span<const Token> tokens)
{
    SourceBrowserTextBuffer text;
    appendSourceText(text, tokens);
    return text.view().toString();
}

QString SourceBrowserDeclaratorReader::typeText(std::span<const Token> tokens)
{
    SourceBrowserTextBuffer text;
    appendTypeText(text, tokens);
    return text.view().toString();
}

QString SourceBrowserDeclaratorReader::shared(QStringView text)
{
    if (text.isEmpty())
        return {};
    const qsizetype size = text.size();
    const auto unit = [text](qsizetype at) { return static_cast<size_t>(text[at].unicode()); };
    const size_t mix =
        unit(0) * 31 + unit(size / 4) * 173 + unit(size / 2) * 7 + unit(size - 1 - size / 4) * 89 + unit(size - 1);
    QString &kept = m_texts[(mix + static_cast<size_t>(size) * 61) % s_texts];
    if (kept.size() != size || std::memcmp(kept.constData(), text.utf16(), static_cast<size_t>(size) * 2) != 0)
        kept = text.toString();
    return kept;
}

bool SourceBrowserDeclaratorReader::isAngle(std::span<const Token> tokens, size_t at)
{
    const Token &token = tokens[at];
    const bool isOpening = token.is('<');
    if (!isOpening && !token.is('>'))
        return false;
    if (at + 1 < tokens.size() && !tokens[at + 1].blankBefore &&
        (tokens[at + 1].is('=') || (isOpening && tokens[at + 1].is('<'))))
        return false;
    return at == 0 || token.blankBefore || !tokens[at - 1].is(isOpening ? '<' : '-');
}

void SourceBrowserDeclaratorReader::linkBrackets(std::vector<Token> &tokens)
{
    QVarLengthArray<Index, 32> open;
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
    const auto size = static_cast<Index>(tokens.size());
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
            if (at > 0 && tokens[static_cast<size_t>(at - 1)].isIdentifier() &&
                isAngle(tokens, static_cast<size_t>(at)))
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
            if (isAngle(tokens, static_cast<size_t>(at)))
                closes('<', at);
            break;
        default:
            break;
        }
    }
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::afterGroup(Index at) const
{
    return token(at).match > at ? std::min<Index>(token(at).match, static_cast<Index>(m_tokens->size()) - 1) + 1
                                : at + 1;
}

SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::findTopLevel(Index from, Index end, int code) const
{
    Index at = from;
    while (at < end && (!token(at).is(code) || (at > from && token(at - 1).is(Operator)))) // "operator,"
        at = afterGroup(at);
    return std::min(at, end);
}

/// Whether \a at is a qualifier, or a macro that is one by its name and so part of the type.
bool SourceBrowserDeclaratorReader::isQualifier(Index at) const
{
    const Token &here = token(at);
    return here.is(Const) || here.is(Volatile) || here.word == Word::Qualifier ||
           (here.word == Word::TypeOperator && here.text == u"_Atomic" && code(at + 1, size()) != '(') ||
           (isWord(here) && here.text.endsWith(u'T') && // rules out nearly all words
            (here.text.endsWith("_RESTRICT"_L1) || here.text.endsWith("_CONST"_L1) || here.text == u"CONST" ||
             here.text == u"RESTRICT") &&
            at + 1 < size() &&
            (isWord(token(at + 1)) || token(at + 1).word == Word::BasicType || token(at + 1).is('*') ||
             token(at + 1).is(Struct)));
}

/// The end of a qualified name that begins at \a at: words joined by "::", with template
/// arguments. If it ends with "::", the next token is not a word.
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

/// The "(" of the group that is the only content of the group at \a open; -1 if there is none.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::wrappedArguments(Index open) const
{
    const Index close = token(open).match;
    const auto size = static_cast<Index>(m_tokens->size());
    if (close >= size || !token(open + 1).is('('))
        return -1;
    return token(open + 1).match == close - 1 ? open + 1 : -1;
}

/// The "(" of the argument list that the macro call \a word makes: `OF((int a))`, `MACRO(...)`; else -1.
SourceBrowserDeclaratorReader::Index SourceBrowserDeclaratorReader::macroArguments(Index word, Index open) const
{
    const bool isOpenList = token(open).match == open + 2 && token(open + 1).is(Ellipsis);
    return isOpenList && looksLikeMacro(word) && word > 0 && !looksLikeMacro(word - 1) ? open : wrappedArguments(open);
}

} // namespace tavidoc
