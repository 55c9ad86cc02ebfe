#include "site/lexers/lexers.h"

#include <deque>
#include <string>

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_keywords[] = {
    "if",   "then", "elif",  "else",  "fi",     "for",   "while",    "until",  "do",
    "done", "case", "esac",  "in",    "select", "break", "return",   "export", "readonly",
    "exit", "set",  "unset", "shift", "local",  "trap",  "function", "eval",   "exec",
    "time", "{",    "}",     "!",     "[[",     "]]",    "[",        "]",      "continue"};
/// After these a command follows.
constexpr std::string_view s_openers[] = {"if", "then", "elif", "else", "while", "until", "do",
                                          "{",  "!",    "time", "exec", "eval",  "("};

bool isNamePart(char c)
{
    return isLetter(c) || isDigit(c) || c == '_';
}

/// A document that begins on the line after its operator.
struct HereDocument
{
    std::string delimiter;
    bool isIndented = false;
};

class ShellLexer
{
public:
    explicit ShellLexer(ListingScanner &scanner) : m_scanner(scanner) {}

    void run()
    {
        while (!m_scanner.atEnd())
            step();
    }

private:
    void step();
    void lineFeed();
    void variable();
    void doubleQuoted();
    void operators();
    bool hereDocument();
    void word();

    ListingScanner &m_scanner;
    std::deque<HereDocument> m_documents;
    bool m_isCommand = true; // a command begins here
};

void ShellLexer::step()
{
    const char c = m_scanner.peek();
    const char before = m_scanner.offset() == 0 ? ' ' : m_scanner.charAt(m_scanner.offset() - 1);
    const bool isWordStart = before == ' ' || before == '\t' || before == '\n' || before == ';' || before == '(';
    if (c == '\n')
        lineFeed();
    else if (c == ' ' || c == '\t')
        m_scanner.skipBlanks();
    else if (c == '#' && isWordStart)
        m_scanner.takeLine(Comment);
    else if (m_scanner.atLineStart() && m_scanner.startsWith("$ "))
        m_scanner.take(1, Operator);
    else if (c == '\\')
        m_scanner.skip(2);
    else if (c == '\'')
        m_scanner.takeTo(m_scanner.after("'", m_scanner.offset() + 1), Literal);
    else if (c == '"')
        doubleQuoted();
    else if (c == '$')
        variable();
    else if (c == '|' || c == '&' || c == ';' || c == '<' || c == '>' || c == '(' || c == ')' || c == '`')
        operators();
    else
        word();
}

/// Takes the line feed, and the documents that begin after it.
void ShellLexer::lineFeed()
{
    m_scanner.skip();
    m_isCommand = true;
    for (; !m_documents.empty(); m_documents.pop_front()) {
        const HereDocument &document = m_documents.front();
        while (!m_scanner.atEnd()) {
            std::size_t begin = m_scanner.offset();
            const std::size_t end = m_scanner.lineEnd();
            if (document.isIndented)
                begin = m_scanner.whileIs([](char c) { return c == '\t'; }, begin);
            const bool isLast = m_scanner.text(begin, end) == document.delimiter;
            m_scanner.takeTo(isLast ? end : end + 1, isLast ? Operator : Literal);
            if (isLast)
                break;
        }
    }
}

void ShellLexer::variable()
{
    const std::size_t at = m_scanner.offset();
    const char next = m_scanner.peek(1);
    m_isCommand = false;
    if (next == '{') {
        m_scanner.takeTo(m_scanner.after("}", at), Register);
    } else if (next == '(') {
        m_scanner.take(2, Operator);
        m_isCommand = true;
    } else if (isLetter(next) || next == '_') {
        m_scanner.takeTo(m_scanner.whileIs(isNamePart, at + 1), Register);
    } else if (next != 0 && std::string_view("0123456789@*#?$!-").find(next) != std::string_view::npos) {
        m_scanner.take(2, Register);
    } else {
        m_scanner.skip();
    }
}

void ShellLexer::doubleQuoted()
{
    m_scanner.take(1, Literal);
    while (!m_scanner.atEnd()) {
        const char c = m_scanner.peek();
        const char next = m_scanner.peek(1);
        if (c == '"')
            break;
        if (c == '$' && (next == '{' || next == '_' || isLetter(next) || isDigit(next) || next == '@'))
            variable();
        else
            m_scanner.take(c == '\\' ? 2 : 1, Literal);
    }
    m_scanner.take(1, Literal);
    m_isCommand = false;
}

void ShellLexer::operators()
{
    if (m_scanner.startsWith("<<") && m_scanner.peek(2) != '<' && hereDocument())
        return;
    const char c = m_scanner.peek();
    m_scanner.take(1, Operator);
    m_isCommand = c != '<' && c != '>' && c != ')';
    if (c == ')' && m_scanner.peek() == ' ')
        m_isCommand = true; // after a pattern of "case"
}

bool ShellLexer::hereDocument()
{
    std::size_t at = m_scanner.offset() + 2;
    HereDocument document;
    document.isIndented = m_scanner.charAt(at) == '-';
    at = m_scanner.afterBlanks(at + (document.isIndented ? 1 : 0));
    const char quote = m_scanner.charAt(at);
    const bool isQuoted = quote == '\'' || quote == '"' || quote == '\\';
    const std::size_t begin = at + (isQuoted ? 1 : 0);
    const std::size_t end = m_scanner.whileIs(isNamePart, begin);
    if (end == begin)
        return false;
    document.delimiter = m_scanner.text(begin, end);
    m_scanner.takeTo(end + (isQuoted && quote != '\\' ? 1 : 0), Operator);
    m_documents.push_back(std::move(document));
    return true;
}

void ShellLexer::word()
{
    constexpr std::string_view ends = " \t\n\"'`$|&;<>()\\";
    const std::size_t begin = m_scanner.offset();
    const std::size_t end = m_scanner.whileIs([&](char c) { return ends.find(c) == std::string_view::npos; }, begin);
    const std::string_view text = m_scanner.text(begin, end);
    const std::size_t nameEnd = m_scanner.whileIs(isNamePart, begin);
    if (m_scanner.charAt(nameEnd) == '=' && m_isCommand && nameEnd > begin) {
        m_scanner.takeTo(nameEnd, Attribute);
        m_scanner.take(1, Operator);
        return m_scanner.takeTo(end, Plain);
    }
    if (isOneOf(text, s_keywords) && (m_isCommand || text == "in" || text == "]" || text == "]]" || text == "do")) {
        m_scanner.takeTo(end, Keyword);
        m_isCommand = isOneOf(text, s_openers);
        return;
    }
    m_scanner.takeTo(end, m_isCommand ? Function : text.starts_with('-') ? Attribute : Plain);
    m_isCommand = false;
}

} // namespace

void lexShell(ListingScanner &scanner)
{
    ShellLexer(scanner).run();
}

} // namespace tavidoc
