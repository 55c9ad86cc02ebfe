#include "pages/document_facts.h"
#include "pages/html_blocks.h"
#include "pages/html_pages.h"
#include "pages/page_encoding.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

std::string joined(std::span<const std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

} // namespace

TEST(HtmlPages, FrameAroundAPage)
{
    PageText text;
    const std::string page = joined(text.framed("s", "A &lt; \xC2\xB7", "b\xC3\xA9\xE2\x82\xAC"));
    EXPECT_EQ(joined(text.framed("s", "A &lt; \xC2\xB7", "b\xC3\xA9\xE2\x82\xAC")), page) << "made again";
    const std::size_t bannerEnd = page.find("-->\n");
    ASSERT_TRUE(page.starts_with("<html>\n<!--\n//") && bannerEnd != std::string::npos);
    const std::string banner = page.substr(12, bannerEnd - 12);
    for (std::size_t at = 0; at < banner.size(); at = banner.find('\n', at) + 1)
        EXPECT_EQ(banner.substr(at, 2), "//");
    EXPECT_NE(banner.find("\n// Copyright (c) "), std::string::npos);
    EXPECT_EQ(page.substr(bannerEnd),
              "-->\n<head>\n<link rel=\"stylesheet\" href=\"default.css\" />\n<title style=\"s\">A &amp;lt; &middot;"
              "</title>\n<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\" />\n</head>\n"
              "<body>\nb\xE9&#x20ac;</body>\n</html>\n");
}

TEST(HtmlPages, CharactersBeyondLatin1AreReferences)
{
    PageText page;
    EXPECT_EQ(joined(page.bare("\xEF\xBB\xBF\xC3\xBF\xC4\x80 \xF0\x9F\x98\x80")), "&#xfeff;\xFF&#x100; &#x1f600;");
    EXPECT_EQ(joined(page.bare("\xE2\x80 ab\xC2")), "&#xfffd;&#xfffd; ab&#xfffd;")
        << "bytes of a character that is cut off";
}

TEST(DocumentFacts, TagsBeginWithALetter)
{
    for (const char *text : {"<a", "<z>", "<A>", "<Z", "1 < 2 <b>x</b>"})
        EXPECT_TRUE(DocumentFacts::hasTag(text)) << text;
    for (const char *text : {"", "a", "<", "a < b <", "</p>", "<!-- a -->", "<@", "<[", "<`", "<{", "<1", "<\xC3\xA4"})
        EXPECT_FALSE(DocumentFacts::hasTag(text)) << text;
}

TEST(HtmlPages, IndexOfPagesUnderCaptions)
{
    const IndexGroup groups[] = {{"One", {{"a", "A", "First."}, {"b", "B", ""}}}, {"Two", {}}};
    std::string html;
    appendMultiHeadingTable(html, groups);
    const std::string blanks(28, ' ');
    EXPECT_EQ(
        html,
        "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" "
        "fm_widths=\"1.1in,*\" style=\"MultiHeadingTable\">\n"
        "<tr bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>One</b></td></tr>\n"
        "<tr><td valign=\"center\"><a href=\"a.htm\" style=\"Heading\">A</a></td>" +
            blanks + "<td width=\"100%\">First.</td></tr>\n" +
            "<tr><td valign=\"center\"><a href=\"b.htm\" style=\"Heading\">B</a></td>" + blanks +
            "<td width=\"100%\"></td></tr>\n"
            "<tr bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>Two</b></td></tr>\n"
            "</table>");
}

TEST(HtmlPages, AddressesThatLookLikeASchemeStartInTheFolder)
{
    for (const char *file : {"A::B.htm", "a:b", "azAZ09.x+y-z:q", "mailto:me"})
        EXPECT_EQ(addressStart(file), "./") << file;
    for (const char *file : {"", ":", "::a", "a", "a/b:c", "a b:c", "_a::b", "2:1", "operator<A::B>", "~A::B"})
        EXPECT_EQ(addressStart(file), "") << file;
    std::string html;
    const IndexGroup groups[] = {{"", {{"A::B", "A", ""}}}};
    appendMultiHeadingTable(html, groups);
    EXPECT_NE(html.find("<a href=\"./A::B.htm\""), std::string::npos) << html;
}

TEST(HtmlBlocks, RequestsThatChangeNothingAndThoseThatDo)
{
    const char *const openings[] = {
        "", "<p>", "<ul><li>", "<dl><dt>", "<ol><li>", "\n<pre class=\"zkt-code\">", "<table ", "<table "};
    const char *const endings[] = {"",           "</p>",   "</li></ul>",         "</dd></dl>",
                                   "</li></ol>", "</pre>", "</td></tr></table>", "</td></tr></table>"};
    for (int from = 0; from < 8; ++from) {
        for (int to = 0; to < 8; ++to) {
            std::string tag = "p";
            HtmlBlocks blocks(tag);
            blocks.setMode(BlockMode{from});
            const std::string before = blocks.text();
            blocks.setMode(BlockMode{to});
            const bool stays = from == to || (to == 1 && from > 0);
            EXPECT_EQ(blocks.mode(), BlockMode{stays ? from : to}) << from << " " << to;
            const std::string change = stays ? "" : std::string(endings[from]) + openings[to];
            EXPECT_TRUE(blocks.text().starts_with(before + change)) << from << " " << to << ": " << blocks.text();
            EXPECT_TRUE(!stays || blocks.text() == before);
        }
    }
}

TEST(HtmlBlocks, ALiteralBlockLosesItsEmptyEnd)
{
    std::string tag = "p";
    HtmlBlocks blocks(tag);
    blocks.setMode(BlockMode::Literal);
    blocks.text() += "a \n&nbsp;<br/>\n\n<br/>&nbsp;";
    blocks.setMode(BlockMode::None);
    EXPECT_EQ(blocks.text(), "\n<pre class=\"zkt-code\">a </pre>");
}

TEST(PageEncoding, WritesWhatTheEncodingLacksAsReferences)
{
    const std::string plain(40, 'x'); // longer than what is judged at once
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {plain, plain},
        {plain + "\xC2\x80" + plain, plain + "\x80" + plain},
        {"\xC3\xBF\xC4\x80", "\xFF&#x100;"},
        {"\xDF\xBF\xE0\xA0\x80", "&#x7ff;&#x800;"},
        {"\xEF\xBF\xBF\xF0\x90\x80\x80", "&#xffff;&#x10000;"},
        {"\xF4\x8F\xBF\xBF", "&#x10ffff;"},
        {"a\xC3", "a&#xfffd;"}, // cut characters
        {"\xE2\x82", "&#xfffd;&#xfffd;"},
        {"\xF0\x90\x80", "&#xfffd;&#xfffd;&#xfffd;"},
        {"\x80\xC1z", "&#xfffd;&#xfffd;z"},
    };
    for (const auto &[text, bytes] : rows) {
        QByteArray encoded;
        appendLatin1(encoded, text);
        EXPECT_EQ(encoded.toStdString(), bytes) << text;
    }
}
