#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_constants[] = {"true", "false", "null"};

bool isSpaceCharacter(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Takes a string: a key when a colon follows.
void takeString(ListingScanner &scanner)
{
    const std::size_t end = scanner.afterQuoted("\"", scanner.offset() + 1, true, false);
    const bool isKey = scanner.charAt(scanner.whileIs(isSpaceCharacter, end)) == ':';
    scanner.takeTo(end, isKey ? Attribute : Literal);
}

void step(ListingScanner &scanner)
{
    const char c = scanner.peek();
    const std::size_t numberEnd = afterNumber(scanner, scanner.offset());
    const std::size_t wordEnd = scanner.whileIs(isWordCharacter, scanner.offset());
    if (c == '"')
        takeString(scanner);
    else if (scanner.startsWith("//"))
        scanner.takeLine(Comment);
    else if (scanner.startsWith("/*"))
        scanner.takeTo(scanner.after("*/", scanner.offset() + 2), Comment);
    else if (numberEnd > scanner.offset())
        scanner.takeTo(numberEnd, Literal);
    else if (wordEnd > scanner.offset())
        scanner.takeTo(wordEnd, isOneOf(scanner.text(scanner.offset(), wordEnd), s_constants) ? Keyword : Plain);
    else
        scanner.skip();
}

} // namespace

void lexJson(ListingScanner &scanner)
{
    while (!scanner.atEnd())
        step(scanner);
}

} // namespace tavidoc
