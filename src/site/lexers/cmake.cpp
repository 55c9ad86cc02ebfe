#include "site/lexers/lexers.h"

#include <algorithm>
#include <string>

namespace tavidoc {

namespace {

using enum ListingStyle;

constexpr std::string_view s_control[] = {"if",    "elseif",   "else",   "endif",    "foreach",    "endforeach",
                                          "while", "endwhile", "return", "break",    "function",   "continue",
                                          "macro", "endmacro", "block",  "endblock", "endfunction"};

/// The offset after the bracket text "[==[...]==]" that begins at \a from; \a from if none does.
std::size_t afterBracket(const ListingScanner &scanner, std::size_t from)
{
    if (scanner.charAt(from) != '[')
        return from;
    const std::size_t equals = scanner.whileIs([](char c) { return c == '='; }, from + 1);
    if (scanner.charAt(equals) != '[')
        return from;
    return scanner.after("]" + std::string(equals - from - 1, '=') + "]", equals + 1);
}

/// Takes "${...}", "$ENV{...}" or "$<...>" with what is nested in it.
void takeReference(ListingScanner &scanner)
{
    const std::size_t open = scanner.whileIs(isLetter, scanner.offset() + 1);
    const char opening = scanner.charAt(open);
    if (opening != '{' && opening != '<')
        return scanner.skip();
    int depth = 0;
    std::size_t at = open;
    for (char c = opening; c != 0 && c != '\n'; c = scanner.charAt(++at)) {
        if (c == '{' || c == '<')
            ++depth;
        else if ((c == '}' || c == '>') && --depth == 0)
            break;
    }
    scanner.takeTo(at + 1, Register);
}

void takeString(ListingScanner &scanner)
{
    scanner.take(1, Literal);
    while (!scanner.atEnd() && scanner.peek() != '"') {
        if (scanner.peek() == '$')
            takeReference(scanner);
        else
            scanner.take(scanner.peek() == '\\' ? 2 : 1, Literal);
    }
    scanner.take(1, Literal);
}

/// Takes a word: the name of a command, a keyword in capitals, or another argument.
void takeWord(ListingScanner &scanner, bool isCommand)
{
    constexpr std::string_view ends = " \t\n()\"#$;\\";
    const std::size_t begin = scanner.offset();
    const std::size_t end = scanner.whileIs([&](char c) { return ends.find(c) == std::string_view::npos; }, begin);
    const std::string_view text = scanner.text(begin, end);
    const auto isCapital = [](char c) { return (c >= 'A' && c <= 'Z') || c == '_'; };
    if (isCommand)
        return scanner.takeTo(end, isOneOf(text, s_control) ? Keyword : Function);
    if (text.size() > 1 && std::ranges::all_of(text, isCapital))
        return scanner.takeTo(end, Attribute);
    scanner.takeTo(std::max(end, begin + 1), afterNumber(scanner, begin) == end ? Literal : Plain);
}

} // namespace

void lexCMake(ListingScanner &scanner)
{
    int depth = 0; // of parentheses
    while (!scanner.atEnd()) {
        const char c = scanner.peek();
        const std::size_t at = scanner.offset();
        if (c == '#') {
            const std::size_t bracketEnd = afterBracket(scanner, at + 1);
            scanner.takeTo(bracketEnd > at + 1 ? bracketEnd : scanner.lineEnd(), Comment);
        } else if (c == '"') {
            takeString(scanner);
        } else if (c == '[' && depth > 0) {
            scanner.takeTo(std::max(afterBracket(scanner, at), at + 1), Literal);
        } else if (c == '$') {
            takeReference(scanner);
        } else if (isWordCharacter(c) || c == '-' || c == '.' || c == '/') {
            takeWord(scanner,
                     depth == 0 && scanner.charAt(scanner.afterBlanks(scanner.whileIs(isWordCharacter, at))) == '(');
        } else {
            depth = std::max(0, depth + (c == '(' ? 1 : c == ')' ? -1 : 0));
            scanner.skip(c == '\\' ? 2 : 1);
        }
    }
}

} // namespace tavidoc
