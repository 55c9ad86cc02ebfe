#include "site/lexers/lexers.h"

#include <string>

namespace tavidoc {

namespace {

using enum ListingStyle;

bool isNamePart(char c)
{
    return isWordCharacter(c) || c == '-' || c == ':' || c == '.' || c == '@';
}

void takeAttributeValue(ListingScanner &scanner)
{
    const char quote = scanner.peek();
    if (quote == '"' || quote == '\'')
        return scanner.takeTo(scanner.afterQuoted(quote == '"' ? "\"" : "'", scanner.offset() + 1, false, true),
                              Literal);
    scanner.takeTo(
        scanner.whileIs([](char c) { return c != ' ' && c != '\t' && c != '\n' && c != '>'; }, scanner.offset()),
        Literal);
}

/// Takes a tag. Its text "<script" or "<style" makes the text up to the closing tag plain.
void takeTag(ListingScanner &scanner)
{
    const std::size_t begin = scanner.offset();
    scanner.takeTo(scanner.whileIs(isNamePart, begin + (scanner.peek(1) == '/' ? 2 : 1)), Markup);
    const std::string name(scanner.text(begin + 1, scanner.offset()));
    while (!scanner.atEnd() && scanner.peek() != '>' && scanner.peek() != '<') {
        if (scanner.peek() == '=') {
            scanner.take(1, Operator);
            scanner.skipBlanks();
            takeAttributeValue(scanner);
        } else if (isNamePart(scanner.peek())) {
            scanner.takeTo(scanner.whileIs(isNamePart, scanner.offset()), Attribute);
        } else {
            scanner.take(1, scanner.peek() == '/' ? Markup : Plain);
        }
    }
    if (scanner.peek() == '>')
        scanner.take(1, Markup);
    if (name == "script" || name == "style") {
        const std::string closing = "</" + name;
        const std::size_t after = scanner.after(closing, scanner.offset());
        const bool isClosed = scanner.text(scanner.offset(), after).ends_with(closing);
        scanner.takeTo(isClosed ? after - closing.size() : after, Plain);
    }
}

/// The end of the entity that begins here; the offset itself if none does.
std::size_t afterEntity(const ListingScanner &scanner)
{
    const auto isPart = [](char c) { return isLetter(c) || isDigit(c) || c == '#'; };
    const std::size_t end = scanner.whileIs(isPart, scanner.offset() + 1);
    return scanner.charAt(end) == ';' && end > scanner.offset() + 1 ? end + 1 : scanner.offset();
}

} // namespace

void lexHtml(ListingScanner &scanner)
{
    while (!scanner.atEnd()) {
        const char c = scanner.peek();
        const char next = scanner.peek(1);
        const std::size_t at = scanner.offset();
        if (scanner.startsWith("<!--"))
            scanner.takeTo(scanner.after("-->", at), Comment);
        else if (c == '<' && (next == '!' || next == '?'))
            scanner.takeTo(scanner.after(">", at), Control);
        else if (c == '<' && (isLetter(next) || next == '/'))
            takeTag(scanner);
        else if (c == '&' && afterEntity(scanner) > at)
            scanner.takeTo(afterEntity(scanner), Control);
        else
            scanner.skip();
    }
}

} // namespace tavidoc
