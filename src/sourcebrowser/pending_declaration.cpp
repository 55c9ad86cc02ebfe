#include "sourcebrowser/pending_declaration.h"

#include <algorithm>

namespace tavidoc {

using namespace SourceBrowserToken;

namespace {

bool isInCapitals(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar unit) { return unit.isLower(); });
}

} // namespace

void SourceBrowserPendingDeclaration::note(const Token &token)
{
    const bool outside = parentheses == 0;
    switch (token.code) {
    case '(':
    case '[':
        ++parentheses;
        break;
    case ')':
    case ']':
        parentheses = std::max(0, parentheses - 1);
        if (parentheses == 0 && token.is(')'))
            groupEnd = static_cast<int>(tokens.size());
        break;
    case Class:
    case Struct:
    case Union:
    case Enum:
        if (outside && !(token.is(Class) && endsWith(Enum)) && !(token.is(Struct) && endsWith(Enum)))
            key = static_cast<int>(tokens.size());
        break;
    case Typedef:
        isTypedef |= outside;
        break;
    case Static:
    case Register:
        isStatic |= outside;
        break;
    case Virtual:
        isVirtual |= outside;
        break;
    case Friend:
        isFriend |= outside;
        break;
    default:
        break;
    }
    tokens.push_back(token);
}

bool SourceBrowserPendingDeclaration::isOperator() const
{
    for (size_t back = 1; back <= 3 && back <= tokens.size(); ++back) {
        const Token &token = tokens[tokens.size() - back];
        if (token.is(Operator))
            return true;
        if (token.isIdentifier() || token.is('('))
            return false;
    }
    return false;
}

bool SourceBrowserPendingDeclaration::isAfterArguments() const
{
    return groupEnd >= 0 && parentheses == 0 &&
           (endsWith(')') || std::any_of(tokens.begin() + groupEnd, tokens.end(),
                                         [](const Token &token) { return token.word == Word::Suffix; }));
}

bool SourceBrowserPendingDeclaration::isLanguageBlock() const
{
    return endsWith(String) && (tokens.size() == 1 || tokens[tokens.size() - 2].is(Extern));
}

bool SourceBrowserPendingDeclaration::restartsWith(const Token &token, bool commentBetween) const
{
    if (tokens.empty() || parentheses > 0 || token.line == tokens.back().line)
        return false;
    const bool startsStatement = token.is(Typedef) || token.is(Extern) || token.is(Static);
    const bool isWrapped = tokens.size() > 3 && tokens.back().is(')') && tokens[tokens.size() - 2].is(')');
    if (!startsStatement && !isWrapped && !commentBetween && token.line - tokens.back().line < 2)
        return false;
    // Words and calls only: "BEGIN_DECLARATIONS", "DECLARE(name)".
    const Token &front = tokens.front();
    if (!front.isIdentifier() || front.word != Word::Plain)
        return false;
    if (tokens.size() == 1)
        return isInCapitals(front.text);
    return tokens[1].is('(') && groupEnd == static_cast<int>(tokens.size()) - 1;
}

bool SourceBrowserPendingDeclaration::holdsCapitalsOnly() const
{
    return std::all_of(tokens.begin(), tokens.end(),
                       [](const Token &token) { return token.isIdentifier() && isInCapitals(token.text); });
}

bool SourceBrowserPendingDeclaration::isOldStyle()
{
    // "int f(a, b) int a; char *b; {": names only in parentheses, then declarations of them.
    if (groupEnd < 2 || groupEnd + 2 >= static_cast<int>(tokens.size()) || parentheses > 0 || isTypedef)
        return false;
    if (m_oldNamesEnd != groupEnd)
        readOldNames();
    return tokens.back().isIdentifier() && m_oldNames.contains(tokens.back().text);
}

void SourceBrowserPendingDeclaration::readOldNames()
{
    m_oldNamesEnd = groupEnd;
    m_oldNames.clear();
    for (int at = groupEnd - 1; at > 0 && !tokens[static_cast<size_t>(at)].is('('); --at) {
        const Token &token = tokens[static_cast<size_t>(at)];
        if (token.isIdentifier() && token.word == Word::Plain)
            m_oldNames.insert(token.text);
        else if (!token.is(','))
            return m_oldNames.clear();
    }
}

} // namespace tavidoc
