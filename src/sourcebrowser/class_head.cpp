#include "sourcebrowser/class_head.h"

#include "sourcebrowser/declarators.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

using Token = SourceBrowserTokenRecord;

/// Whether the group at \a open has a number, a word or basic types in it and so cannot be the arguments of a
/// function with a body: those have names.
bool isAttributeCall(std::span<const Token> tokens, size_t open)
{
    size_t close = open + 1;
    bool areTypes = true;
    for (; close < tokens.size() && !tokens[close].is(')'); ++close)
        areTypes &= tokens[close].word == Word::BasicType && tokens[close].text != u"void";
    const size_t count = close - open - 1;
    if (count == 0)
        return false;
    const Token &first = tokens[open + 1];
    return areTypes || first.is(Number) || first.is(String) ||
           (count == 1 && first.isIdentifier() && first.word == Word::Plain);
}

} // namespace

SourceBrowserObject::Access accessOf(const SourceBrowserTokenRecord &keyword)
{
    return keyword.is(Private)     ? SourceBrowserObject::Private
           : keyword.is(Protected) ? SourceBrowserObject::Protected
                                   : SourceBrowserObject::Public;
}

SourceBrowserClassHead::SourceBrowserClassHead(std::span<const Token> tokens, size_t key)
    : m_tokens(tokens), m_key(key), m_begin(key + 1)
{
    if (m_begin < tokens.size() && tokens[m_begin].is(')')) // "ALIGNED(class) point"
        ++m_begin;
}

bool SourceBrowserClassHead::isScopedEnumeration() const
{
    return keyword().is(Enum) && m_key + 1 < m_tokens.size() &&
           (m_tokens[m_key + 1].is(Class) || m_tokens[m_key + 1].is(Struct));
}

/// The index of the next \a closer; the last index or the end if there is none.
size_t SourceBrowserClassHead::skipTo(int closer, size_t from) const
{
    size_t at = from;
    while (at + 1 < m_tokens.size() && !m_tokens[at].is(closer))
        ++at;
    return at;
}

/// The index of the ")" before the next word. The group at \a open precedes the name.
size_t SourceBrowserClassHead::afterAlignment(size_t open) const
{
    size_t at = open;
    while (at + 1 < m_tokens.size() && !(m_tokens[at].is(')') && m_tokens[at + 1].isIdentifier()))
        ++at;
    return at;
}

bool SourceBrowserClassHead::opensBody() const
{
    bool hasName = false;
    int angles = 0;
    const bool isScopedEnum = isScopedEnumeration();
    for (size_t at = m_begin; at < m_tokens.size(); ++at) {
        const Token &token = m_tokens[at];
        if (token.is(':'))
            return true;
        if (token.is('<') || token.is('>')) {
            if (SourceBrowserDeclaratorReader::isAngle(m_tokens, at))
                angles += token.is('<') ? 1 : -1;
        } else if (angles > 0) {
            continue;
        } else if (token.is('(')) {
            if (hasName)
                return false;
            at = afterAlignment(at);
        } else if (token.isIdentifier()) {
            const bool isCall = at + 1 < m_tokens.size() && m_tokens[at + 1].is('(');
            hasName |= !isCall && !isInCapitals(token.text);
            if (isCall && hasName) {
                if (!isScopedEnum && (!isInCapitals(token.text) || !isAttributeCall(m_tokens, at + 1)))
                    return false;
                at = skipTo(')', at);
            }
        } else if (token.is('[')) {
            at = skipTo(']', at);
        } else if (!token.is(Scope) && !token.is(Class) && !token.is(Struct) && !token.is(']') && !token.is(')')) {
            return false;
        }
    }
    return true;
}

QString SourceBrowserClassHead::name() const
{
    QString name;
    bool joins = false;
    int nesting = 0;
    for (size_t at = m_begin; at < m_tokens.size() && !(m_tokens[at].is(':') && nesting == 0); ++at) {
        const Token &token = m_tokens[at];
        const bool isAngle = SourceBrowserDeclaratorReader::isAngle(m_tokens, at);
        if ((token.is('<') && isAngle) || token.is('(') || token.is('['))
            ++nesting;
        if (nesting == 0 && token.isIdentifier() && token.text != u"final" && token.word != Word::Storage) {
            const bool isMacro = (at + 1 < m_tokens.size() && m_tokens[at + 1].is('(')) ||
                                 (!joins && isInCapitals(token.text) && !isInCapitals(name));
            if (!isMacro)
                name = joins ? name + "::"_L1 + token.text.toString() : token.text.toString();
        }
        if (nesting == 0)
            joins = token.is(Scope) && !name.isEmpty();
        if (((token.is('>') && isAngle) || token.is(')') || token.is(']')) && nesting > 0)
            --nesting;
    }
    return name;
}

QString SourceBrowserClassHead::arguments() const
{
    size_t begin = m_begin;
    while (begin < m_tokens.size() && !m_tokens[begin].is('<') && !m_tokens[begin].is(':'))
        ++begin;
    int nesting = 0;
    for (size_t at = begin; at < m_tokens.size() && m_tokens[begin].is('<'); ++at) {
        if (SourceBrowserDeclaratorReader::isAngle(m_tokens, at))
            nesting += m_tokens[at].is('<') ? 1 : -1;
        if (nesting == 0)
            return SourceBrowserDeclaratorReader::sourceText(m_tokens.subspan(begin, at + 1 - begin));
    }
    return {};
}

std::vector<SourceBrowserBaseClass> SourceBrowserClassHead::baseClasses() const
{
    std::vector<SourceBrowserBaseClass> bases;
    size_t at = m_begin;
    while (at < m_tokens.size() && !m_tokens[at].is(':'))
        ++at;
    while (++at < m_tokens.size()) {
        SourceBrowserBaseClass base;
        std::vector<Token> name;
        for (int nesting = 0; at < m_tokens.size() && !(nesting == 0 && m_tokens[at].is(',')); ++at) {
            const Token &token = m_tokens[at];
            if (token.is('(') || token.is(')') || SourceBrowserDeclaratorReader::isAngle(m_tokens, at))
                nesting += token.is('<') || token.is('(') ? 1 : -1;
            if (token.is(Public) || token.is(Protected) || token.is(Private)) {
                base.access = accessOf(token);
                base.hasAccess = true;
            } else if (token.is(Virtual)) {
                base.isVirtual = true;
            } else {
                name.push_back(token);
            }
        }
        SourceBrowserDeclaratorReader::linkBrackets(name);
        base.name = SourceBrowserDeclaratorReader::typeText(name);
        if (!base.name.isEmpty())
            bases.push_back(std::move(base));
    }
    return bases;
}

QString SourceBrowserClassHead::type(const QString &name) const
{
    QString type;
    for (const Token &token : m_tokens.first(m_key)) {
        if (token.is(Const) || token.is(Volatile))
            type += token.text.toString() + u' ';
    }
    return type + keyword().text.toString() + u' ' + (name.isEmpty() ? u"{...}"_s : name);
}

} // namespace tavidoc
