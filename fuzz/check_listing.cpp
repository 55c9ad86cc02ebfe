// Colours listings, as styled lines and as spans.

#include "base/source_text.h"
#include "codeedit/listing.h"
#include "codeedit/utf16_lines.h"
#include "fuzz/listing_languages.h"
#include "fuzz/page_checks.h"
#include "fuzz/process_state.h"
#include "fuzz/promise.h"
#include "fuzz/subjects.h"
#include "tests/support/lexer_rules.h"

#include <utility>
#include <vector>

using namespace tavidoc;

namespace {

void checkStyledLines(std::string_view text, CodeEditParser &lexer)
{
    Utf16Lines lines(text);
    std::vector<char16_t> styled;
    quint32 state = 0;
    while (lines.next()) {
        const std::string_view broken = brokenRule(lexer, {lines.line(), lines.size()}, styled, state);
        promise(broken.empty(), broken);
    }
}

/// \a html without tags and with its entities replaced.
std::string plainText(std::string_view html)
{
    constexpr std::pair<std::string_view, std::string_view> entities[] = {
        {"&amp;", "&"},           {"&lt;", "<"},           {"&gt;", ">"},          {"&quot;", "\""}, {"&apos;", "'"},
        {"&middot;", "\xC2\xB7"}, {"&#x205e;", "\\vdots"}, {"&hellip;", "\\hdots"}};
    std::string text;
    while (!html.empty()) {
        std::size_t length = 1;
        if (html.front() == '<') {
            length = html.find('>') + 1;
            promise(length != 0, "a tag ends", html);
        } else if (html.front() == '&') {
            for (const auto &[entity, meaning] : entities) {
                if (!html.starts_with(entity))
                    continue;
                text += meaning;
                length = entity.size();
            }
            promise(length > 1, "an entity has a meaning", html);
        } else {
            text += html.front();
        }
        html.remove_prefix(length);
    }
    return text;
}

/// \a text as it comes back from a listing: the two characters that mean something are replaced, and "\..." looks
/// like "\hdots".
std::string expectedText(std::string_view text)
{
    constexpr std::pair<std::string_view, std::string_view> replacements[] = {
        {std::string_view("\0", 1), "\xEF\xBF\xBD"}, {"\xEF\xB7\x90", "\xEF\xBF\xBD"}, {"\\...", "\\hdots"}};
    std::string result;
    while (!text.empty()) {
        std::size_t length = 1;
        std::string_view piece = text.substr(0, 1);
        for (const auto &[from, to] : replacements) {
            if (text.starts_with(from))
                std::tie(length, piece) = std::pair(from.size(), to);
        }
        result += piece;
        text.remove_prefix(length);
    }
    return result;
}

/// The lines of a BASIC listing lose their numbers: each is the end of its source line.
void checkEndsOfLines(std::string_view actual, std::string_view expected)
{
    while (!expected.empty()) {
        const std::string_view line = expected.substr(0, expected.find('\n'));
        const std::string_view end = actual.substr(0, actual.find('\n'));
        promise(line.ends_with(end), "a BASIC line loses nothing but its number", line);
        const std::string_view lost = line.substr(0, line.size() - end.size());
        promise(lost.find_first_not_of(" \t\v\f\r0123456789'") == std::string_view::npos,
                "a BASIC line loses nothing but its number", line);
        expected.remove_prefix(line.size() + 1);
        actual.remove_prefix(end.size() + 1);
    }
    promise(actual.empty(), "a listing has the lines of its text", actual);
}

} // namespace

void checkListing(std::string_view input)
{
    if (input.empty())
        return;
    const std::string_view language = ListingLanguages::chosenBy(input.front());
    const Language *const row = Languages::named(language);
    input.remove_prefix(1);
    const std::string text =
        decodedSource(QByteArray(input.data(), static_cast<qsizetype>(input.size()))).toStdString();
    if (row != nullptr)
        checkStyledLines(text, *row->makeLexer());
    settleProcessState();
    std::string html;
    appendListing(html, text, language);
    if (row == nullptr)
        return promiseEqual(plainText(html), text, "the text of a listing survives");
    checkPage(html, false, false);
    const std::string expected = expectedText(text) + "\n";
    if (row->lineNumbers == Language::LineNumbers::LeftOut)
        checkEndsOfLines(plainText(html), expected);
    else
        promiseEqual(plainText(html), expected, "the text of a listing survives");
    settleProcessState();
    std::string again;
    appendListing(again, text, language);
    promiseEqual(again, html, "the same listing gives the same spans");
}
