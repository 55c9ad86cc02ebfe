#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_constants[] = {"true", "false", "null", "yes", "no", "on", "off", "True", "False", "~"};

bool isBlankOrEnd(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == 0;
}

class YamlLexer
{
public:
    explicit YamlLexer(ListingScanner &scanner) : m_scanner(scanner) {}

    void run()
    {
        while (!m_scanner.atEnd()) {
            lineStart();
            while (!m_scanner.atEnd() && m_scanner.peek() != '\n')
                step();
            m_scanner.skip();
        }
    }

private:
    void lineStart();
    void step();
    void scalar();
    void block();
    [[nodiscard]] std::size_t indentation(std::size_t from) const { return m_scanner.afterBlanks(from) - from; }

    ListingScanner &m_scanner;
    std::size_t m_indentation = 0; // of the line
    int m_flowDepth = 0;           // of open "[" and "{"
};

void YamlLexer::lineStart()
{
    m_indentation = indentation(m_scanner.offset());
    if (m_scanner.startsWith("---") || m_scanner.startsWith("...") || m_scanner.startsWith("%"))
        m_scanner.takeTo(m_scanner.whileIs([](char c) { return c != ' ' && c != '\n'; }, m_scanner.offset()), Control);
}

void YamlLexer::step()
{
    const char c = m_scanner.peek();
    const char before = m_scanner.offset() == 0 ? ' ' : m_scanner.charAt(m_scanner.offset() - 1);
    if (c == ' ' || c == '\t')
        return m_scanner.skipBlanks();
    if (c == '#' && isBlankOrEnd(before))
        return m_scanner.takeLine(Comment);
    if ((c == '-' || c == '?' || c == ':') && isBlankOrEnd(m_scanner.peek(1)))
        return m_scanner.take(1, Operator);
    if (c == '|' || c == '>')
        return block();
    if (c == '&' || c == '*' || c == '!')
        return m_scanner.takeTo(
            m_scanner.whileIs([](char d) { return !isBlankOrEnd(d) && d != ','; }, m_scanner.offset() + 1), Register);
    if (c == '[' || c == '{' || c == ']' || c == '}' || c == ',') {
        m_flowDepth += c == '[' || c == '{' ? 1 : c == ',' ? 0 : -1;
        return m_scanner.skip();
    }
    scalar();
}

/// Takes a key or a value, plain or quoted.
void YamlLexer::scalar()
{
    const std::size_t begin = m_scanner.offset();
    const char quote = m_scanner.peek();
    const bool isQuoted = quote == '"' || quote == '\'';
    std::size_t end = begin;
    if (isQuoted) {
        end = m_scanner.afterQuoted(quote == '"' ? "\"" : "'", begin + 1, quote == '"', true);
    } else {
        for (char c = quote; c != '\n' && c != 0; c = m_scanner.charAt(++end)) {
            if ((c == ':' && isBlankOrEnd(m_scanner.charAt(end + 1))) ||
                (c == '#' && end > begin && isBlankOrEnd(m_scanner.charAt(end - 1))) ||
                (m_flowDepth > 0 && (c == ',' || c == ']' || c == '}')))
                break;
        }
        while (end > begin + 1 && isBlankOrEnd(m_scanner.charAt(end - 1)))
            --end;
    }
    if (end == begin)
        return m_scanner.skip();
    if (m_scanner.charAt(m_scanner.afterBlanks(end)) == ':')
        return m_scanner.takeTo(end, Attribute);
    const bool isNumber = afterNumber(m_scanner, begin) == end;
    const bool isConstant = isOneOf(m_scanner.text(begin, end), s_constants);
    m_scanner.takeTo(end, isConstant ? Keyword : isNumber || isQuoted ? Literal : Plain);
}

/// Takes the header of a block scalar and the more indented lines after it.
void YamlLexer::block()
{
    m_scanner.take(1, Operator);
    m_scanner.takeTo(m_scanner.whileIs([](char c) { return c == '-' || c == '+' || isDigit(c); }, m_scanner.offset()),
                     Operator);
    const std::size_t headerEnd = m_scanner.afterBlanks(m_scanner.offset());
    if (m_scanner.charAt(headerEnd) != '\n' && m_scanner.charAt(headerEnd) != '#')
        return;
    std::size_t end = m_scanner.lineEnd();
    for (std::size_t begin = end + 1; m_scanner.charAt(end) == '\n'; begin = end + 1) {
        const std::size_t lineEnd = m_scanner.lineEnd(begin);
        const bool isBlankLine = m_scanner.afterBlanks(begin) == lineEnd;
        if (begin > lineEnd || (!isBlankLine && indentation(begin) <= m_indentation))
            break;
        end = lineEnd;
    }
    m_scanner.takeTo(m_scanner.lineEnd(), Plain);
    m_scanner.takeTo(end, Literal);
}

} // namespace

void lexYaml(ListingScanner &scanner)
{
    YamlLexer(scanner).run();
}

} // namespace tavidoc
