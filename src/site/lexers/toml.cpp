#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_constants[] = {"true", "false", "inf", "nan"};

bool isKeyCharacter(char c)
{
    return isWordCharacter(c) || c == '-' || c == '.' || c == ' ' || c == '\t';
}

bool isValueCharacter(char c)
{
    return isWordCharacter(c) || c == '-' || c == '+' || c == '.' || c == ':';
}

void takeString(ListingScanner &scanner)
{
    const char quote = scanner.peek();
    const char triple[] = {quote, quote, quote};
    const std::string_view longQuote(triple, 3);
    const bool isLong = scanner.startsWith(longQuote);
    const std::string_view closing = isLong ? longQuote : longQuote.substr(0, 1);
    scanner.takeTo(scanner.afterQuoted(closing, scanner.offset() + closing.size(), quote == '"', isLong), Literal);
}

/// The end of the key that begins here, with its quoted parts; the offset itself when no "=" follows.
std::size_t afterKey(const ListingScanner &scanner)
{
    std::size_t at = scanner.offset();
    for (;;) {
        const char c = scanner.charAt(at);
        if (c == '"' || c == '\'')
            at = scanner.afterQuoted(c == '"' ? "\"" : "'", at + 1, c == '"', false);
        else if (const std::size_t end = scanner.whileIs(isKeyCharacter, at); end > at)
            at = end;
        else
            return c == '=' ? at : scanner.offset();
    }
}

void takeValue(ListingScanner &scanner)
{
    const std::size_t begin = scanner.offset();
    const std::size_t end = scanner.whileIs(isValueCharacter, begin);
    if (end == begin)
        return scanner.skip();
    const bool isConstant = isOneOf(scanner.text(begin, end), s_constants);
    const char first = scanner.peek();
    const bool isNumber = isDigit(first) || first == '-' || first == '+' || first == '.';
    scanner.takeTo(end, isConstant ? Keyword : isNumber ? Literal : Plain);
}

} // namespace

void lexToml(ListingScanner &scanner)
{
    bool mayBeKey = true; // at the start of a line or in an inline table
    while (!scanner.atEnd()) {
        const char c = scanner.peek();
        const std::size_t keyEnd = mayBeKey && c != ' ' ? afterKey(scanner) : scanner.offset();
        const bool isBlankCharacter = c == ' ' || c == '\t';
        if (c == '#' || (c == ';' && mayBeKey))
            scanner.takeLine(Comment);
        else if (c == '[' && mayBeKey && scanner.atLineStart())
            scanner.takeTo(scanner.whileIs([](char d) { return d != '\n' && d != '#'; }, scanner.offset()), Markup);
        else if (keyEnd > scanner.offset())
            scanner.takeTo(keyEnd, Attribute);
        else if (c == '"' || c == '\'')
            takeString(scanner);
        else if (c == '=')
            scanner.take(1, Operator);
        else
            takeValue(scanner);
        mayBeKey = c == '\n' || c == '{' || c == ',' || (mayBeKey && isBlankCharacter);
    }
}

} // namespace tavidoc
