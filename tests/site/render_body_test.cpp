#include "site/render/body.h"
#include "site/render/body_edits.h"
#include "tests/site/body_difference.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace tavidoc;

namespace {

struct BodyRow
{
    const char *sentence;
    std::string body;
    std::string expected;
};

class BodyStructure : public testing::TestWithParam<BodyRow>
{
};

std::string structured(std::string_view body)
{
    return siteBody(body, RecordPage(), PageLinks());
}

/// The page of \a body with the heading, link or picture that begins at the first "@", which is removed.
struct MarkedBody
{
    explicit MarkedBody(std::string_view marked) : offset(marked.find('@')), text(marked) { text.erase(offset, 1); }

    std::size_t offset;
    std::string text;
};

template <class Item> Item itemAt(std::uint64_t offset, std::uint64_t length)
{
    Item item;
    item.offset = offset;
    item.length = length;
    return item;
}

} // namespace

TEST_P(BodyStructure, IsMarked)
{
    EXPECT_EQ(structured(GetParam().body), GetParam().expected) << GetParam().sentence;
    EXPECT_EQ(BodyDifference(GetParam().body, structured(GetParam().body)).find(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, BodyStructure,
    testing::Values(
        BodyRow{"an outer table gets a box, an inner one does not", "<table a><tr><td><table></table></table>x",
                "<div class=\"box\"><table a><tr><td><table></table></table></div>x"},
        BodyRow{"a table that is not closed gets no box", "<table><tr><td>", "<table><tr><td>"},
        BodyRow{"a stray end of a table changes nothing", "</table><p>", "</table><p>"},
        BodyRow{"a listing gets a box", "\n<pre class=\"zkt-code\">&lt;table></pre>",
                "\n<div class=\"listing\"><pre class=\"zkt-code\">&lt;table></pre></div>"},
        BodyRow{"a listing in a table gets none", "<table><td><pre>x</pre></table>",
                "<div class=\"box\"><table><td><pre>x</pre></table></div>"},
        BodyRow{"a listing that is not closed gets none", "<pre>x<pre>", "<pre>x<pre>"},
        BodyRow{"steps go on after a listing", "<ol><li>a</li>\n<li>b</li></ol>\n<pre>x</pre><ol><li>c</li></ol>",
                "<ol><li>a</li>\n<li>b</li></ol>\n<div class=\"listing\"><pre>x</pre></div><ol "
                "start=\"3\"><li>c</li></ol>"},
        BodyRow{"and after two", "<ol><li>a</ol><pre></pre><ol><li>b</ol><pre></pre><ol><li>c</ol>",
                "<ol><li>a</ol><div class=\"listing\"><pre></pre></div><ol start=\"2\"><li>b</ol>"
                "<div class=\"listing\"><pre></pre></div><ol start=\"3\"><li>c</ol>"},
        BodyRow{"but not after a paragraph", "<ol><li>a</ol><p>x</p><ol><li>b</ol>",
                "<ol><li>a</ol><p>x</p><ol><li>b</ol>"},
        BodyRow{"nor in a list of another kind", "<ul><li>a</ul><pre></pre><ol><li>b</ol>",
                "<ul><li>a</ul><div class=\"listing\"><pre></pre></div><ol><li>b</ol>"},
        BodyRow{"items of an inner list do not count", "<ol><li>a<ul><li>x<li>y</ul></ol><ol><li>b</ol>",
                "<ol><li>a<ul><li>x<li>y</ul></ol><ol start=\"2\"><li>b</ol>"},
        BodyRow{"a picture without a description gets an empty one", "<img src=\"a>b\" /><img alt='x' src=\"c\"/>",
                "<img alt=\"\" src=\"a>b\" /><img alt='x' src=\"c\"/>"},
        BodyRow{"an error is marked with its command", "<p>a ***ERROR*** \\bold{x}, b",
                "<p>a <strong class=\"error\">***ERROR*** \\bold{x},</strong> b"},
        BodyRow{"an error without a command too", "<b>***ERROR NO TIP*** x</b> ***ERROR***",
                "<b><strong class=\"error\">***ERROR NO TIP***</strong> x</b> <strong "
                "class=\"error\">***ERROR***</strong>"},
        BodyRow{"what only quotes the marker is not", "<tt>***ERROR***</tt><pre>***ERROR*** \\x</pre>***ERROR",
                "<tt>***ERROR***</tt><div class=\"listing\"><pre>***ERROR*** \\x</pre></div>***ERROR"},
        BodyRow{"the heading of the group without a name is hidden",
                "<tr bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>*** UNASSIGNED "
                "GROUP ***</b></td></tr>",
                "<tr hidden bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>*** "
                "UNASSIGNED GROUP ***</b></td></tr>"},
        BodyRow{"scripts and comments are left alone", "<script>a<table></script><!--<table>--><style><pre></style>",
                "<script>a<table></script><!--<table>--><style><pre></style>"},
        BodyRow{"a lone angle bracket is text", "1 < 2 <table></table> <",
                "1 < 2 <div class=\"box\"><table></table></div> <"}));

TEST(SiteBody, TakesAnyBytes)
{
    const std::string_view pieces[] = {"<table>", "</table>", "<pre>",    "</pre>",   "<ol>", "</ol>",
                                       "<li>",    "<img ",    "'",        "\"",       ">",    "<!--",
                                       "-->",     "<",        "***ERROR", "***",      " \\",  "x",
                                       "</",      "<tt>",     "</tt>",    "<script>", "=",    "\xC3"};
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string body;
        for (int count = 0; count < 12; ++count)
            body += pieces[random() % std::size(pieces)];
        EXPECT_EQ(BodyDifference(body, structured(body)).find(), "") << body;
    }
}

TEST(SiteBody, TakesTimeInProportion)
{
    for (const char *piece : {"<pre>", "<table>", "***ERROR", "<a href=\"", "<", "<ol><li>", "<!--"}) {
        std::string body;
        while (body.size() < 2'000'000)
            body += piece;
        EXPECT_GE(structured(body).size(), body.size()) << piece; // a test that hangs fails
    }
}

TEST(SiteBody, HeadingsGetIdsAndLinksToThem)
{
    const MarkedBody body("<h1>A</h1>@<h3>B &amp; c</h3><p>x");
    RecordPage page;
    page.headings = {{.offset = 0, .level = 1, .id = "a", .text = "A"},
                     {.offset = body.offset, .level = 3, .id = "b-c", .text = "B & c"}};
    const std::string rendered = siteBody(body.text, page, {});
    EXPECT_EQ(rendered, "<h1 id=\"a\">A</h1><h3 id=\"b-c\"><a class=\"self\" href=\"#b-c\">B &amp; c</a></h3><p>x");
    EXPECT_EQ(BodyDifference(body.text, rendered).find(), "");
}

namespace {

struct LinkRow
{
    const char *sentence;
    std::string body; ///< "@" before the link
    RecordLink::Kind kind;
    bool hasCaption;
    ResolvedLink resolved;
    std::string expected;
};

class BodyLinks : public testing::TestWithParam<LinkRow>
{
};

} // namespace

TEST_P(BodyLinks, AreRelocated)
{
    const MarkedBody body(GetParam().body);
    RecordPage page;
    RecordLink link = itemAt<RecordLink>(body.offset, body.text.find("</a>") + 4 - body.offset);
    link.kind = GetParam().kind;
    link.hasCaption = GetParam().hasCaption;
    page.links = {link};
    PageLinks links;
    links.links = {GetParam().resolved};
    const std::string rendered = siteBody(body.text, page, links);
    EXPECT_EQ(rendered, GetParam().expected) << GetParam().sentence;
    EXPECT_EQ(BodyDifference(body.text, rendered).find(), "");
}

INSTANTIATE_TEST_SUITE_P(Bodies, BodyLinks,
                         testing::Values(LinkRow{"target and caption of an open link",
                                                 "<p>@<a href=\"X.htm\">X</a> y",
                                                 RecordLink::Kind::Open,
                                                 false,
                                                 {0, "../a/x.htm", "The <X>"},
                                                 "<p><a href=\"../a/x.htm\">The &lt;X&gt;</a> y"},
                                         LinkRow{"the caption that the writer gave stays",
                                                 "@<a href=\"X.htm\">mine</a>",
                                                 RecordLink::Kind::Open,
                                                 true,
                                                 {0, "x.htm", "The X"},
                                                 "<a href=\"x.htm\">mine</a>"},
                                         LinkRow{"the caption of a link within the document stays",
                                                 "@<a href=\"X.htm\">Its title</a>",
                                                 RecordLink::Kind::Resolved,
                                                 false,
                                                 {0, "Y.X.htm", "other"},
                                                 "<a href=\"Y.X.htm\">Its title</a>"},
                                         LinkRow{"a link that leads nowhere is marked",
                                                 "@<a href=\"X.htm\">X</a>",
                                                 RecordLink::Kind::Open,
                                                 false,
                                                 {0, "", ""},
                                                 "<a class=\"dead\" href=\"X.htm\">X</a>"},
                                         LinkRow{"a raw link keeps what else it has",
                                                 "@<a id='q' href=\"X.htm\" title='href='>X</a>",
                                                 RecordLink::Kind::Raw,
                                                 false,
                                                 {0, "x.htm", ""},
                                                 "<a id='q' href=\"x.htm\" title='href='>X</a>"}));

TEST(SiteBody, NamesBecomeLinks)
{
    const std::string body =
        "<tt>a::f</tt> <pre class=\"zkt-code\"><span>a</span><span>::</span><span>f</span>(g)</pre>";
    RecordPage page;
    page.names = {{"a::f", RecordName::Use::Text, {4}},
                  {"a::f", RecordName::Use::Code, {body.find(">f<") + 1}},
                  {"g", RecordName::Use::Code, {body.find("g)"), 3, 999}}};
    PageLinks links;
    links.names = {{0, "a.f.htm"}, {1, "a.f.htm"}, {2, "g&.htm"}, {7, "none.htm"}};
    const std::string rendered = siteBody(body, page, links);
    EXPECT_EQ(rendered,
              "<tt><a class=\"name\" href=\"a.f.htm\">a::f</a></tt> <div class=\"listing\"><pre class=\"zkt-code\">"
              "<span>a</span><span>::</span><span><a class=\"name\" href=\"a.f.htm\">f</a></span>("
              "<a class=\"name\" href=\"g&amp;.htm\">g</a>)</pre></div>");
    EXPECT_EQ(BodyDifference(body, rendered).find(), "");
}

/// The first place of each name comes before all second ones.
TEST(SiteBody, LinksOfNamesAreBounded)
{
    std::string body;
    RecordPage page;
    page.names = {{"f", RecordName::Use::Code, {}}, {"g", RecordName::Use::Code, {}}};
    for (int i = 0; i < 1'000; ++i) {
        page.names[0].offsets.push_back(body.size());
        body += "f ";
    }
    page.names[1].offsets.push_back(body.size());
    body += "g";
    PageLinks links;
    links.names = {{0, "f.htm"}, {1, "g.htm"}};
    const std::string rendered = siteBody(body, page, links);
    EXPECT_LE(rendered.size(), body.size() + 2'000);
    EXPECT_GE(rendered.size(), body.size() + 1'900);
    EXPECT_TRUE(rendered.ends_with("<a class=\"name\" href=\"g.htm\">g</a>"));
    EXPECT_EQ(BodyDifference(body, rendered).find(), "");
}

TEST(SiteBody, PicturesAreRelocated)
{
    const MarkedBody body("<p><img src=\"@a.png\" alt=\"A\"/>");
    RecordPage page;
    page.images = {itemAt<RecordImage>(body.offset, 5)};
    PageLinks links;
    links.images = {{0, "../p/a&b.png"}};
    EXPECT_EQ(siteBody(body.text, page, links), "<p><img src=\"../p/a&amp;b.png\" alt=\"A\"/>");
}

TEST(SiteBody, PlacesOutsideTheBodyAreIgnored)
{
    const std::string body = "<p>text</p>";
    RecordPage page;
    for (const std::uint64_t offset : {std::uint64_t(3), std::uint64_t(body.size()), ~std::uint64_t(0)}) {
        page.headings.push_back({offset, 9, "x", ""});
        page.links.push_back(itemAt<RecordLink>(offset, ~std::uint64_t(0) - 2));
        page.links.push_back(itemAt<RecordLink>(offset, 4));
        page.images.push_back(itemAt<RecordImage>(offset, 9));
        page.listings.push_back({.offset = offset, .length = 99, .language = "sh"});
    }
    PageLinks links;
    links.links = {{0, "a", "b"}, {1, "a", "b"}, {2, "a", "b"}, {3, "a", "b"}, {99, "a", "b"}};
    links.images = {{1, "a"}, {2, "a"}, {99, "a"}};
    EXPECT_EQ(siteBody(body, page, links), body);
}
