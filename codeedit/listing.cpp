#include "codeedit/listing.h"

#include "codeedit/lexer_factory.h"
#include "codeedit/spans.h"
#include "codeedit/utf16_line.h"
#include "docgen/text_escape.h"

#include <map>
#include <vector>

namespace {

/// The lexers that have been asked for, by language; null for a language without one. They live
/// as long as the process: what a lexer keeps carries from listing to listing.
CodeEditParser *lexerFor(std::string_view language)
{
    static std::map<std::string, std::unique_ptr<CodeEditParser>, std::less<>> lexers;
    const auto known = lexers.find(language);
    if (known != lexers.end())
        return known->second.get();
    return lexers.emplace(language, makeLexer(language)).first->second.get();
}

bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view withoutLeadingSpace(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

/// \a line of a BASIC listing without its number. A lone comment mark leaves an empty line.
std::string_view withoutLineNumber(std::string_view line)
{
    line = withoutLeadingSpace(line);
    while (!line.empty() && isDigit(line.front()))
        line.remove_prefix(1);
    if (!line.empty() && isSpace(line.front()))
        line.remove_prefix(1);
    const std::string_view content = withoutLeadingSpace(line);
    const bool loneMark = content.starts_with('\'') && withoutLeadingSpace(content.substr(1)).empty();
    return loneMark ? std::string_view() : line;
}

/// Replaces the marks of left-out parts in \a html from \a begin on.
void replaceEllipses(std::string &html, std::size_t begin)
{
    struct Ellipsis
    {
        std::string_view mark;
        std::string_view html;
    };
    static constexpr Ellipsis ellipses[] = {
        {"\\vdots", "&#x205e;"},
        {"\\hdots", "&hellip;"},
        {"\\...", "&hellip;"},
    };
    std::size_t backslash = html.find('\\', begin);
    if (backslash == std::string::npos)
        return;
    const std::string source = html.substr(backslash);
    html.resize(backslash);
    for (std::string_view rest = source; !rest.empty();) {
        std::size_t length = std::min(rest.find('\\', 1), rest.size());
        for (const Ellipsis &ellipsis : ellipses) {
            if (!rest.starts_with(ellipsis.mark))
                continue;
            html += ellipsis.html;
            rest.remove_prefix(ellipsis.mark.size());
            length = std::min(rest.find('\\'), rest.size());
            break;
        }
        html += rest.substr(0, length);
        rest.remove_prefix(length);
    }
}

void appendLine(std::string &html, CodeEditParser &lexer, std::string_view text, quint32 &state)
{
    static thread_local Utf16Line line;
    static thread_local std::vector<char16_t> styled;
    line.assign(text);
    const std::size_t room = 3 * line.size() + 1;
    if (styled.size() < room)
        styled.resize(room);
    lexer.styleLine(line.data(), styled.data(), state);
    appendSpans(html, styled.data());
    html += '\n';
}

} // namespace

void appendListing(std::string &html, std::string_view text, std::string_view language)
{
    CodeEditParser *const lexer = lexerFor(language);
    if (lexer == nullptr)
        return appendEscaped(html, text);
    const bool stripsNumbers = language == "basic";
    const std::size_t begin = html.size();
    quint32 state = 0;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, end - at);
        appendLine(html, *lexer, stripsNumbers ? withoutLineNumber(line) : line, state);
        at = end + 1;
    }
    replaceEllipses(html, begin);
}
