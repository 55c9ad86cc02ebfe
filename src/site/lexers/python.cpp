#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_keywords[] = {
    "False",    "None",   "True",  "and",  "as",     "assert",   "async", "await",   "break", "class",
    "continue", "def",    "del",   "elif", "else",   "except",   "for",   "finally", "from",  "global",
    "if",       "import", "in",    "is",   "lambda", "nonlocal", "not",   "or",      "pass",  "raise",
    "return",   "try",    "while", "with", "yield",  "match",    "case"};

constexpr std::string_view s_operators = "+-*/%@&|^~<>=!:.";

/// The length of the prefix of a string that begins at the scanner: "rb" of rb"..."; npos if none begins here.
std::size_t stringPrefix(const ListingScanner &scanner)
{
    constexpr std::string_view letters = "rRbBuUfF";
    std::size_t length = 0;
    while (length < 3 && scanner.peek(length) != 0 && letters.find(scanner.peek(length)) != std::string_view::npos)
        ++length;
    const char quote = scanner.peek(length);
    return length < 3 && (quote == '"' || quote == '\'') ? length : std::string_view::npos;
}

void takeString(ListingScanner &scanner, std::size_t prefix)
{
    const std::size_t begin = scanner.offset() + prefix;
    const char quote = scanner.charAt(begin);
    const char triple[] = {quote, quote, quote};
    const std::string_view longQuote(triple, 3);
    const bool isLong = scanner.charAt(begin + 1) == quote && scanner.charAt(begin + 2) == quote;
    const std::string_view closing = isLong ? longQuote : longQuote.substr(0, 1);
    scanner.takeTo(scanner.afterQuoted(closing, begin + closing.size(), true, isLong), Literal);
}

void takeWord(ListingScanner &scanner)
{
    const std::size_t begin = scanner.offset();
    const std::size_t end = scanner.whileIs(isWordCharacter, begin);
    const char before = begin == 0 ? ' ' : scanner.charAt(begin - 1);
    if (before != '.' && isOneOf(scanner.text(begin, end), s_keywords))
        scanner.takeTo(end, Keyword);
    else
        scanner.takeTo(end, scanner.charAt(end) == '(' ? Function : Plain);
}

bool isDecorator(const ListingScanner &scanner)
{
    std::size_t at = scanner.offset();
    if (scanner.peek() != '@')
        return false;
    while (at > 0 && (scanner.charAt(at - 1) == ' ' || scanner.charAt(at - 1) == '\t'))
        --at;
    return at == 0 || scanner.charAt(at - 1) == '\n';
}

void step(ListingScanner &scanner)
{
    const char c = scanner.peek();
    if (c == '#')
        scanner.takeLine(Comment);
    else if (const std::size_t prefix = stringPrefix(scanner); prefix != std::string_view::npos)
        takeString(scanner, prefix);
    else if (isDecorator(scanner))
        scanner.takeTo(scanner.whileIs([](char d) { return isWordCharacter(d) || d == '.'; }, scanner.offset() + 1),
                       Attribute);
    else if (isDigit(c) || (c == '.' && isDigit(scanner.peek(1))))
        scanner.takeTo(afterNumber(scanner, scanner.offset()), Literal);
    else if (isWordCharacter(c))
        takeWord(scanner);
    else
        scanner.take(1, s_operators.find(c) != std::string_view::npos && c != 0 ? Operator : Plain);
}

} // namespace

void lexPython(ListingScanner &scanner)
{
    while (!scanner.atEnd())
        step(scanner);
}

} // namespace tavidoc
