#include "codeedit/listing.h"

#include "base/large_memory.h"
#include "base/text_escape.h"
#include "codeedit/characters.h"
#include "codeedit/ellipses.h"
#include "codeedit/languages.h"
#include "codeedit/spans.h"
#include "codeedit/utf16_lines.h"

#include <algorithm>
#include <map>
#include <vector>

namespace tavidoc {

namespace {

/// How the listings of a language are coloured; without a lexer they are not.
struct Colouring
{
    std::unique_ptr<CodeEditParser> lexer;
    Language::LineNumbers lineNumbers = Language::LineNumbers::Kept;
};

Colouring makeColouring(std::string_view language)
{
    const Language *const row = Languages::named(language);
    return row != nullptr ? Colouring{row->makeLexer(), row->lineNumbers} : Colouring{};
}

/// The colouring for each name of a language that has been asked for. The lexers live as long as the process:
/// what a lexer keeps carries over from listing to listing.
const Colouring &colouringFor(std::string_view language)
{
    static std::map<std::string, Colouring, std::less<>> colourings;
    const auto known = colourings.find(language);
    if (known != colourings.end())
        return known->second;
    return colourings.emplace(language, makeColouring(language)).first->second;
}

/// Where the text of \a line begins after its line number. A comment mark alone does not count as text.
const char16_t *afterLineNumber(const char16_t *line)
{
    line = Characters::skip(Characters::skip(line, Characters::Blank), Characters::Digit);
    if (Characters::is(*line, Characters::Blank))
        ++line;
    const char16_t *const content = Characters::skip(line, Characters::Blank);
    const char16_t *const rest = *content == u'\'' ? Characters::skip(content + 1, Characters::Blank) : content;
    return *rest == 0 && rest != content ? rest : line;
}

void appendStyled(std::string &html, std::string_view text, const Colouring &colouring, bool hasEllipses)
{
    const bool isNumbered = colouring.lineNumbers == Language::LineNumbers::LeftOut;
    Utf16Lines lines(text);
    Spans spans(html);
    std::vector<char16_t> styled;
    quint32 state = 0;
    while (lines.next()) {
        const std::size_t capacity = 3 * lines.size() + 1;
        if (styled.size() < capacity)
            styled.resize(capacity);
        colouring.lexer->styleLine(isNumbered ? afterLineNumber(lines.line()) : lines.line(), styled.data(), state);
        if (hasEllipses)
            Ellipses::join(styled.data());
        spans.appendLine(styled.data());
    }
}

constexpr std::size_t s_largestReserve = 64'000'000; // in bytes

/// Reserves memory for the spans of a listing of \a size bytes, which make it four to twelve times as long.
/// What is not filled takes no memory.
void reserveFor(std::string &html, std::size_t size)
{
    const std::size_t capacity = html.size() + std::min(16 * size, 4 * size + s_largestReserve);
    if (capacity <= html.capacity())
        return;
    html.reserve(capacity);
    preferHugePages(html.data(), html.capacity());
}

} // namespace

void appendListing(std::string &html, std::string_view text, std::string_view language)
{
    const Colouring &colouring = colouringFor(language);
    if (colouring.lexer == nullptr)
        return appendEscaped(html, text);
    const std::size_t begin = html.size();
    const bool hasEllipses = Ellipses::areIn(text);
    reserveFor(html, text.size());
    appendStyled(html, text, colouring, hasEllipses);
    if (hasEllipses)
        Ellipses::replace(html, begin);
}

} // namespace tavidoc
