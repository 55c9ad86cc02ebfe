#include "sourcebrowser/pending_declaration.h"

#include <algorithm>

namespace tavidoc {

using namespace SourceBrowserToken;

/// Whether the keyword \a token begins the head of a class, structure, union or enumeration.
bool SourceBrowserPendingDeclaration::beginsHead(const Token &token) const
{
    if (parentheses > 0)
        return parentheses == 1 && endsWith('(') && tokens.size() == 2; // "ALIGNED(class) point {"
    return !endsWith(Enum) || !(token.is(Class) || token.is(Struct));   // "enum class" has begun already
}

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
        if (beginsHead(token))
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
    lastLine = token.line;
    tokens.push_back(token);
}

/// Updates the counts that isInText() needs.
void SourceBrowserPendingDeclaration::noteText(const Token &token)
{
    switch (token.code) {
    case '(':
        ++m_nesting;
        break;
    case '[':
        ++m_squares;
        break;
    case ']':
        m_squares = std::max(0, m_squares - 1);
        break;
    case '<':
        ++m_angles;
        break;
    case '>':
        m_angles = std::max(0, m_angles - 1);
        break;
    case '=':
    case ':':
        if (m_valueNesting < 0)
            m_valueNesting = m_nesting;
        break;
    case ')':
        m_nesting = std::max(0, m_nesting - 1);
        if (m_nesting < m_valueNesting)
            m_valueNesting = -1;
        break;
    case ',':
        if (m_nesting <= m_valueNesting)
            m_valueNesting = -1;
        break;
    case Identifier:
        m_isComputed |= token.word == Word::TypeOperator;
        break;
    default:
        break;
    }
}

bool SourceBrowserPendingDeclaration::isInText()
{
    for (; m_textEnd < tokens.size(); ++m_textEnd)
        noteText(tokens[m_textEnd]);
    return m_squares > 0 || m_angles > 0 || m_valueNesting >= 0 || m_isComputed || isOperator();
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

bool SourceBrowserPendingDeclaration::isFieldInParentheses() const
{
    if (tokens.size() < 4 || !endsWith(')') || !tokens[tokens.size() - 3].is('('))
        return false;
    const Token &before = tokens[tokens.size() - 4];
    return before.word == Word::BasicType || before.is(',');
}

bool SourceBrowserPendingDeclaration::mayBeFieldInParentheses() const
{
    if (tokens.size() < 4 || !endsWith(')') || !tokens[tokens.size() - 2].isPlainName())
        return false;
    const auto isOpener = [](const Token &token) { return token.is('('); };
    return std::find_if(tokens.begin(), tokens.end(), isOpener) == tokens.end() - 3;
}

bool SourceBrowserPendingDeclaration::isLanguageBlock() const
{
    return endsWith(String) && tokens.size() > 1 && tokens[tokens.size() - 2].is(Extern);
}

bool SourceBrowserPendingDeclaration::restartsWith(const Token &token, const SourceBrowserPendingComment &next)
{
    if (isTemplate || tokens.empty() || parentheses > 0 || tokens.front().word != Word::Plain)
        return false;
    const int lines = token.line - lastLine;
    if (lines == 0)
        return false;
    const bool startsStatement = token.is(Typedef) || token.is(Extern) || token.is(Static) || token.is(Template);
    return (lines > 1 || startsStatement || endsWithWrapper() || isReplacedBy(next)) && isMacroRun();
}

bool SourceBrowserPendingDeclaration::isReplacedBy(const SourceBrowserPendingComment &next) const
{
    return next.isPresent() && (tokens.empty() || next.firstLine() > tokens.back().line);
}

bool SourceBrowserPendingDeclaration::isMacroRun(size_t count)
{
    if (parentheses > 0 || tokens.empty() || tokens.front().word != Word::Plain)
        return false;
    for (; m_runEnd < count; ++m_runEnd) {
        const Token &token = tokens[m_runEnd];
        const bool opensGroup = token.is('(') && m_runEnd > 0 && tokens[m_runEnd - 1].isIdentifier();
        if (opensGroup) {
            m_runEnd = afterGroup(m_runEnd) - 1;
            continue;
        }
        if (!token.isIdentifier() || token.word != Word::Plain)
            return false;
        if (!isInCapitals(token.text) && !isMacroCall(m_runEnd))
            return false;
    }
    return className.isEmpty() || tokens.front().text != className; // a constructor
}

bool SourceBrowserPendingDeclaration::declaresNothingYet() const
{
    for (size_t at = 0; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        if (token.is('('))
            at = afterGroup(at) - 1;
        else if (!token.is(Extern) && token.word != Word::Storage &&
                 !(token.isPlainName() && (isInCapitals(token.text) || isMacroCall(at))))
            return false;
    }
    return true;
}

/// Whether a call that is not in capitals may be a macro call: it is the first of the run, or of its line as in
/// `DECLARE_FUNCTIONS_only(a)`.
bool SourceBrowserPendingDeclaration::isMacroCall(size_t at) const
{
    if (at + 1 >= tokens.size() || !tokens[at + 1].is('('))
        return false;
    const QStringView text = tokens[at].text;
    return at == 0 ||
           (tokens[at].line != tokens[at - 1].line && text.size() > 2 && text[0].isUpper() && text[1].isUpper());
}

/// The index after the group opened at \a open; the end if it is not closed.
size_t SourceBrowserPendingDeclaration::afterGroup(size_t open) const
{
    int nesting = 0;
    for (size_t at = open; at < tokens.size(); ++at) {
        nesting += tokens[at].is('(') - tokens[at].is(')');
        if (nesting == 0)
            return at + 1;
    }
    return tokens.size();
}

bool SourceBrowserPendingDeclaration::endsWithWrapper() const
{
    if (tokens.size() < 5 || !tokens.back().is(')') || !tokens[tokens.size() - 2].is(')'))
        return false;
    int nesting = 0;
    for (size_t at = tokens.size() - 2; at > 0; --at) {
        nesting += tokens[at].is(')') - tokens[at].is('(');
        if (nesting == 0)
            return tokens[at - 1].is(',');
    }
    return false;
}

void SourceBrowserPendingDeclaration::keepLastCall()
{
    size_t begin = tokens.size();
    for (int nesting = 0; begin > 0;) {
        --begin;
        nesting += tokens[begin].is(')') - tokens[begin].is('(');
        if (nesting == 0 && tokens[begin].isIdentifier())
            break;
    }
    const bool hasNoType = begin + 4 < tokens.size() && tokens[begin + 2].isIdentifier() && tokens[begin + 3].is(',') &&
                           tokens[begin + 4].is('(');
    if (hasNoType && !isCutOff && begin > 0 && tokens[begin - 1].line == tokens[begin].line)
        --begin;
    tokens.erase(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(begin));
}

size_t SourceBrowserPendingDeclaration::leadingCalls() const
{
    size_t end = 0;
    if (tokens.empty() || tokens.front().line == tokens.back().line)
        return end;
    for (size_t at = 0; at + 1 < tokens.size() && tokens[at].isIdentifier() && tokens[at].word == Word::Plain;) {
        const bool isCall = tokens[at + 1].is('(');
        if (!isInCapitals(tokens[at].text) && !isMacroCall(at))
            break;
        at = isCall ? afterGroup(at + 1) : at + 1;
        if (isCall && at < tokens.size() && tokens[at].line != tokens[at - 1].line)
            end = at;
    }
    return end;
}

bool SourceBrowserPendingDeclaration::isForwardDeclaration() const
{
    if (key < 0 || isTypedef || (!isTemplate && !tokens[static_cast<size_t>(key)].is(Class)))
        return false;
    bool hasName = false;
    for (size_t at = static_cast<size_t>(key) + 1; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        const int next = at + 1 < tokens.size() ? tokens[at + 1].code : 0;
        if (token.is('[') && next == '[') {
            while (at + 1 < tokens.size() && !(tokens[at].is(']') && tokens[at + 1].is(']')))
                ++at;
            ++at;
        } else if (token.is(Scope)) {
            hasName = false;
        } else if (token.is('<')) {
            return hasName && endsWith('>');
        } else if (hasName || !token.isIdentifier()) {
            return false;
        } else if (next == '(' && isInCapitals(token.text)) {
            at = afterGroup(at + 1) - 1;
        } else {
            hasName = next == 0 || next == '<' || token.text.size() == 1 || !isInCapitals(token.text);
        }
    }
    return hasName;
}

bool SourceBrowserPendingDeclaration::isOldStyle()
{
    if (parentheses > 0 || isTypedef || (m_oldNamesEnd < 0 && !readOldNames()))
        return false;
    for (size_t at = static_cast<size_t>(m_oldNamesEnd) + 1; at < tokens.size(); ++at) {
        const int next = at + 1 < tokens.size() ? tokens[at + 1].code : ',';
        const bool isDeclared = tokens[at].isIdentifier() && (next == ',' || next == '[' || next == ')');
        if (isDeclared && m_oldNames.contains(tokens[at].text))
            return true;
    }
    return false;
}

/// The index of the ")" before the declaration of an old argument at the end; -1 if the tokens end otherwise. A pointer
/// to a function, `int f(a) int (*a)();`, has groups of its own, so the first group is that of the names.
int SourceBrowserPendingDeclaration::oldNamesEnd() const
{
    if (groupEnd < 2 || tokens.back().isIdentifier() || tokens.back().is(']'))
        return groupEnd;
    const auto isOpener = [](const Token &token) { return token.is('('); };
    const auto first = std::find_if(tokens.begin(), tokens.end(), isOpener);
    const size_t end = afterGroup(static_cast<size_t>(first - tokens.begin()));
    const auto pointer = std::find_if(tokens.begin() + static_cast<std::ptrdiff_t>(end), tokens.end(), isOpener);
    const bool isPointer = tokens.end() - pointer > 4 && pointer[1].is('*') && pointer[3].is(')');
    return isPointer && first - tokens.begin() > 1 && !isInCapitals(first[-1].text) ? static_cast<int>(end) - 1 : -1;
}

/// Reads the names of the arguments, before the first declaration of one. False if the group holds anything but names.
bool SourceBrowserPendingDeclaration::readOldNames()
{
    const int end = oldNamesEnd();
    if (end < 2 || end + 2 >= static_cast<int>(tokens.size()))
        return false;
    size_t begin = static_cast<size_t>(end) - 1;
    for (bool wantsName = true; begin > 0 && !tokens[begin].is('('); --begin, wantsName = !wantsName) {
        if (wantsName ? !tokens[begin].isPlainName() : !tokens[begin].is(','))
            return false;
    }
    if (begin == 1 && isInCapitals(tokens[0].text))
        return false; // a macro before a declaration
    for (size_t at = begin + 1; at < static_cast<size_t>(end); at += 2)
        m_oldNames.insert(tokens[at].text);
    SourceBrowserPendingDeclaration function;
    for (int at = 0; at <= end; ++at)
        function.note(tokens[static_cast<size_t>(at)]);
    m_oldKey = function.key;
    m_oldIsStatic = function.isStatic;
    m_oldNamesEnd = end;
    return true;
}

void SourceBrowserPendingDeclaration::dropOldArgument()
{
    tokens.resize(static_cast<size_t>(m_oldNamesEnd) + 1);
    groupEnd = m_oldNamesEnd;
    key = m_oldKey;
    isStatic = m_oldIsStatic;
    m_runEnd = std::min(m_runEnd, tokens.size());
    m_textEnd = std::min(m_textEnd, tokens.size());
}

} // namespace tavidoc
