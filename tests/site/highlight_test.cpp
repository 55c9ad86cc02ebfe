#include "base/text_escape.h"
#include "site/lexers/highlight.h"
#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace tavidoc;

namespace {

constexpr const char *s_languages[] = {"sh", "python", "json", "yaml", "toml", "cmake", "html", "css", "diff"};

std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// A coloured listing for reading: "[keyword|if]".
std::string readable(std::string html)
{
    html = replaced(std::move(html), "</span>", "]");
    html = replaced(std::move(html), "<span class=\"zkt-code-", "[");
    html = replaced(std::move(html), "\">", "|");
    for (const auto &[entity, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}})
        html = replaced(std::move(html), entity, character);
    return html;
}

std::string withoutSpans(std::string html)
{
    for (std::size_t at = 0; (at = html.find("<", at)) != html.npos;)
        html.erase(at, html.find('>', at) + 1 - at);
    return html;
}

} // namespace

TEST(Highlight, ColoursWhatTheGoldenListingsShow)
{
    for (const std::string language : s_languages) {
        SCOPED_TRACE(language);
        checkGoldenFile(TAVIDOC_SOURCE_DIR "/tests/site/listings/" + language + ".txt", [&](const std::string &text) {
            return readable(highlighted(escapedText(text), language)) + "\n";
        });
    }
}

TEST(Highlight, KnowsSuffixesAndLeavesOthersAlone)
{
    EXPECT_EQ(highlighted("a: 1", "yml"), highlighted("a: 1", "yaml"));
    EXPECT_EQ(highlighted("a: 1", "plain"), "");
    EXPECT_EQ(highlighted("a: 1", ""), "");
}

/// Whatever is cut off or mixed up, no byte of the text changes.
TEST(Highlight, KeepsEveryByte)
{
    const std::string_view pieces[] = {
        "\"", "'",  "\"\"\"", "\\", "\n",   " ",   "#",        "[[", "]]",  "[",  "{",  "}",        "(",   ")",
        "$",  "${", "$<",     "<",  "<!--", "-->", "<script>", "</", "/*",  "*/", "//", "@",        ":",   "|",
        "=",  "-",  "1e",     "0x", "a",    "if",  "<<E",      "E",  "+++", "&",  ";",  "\xC2\xB7", "\xFF"};
    std::mt19937 random(11);
    for (int round = 0; round < 1000; ++round) {
        std::string text;
        for (int count = 0; count < 14; ++count)
            text += pieces[random() % std::size(pieces)];
        const std::string html = escapedText(text);
        for (const char *language : s_languages)
            EXPECT_EQ(withoutSpans(highlighted(html, language)), html) << language << "\n" << text;
    }
}

TEST(Highlight, TakesTimeInProportion)
{
    for (const char *piece :
         {"\"", "[[", "[=", "$<", "${", "a:hover ", "    ", "<!--", "<<E\n", "\"\"\"", "a.b ", ", ", "|\n "}) {
        std::string text;
        while (text.size() < 100'000)
            text += piece;
        const std::string html = escapedText(text);
        for (const char *language : s_languages)
            EXPECT_GE(highlighted(html, language).size(), html.size()) << language; // a test that hangs fails
    }
}
