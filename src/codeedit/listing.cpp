#include "codeedit/listing.h"

#include "base/large_room.h"
#include "base/text_escape.h"
#include "codeedit/characters.h"
#include "codeedit/lexer_factory.h"
#include "codeedit/spans.h"
#include "codeedit/utf16_lines.h"

#include <map>
#include <vector>

namespace tavidoc {

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

/// Where the text of \a line of a BASIC listing begins behind its number. A lone comment mark is
/// no text.
const char16_t *behindLineNumber(const char16_t *line)
{
    line = Characters::skip(Characters::skip(line, Characters::Blank), Characters::Digit);
    if (Characters::is(*line, Characters::Blank))
        ++line;
    const char16_t *const content = Characters::skip(line, Characters::Blank);
    const char16_t *const rest = *content == u'\'' ? Characters::skip(content + 1, Characters::Blank) : content;
    return *rest == 0 && rest != content ? rest : line;
}

void appendStyled(std::string &html, std::string_view text, CodeEditParser &lexer, bool stripsNumbers)
{
    Utf16Lines lines(text);
    Spans spans(html);
    std::vector<char16_t> styled;
    quint32 state = 0;
    while (lines.next()) {
        const std::size_t room = 3 * lines.size() + 1;
        if (styled.size() < room)
            styled.resize(room);
        lexer.styleLine(stripsNumbers ? behindLineNumber(lines.line()) : lines.line(), styled.data(), state);
        spans.appendLine(styled.data());
    }
}

constexpr std::size_t s_largestSpareRoom = 64'000'000;

struct Ellipsis
{
    std::string_view mark;
    std::string_view html;
};

constexpr Ellipsis s_ellipses[] = {
    {"\\vdots", "&#x205e;"},
    {"\\hdots", "&hellip;"},
    {"\\...", "&hellip;"},
};

/// The ellipsis whose mark \a text begins with; null when there is none.
const Ellipsis *ellipsisAt(std::string_view text)
{
    for (const Ellipsis &ellipsis : s_ellipses) {
        if (text.starts_with(ellipsis.mark))
            return &ellipsis;
    }
    return nullptr;
}

/// The first mark in \a text from \a from on; npos when there is none.
std::size_t findEllipsis(std::string_view text, std::size_t from)
{
    std::size_t at = text.find('\\', from);
    while (at != std::string_view::npos && ellipsisAt(text.substr(at)) == nullptr)
        at = text.find('\\', at + 1);
    return at;
}

/// Replaces the marks of left-out parts in \a html from \a begin on.
void replaceEllipses(std::string &html, std::size_t begin)
{
    const std::size_t first = findEllipsis(html, begin);
    if (first == std::string::npos)
        return;
    const std::string source = html.substr(first);
    html.resize(first);
    std::size_t at = 0;
    for (std::size_t mark = 0; mark != std::string::npos; mark = findEllipsis(source, at)) {
        const Ellipsis &ellipsis = *ellipsisAt(std::string_view(source).substr(mark));
        html.append(source, at, mark - at);
        html += ellipsis.html;
        at = mark + ellipsis.mark.size();
    }
    html.append(source, at);
}

/// Makes room for the spans of a listing of \a size bytes, which make it four to twelve times as long.
/// What is not filled takes no memory.
void reserveRoom(std::string &html, std::size_t size)
{
    const std::size_t room = html.size() + std::min(16 * size, 4 * size + s_largestSpareRoom);
    if (room <= html.capacity())
        return;
    html.reserve(room);
    expectLargeRoom(html.data(), html.capacity());
}

} // namespace

void appendListing(std::string &html, std::string_view text, std::string_view language)
{
    CodeEditParser *const lexer = lexerFor(language);
    if (lexer == nullptr)
        return appendEscaped(html, text);
    const std::size_t begin = html.size();
    reserveRoom(html, text.size());
    appendStyled(html, text, *lexer, language == "basic");
    replaceEllipses(html, begin);
}

} // namespace tavidoc
