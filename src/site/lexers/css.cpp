#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

bool isNamePart(char c)
{
    return isWordCharacter(c) || c == '-';
}

class CssLexer
{
public:
    explicit CssLexer(ListingScanner &scanner) : m_scanner(scanner) {}

    void run()
    {
        while (!m_scanner.atEnd())
            step();
    }

private:
    void step();
    void name();
    [[nodiscard]] bool beginsDeclaration();

    ListingScanner &m_scanner;
    std::size_t m_textEnd = 0; // of the declaration or selector, kept because long selectors ask for it often
    bool m_isValue = false;    // after the colon of a declaration, or in the head of an at-rule
};

void CssLexer::step()
{
    const char c = m_scanner.peek();
    const std::size_t at = m_scanner.offset();
    const std::size_t numberEnd = afterNumber(m_scanner, at);
    if (m_scanner.startsWith("/*"))
        return m_scanner.takeTo(m_scanner.after("*/", at + 2), Comment);
    if (c == '"' || c == '\'')
        return m_scanner.takeTo(m_scanner.afterQuoted(c == '"' ? "\"" : "'", at + 1, true, false), Literal);
    if (c == '@' || (c == '!' && m_isValue)) {
        m_isValue = true;
        return m_scanner.takeTo(m_scanner.whileIs(isNamePart, at + 1), c == '@' ? Control : Keyword);
    }
    if (c == '#' && m_isValue)
        return m_scanner.takeTo(m_scanner.whileIs(isWordCharacter, at + 1), Literal);
    if (numberEnd > at && m_isValue)
        return m_scanner.takeTo(m_scanner.charAt(numberEnd) == '%' ? numberEnd + 1 : numberEnd, Literal);
    const char next = m_scanner.peek(c == ':' && m_scanner.peek(1) == ':' ? 2 : 1);
    if (isNamePart(c) || ((c == '.' || c == '#' || c == ':') && !m_isValue && isNamePart(next)))
        return name();
    if (c == ';' || c == '{' || c == '}')
        m_isValue = false;
    m_scanner.skip();
}

/// Takes a selector, the name of a property with its colon, or a word of a value.
void CssLexer::name()
{
    const std::size_t end = m_scanner.whileIs(isNamePart, m_scanner.offset() + (m_scanner.startsWith("::") ? 2 : 1));
    if (m_isValue)
        return m_scanner.takeTo(end, m_scanner.charAt(end) == '(' ? Function : Plain);
    if (!beginsDeclaration())
        return m_scanner.takeTo(end, Markup);
    m_scanner.takeTo(end, Attribute);
    m_scanner.skipBlanks();
    m_scanner.skip();
    m_isValue = true;
}

/// Whether a property begins here and not a selector: a colon follows its name, and the text ends before any "{".
bool CssLexer::beginsDeclaration()
{
    const std::size_t nameEnd = m_scanner.whileIs(isNamePart, m_scanner.offset() + 1);
    if (m_scanner.charAt(m_scanner.afterBlanks(nameEnd)) != ':')
        return false;
    const auto isInside = [](char c) { return c != ';' && c != '{' && c != '}' && c != '\n'; };
    if (m_textEnd < nameEnd)
        m_textEnd = m_scanner.whileIs(isInside, nameEnd);
    return m_scanner.charAt(m_textEnd) != '{';
}

} // namespace

void lexCss(ListingScanner &scanner)
{
    CssLexer(scanner).run();
}

} // namespace tavidoc
