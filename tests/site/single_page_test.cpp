// Tests what becomes of pages on a single page of a whole set, and of pages in a help project.

#include "site/render/plain_pages.h"
#include "site/render/section_body.h"
#include "site/render/single_page.h"
#include "tests/site/site_run.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

using namespace tavidoc;

namespace {

SharedLinks sampleShared()
{
    SharedLinks shared;
    shared.settings.title = "Kettle \"& <co>";
    shared.settings.version = "2.1";
    shared.settings.copyright = "2026 Kettle W\u00F6rks";
    shared.settings.redirects = {{"old", "guide/care"}};
    shared.contents = {{{"Start", "start.htm"}, 0},
                       {{"The <guide>", ""}, 0},
                       {{"Care", "guide/care.htm"}, 1},
                       {{"Start again", "start.htm"}, 1}};
    shared.addresses = {"guide/care.htm", "guide/lid.htm", "start.htm"};
    shared.firstPage = "start.htm";
    return shared;
}

std::string sectionOf(std::string_view body, std::size_t level = 1)
{
    const SharedLinks shared = sampleShared();
    SectionTargets targets{shared, "k_files/", {"guide/a.png", "b.png"}, {"start:intro"}};
    addAnchors(body, "guide/care.htm", targets.anchors);
    return sectionBody(body, {"guide/care.htm", "Care", level}, targets);
}

struct SectionRow
{
    const char *sentence;
    std::string body;
    std::string expected;
    std::size_t level = 1;
};

void PrintTo(const SectionRow &row, std::ostream *out)
{
    *out << row.sentence;
}

class SectionBody : public testing::TestWithParam<SectionRow>
{
};

} // namespace

TEST_P(SectionBody, FitsASinglePage)
{
    // All but the rows about headings are about what follows one.
    const std::string heading = GetParam().body.starts_with("<h") ? "" : "<h1>C</h1>";
    EXPECT_EQ(sectionOf(heading + GetParam().body, GetParam().level), heading + GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Places, SectionBody,
    testing::Values(
        SectionRow{"ids and names of places are made unique, those of fields stay",
                   "<p id=a><a name='b' id=\"b\"></a><input name=\"c\">",
                   "<p id=guide/care:a><a name='guide/care:b' id=\"guide/care:b\"></a><input name=\"c\">"},
        SectionRow{"what has an id of another is left without one", "<p id=\"a\"><i ID=\"a\"></i><a name=a></a>",
                   "<p id=\"guide/care:a\"><i ></i><a ></a>"},
        SectionRow{"labels follow the ids", "<label for=a></label><i aria-labelledby=\"a  b\"></i>",
                   "<label for=guide/care:a></label><i aria-labelledby=\"guide/care:a guide/care:b\"></i>"},
        SectionRow{"maps follow their names", "<map name=m></map><img usemap=\"#m\">",
                   "<map name=guide/care:m></map><img usemap=\"#guide/care:m\">"},
        SectionRow{"a link in the page leads to the place, or to the page",
                   "<a id=a href=#a></a><a href=\"#none\"></a>",
                   "<a id=guide/care:a href=#guide/care:a></a><a href=\"#guide/care\"></a>"},
        SectionRow{"a link to a page leads to its section", "<a href=\"../start.htm\"></a><a HREF=lid.htm></a>",
                   "<a href=\"#start\"></a><a HREF=#guide/lid></a>"},
        SectionRow{"a link to a place leads there if it exists",
                   "<a href=\"../start.htm#intro\"></a><a href=\"../start.htm#none\"></a>",
                   "<a href=\"#start:intro\"></a><a href=\"#start\"></a>"},
        SectionRow{"redirects, the start page and pages of the site's own have sections",
                   "<a href=../old.htm></a><a href=../index.html></a><a href=../names-A.htm></a>",
                   "<a href=#guide/care></a><a href=#start></a><a href=#contents></a>"},
        SectionRow{"pictures and other files are beside the page",
                   "<img src=\"a.png\"><a href=\"../b.png?x\"></a><img src=none.png>",
                   "<img src=\"k_files/guide/a.png\"><a href=\"k_files/b.png?x\"></a><img src=none.png>"},
        SectionRow{"what leads elsewhere stays",
                   "<a href=\"https://a.example/start.htm\"></a><a href=/b></a><a href=../../c.htm></a><a href></a>",
                   "<a href=\"https://a.example/start.htm\"></a><a href=/b></a><a href=../../c.htm></a><a href></a>"}));

INSTANTIATE_TEST_SUITE_P(Headings, SectionBody,
                         testing::Values(SectionRow{"levels are at and below that of the page, without gaps",
                                                    "<h1>C</h1><h3 id=\"a\">A</h3><h4>B</h4><h3>D</h3>",
                                                    "<h2>C</h2><h3 id=\"guide/care:a\">A</h3><h4>B</h4><h3>D</h3>", 2},
                                         SectionRow{"a level above the others stays above them",
                                                    "<h1>C</h1><h5>A</h5><h1>B</h1>", "<h1>C</h1><h3>A</h3><h2>B</h2>"},
                                         SectionRow{"there are six levels", "<h1>C</h1><h2>A</h2><h3>B</h3>",
                                                    "<h6>C</h6><h6>A</h6><h6>B</h6>", 90},
                                         SectionRow{"a page without a heading gets its title", "<hr>",
                                                    "<h1 class=\"title\">Care</h1>\n<hr>"},
                                         SectionRow{"a page whose first heading is a lower one does, too", "<h2>A</h2>",
                                                    "<h3 class=\"title\">Care</h3>\n<h4>A</h4>", 3},
                                         SectionRow{"the end of a heading has the level of its beginning",
                                                    "<h1>C</h2></h1><h3>A", "<h1>C</h1><h2>A</h6>"}));

INSTANTIATE_TEST_SUITE_P(
    Faults, SectionBody,
    testing::Values(SectionRow{"what is left open is closed", "<div><b><i>x", "<div><b><i>x</i></b></div>"},
                    SectionRow{"what ends nothing is removed", "</section></div>x</b>", "x"},
                    SectionRow{"what needs no end gets none", "<p><li><br><img><tr><td>", "<p><li><br><img><tr><td>"},
                    SectionRow{"within a drawing elements may end themselves", "<svg><path/></svg><b/>",
                               "<svg><path/></svg><b/></b>"},
                    SectionRow{"a comment is passed over, and ended", "<!-- <div> --><!--><!-- <i>",
                               "<!-- <div> --><!--><!-- <i>-->"},
                    SectionRow{"a script is passed over, and ended", "<script><b></SCRIPT><style><i>",
                               "<script><b></SCRIPT><style><i></style>"},
                    SectionRow{"a tag without an end is text", "1 < 2 <a href=\"x <b", "1 < 2 &lt;a href=\"x &lt;b"}));

/// No bytes may break the page or take long.
TEST(SectionBodies, AreFineForAnyBytes)
{
    std::mt19937 random(7);
    const std::string_view pieces[] = {"<",     ">",    "\"", "'",    "=",      " id=a",    " href=#a", "<a",
                                       "</a>",  "<b",   "/>", "<!--", "-->",    "<script>", "</s",      "<h1>",
                                       "</h2>", "\xff", "\0", "x",    "<table", "<svg>"};
    for (int round = 0; round < 3'000; ++round) {
        std::string body;
        for (int i = 0; i < 30; ++i)
            body += pieces[random() % std::size(pieces)];
        EXPECT_FALSE(sectionOf(body).empty());
    }
    std::string deep;
    for (int i = 0; i < 200'000; ++i)
        deep += i % 2 == 0 ? "<b>" : "</i><a href='";
    EXPECT_GT(sectionOf(deep).size(), deep.size());
}

TEST(SinglePages, HaveATitleContentsAndASectionForEachEntry)
{
    const SharedLinks shared = sampleShared();
    RecordWithBodies record;
    record.bodies = "<h1>Start</h1><h1>Care \u6C34</h1>";
    record.head.pages.resize(2);
    record.head.pages[0].bodyLength = 14;
    record.head.pages[1].bodyOffset = 14;
    record.head.pages[1].bodyLength = record.bodies.size() - 14;
    RecordLinks links;
    links.pages.resize(2);
    links.pages[0].address = "start.htm";
    links.pages[1].page = 1;
    links.pages[1].address = "guide/care.htm";
    SinglePage page(shared, "k_files/", {});
    page.add(record, links);
    const std::string html = page.file().toStdString();
    const auto body = [&](std::string_view opening, std::string_view closing) {
        const std::size_t begin = html.find(opening);
        return html.substr(begin, html.find(closing, begin) - begin);
    };
    EXPECT_EQ(body("<body", "<nav"), "<body class=\"single\">\n<header class=\"title-page\">\n"
                                     "<p class=\"set-title\">Kettle &quot;&amp; &lt;co&gt;</p>\n"
                                     "<p class=\"set-version\">Version 2.1</p>\n"
                                     "<p class=\"set-copyright\">&#xa9; 2026 Kettle W&#xf6;rks</p>\n</header>\n");
    EXPECT_EQ(body("<ul>", "</nav>"),
              "<ul>\n<li><a href=\"#start\">Start</a></li>\n<li><span>The &lt;guide&gt;</span>\n"
              "<ul>\n<li><a href=\"#guide/care\">Care</a></li>\n"
              "<li><a href=\"#start\">Start again</a></li></ul></li></ul>");
    EXPECT_EQ(body("<main>", "</body>"),
              "<main>\n<section id=\"start\" class=\"chapter\">\n<h1>Start</h1>\n</section>\n"
              "<section class=\"chapter\">\n<h1>The &lt;guide&gt;</h1>\n</section>\n"
              "<section id=\"guide/care\" class=\"section\">\n<h2>Care &#x6c34;</h2>\n"
              "</section>\n</main>\n");
    EXPECT_NE(html.find("content: \"Kettle \\000022\\000026 \\00003cco\\00003e 2.1\""), html.npos);
    EXPECT_EQ(html.find("<script"), html.npos);
}

/// What begins on a new sheet: the parts of the set, even if all of them are below one entry.
TEST(SinglePages, HaveChapters)
{
    const auto kinds = [](std::vector<ContentsEntry> contents) {
        SharedLinks shared;
        shared.contents = std::move(contents);
        const std::string html = SinglePage(shared, "k_files/", {}).file().toStdString();
        std::string letters;
        for (std::size_t at = 0; (at = html.find("<section class=\"", at)) != html.npos; ++at)
            letters += html[at + 16];
        return letters;
    };
    EXPECT_EQ(kinds({{{"A", ""}, 0}, {{"B", ""}, 1}, {{"C", ""}, 2}, {{"D", ""}, 1}}), "ccsc");
    EXPECT_EQ(kinds({{{"A", ""}, 0}, {{"B", ""}, 1}, {{"C", ""}, 0}}), "csc");
}

TEST(SinglePages, AreWrittenWithTheirPicturesBeside)
{
    SiteDirectory directory;
    directory.write("lid.png", "PNG");
    directory.write("manual.dg",
                    "\\split{index}\n\\title{Kettle}\n\\screen{lid.png}\n\\icon{FileNew}\nSee \\xref{boil}.\n");
    ASSERT_EQ(directory.run("$site single -o 'my kettle.htm' --quiet"), 0) << directory.error;
    const std::string html = directory.outputOf("cat 'my kettle.htm'");
    EXPECT_NE(html.find("src=\"my%20kettle_files/lid.png\""), html.npos);
    EXPECT_NE(html.find("<a href=\"#api/kettle/boil\">"), html.npos);
    EXPECT_EQ(directory.outputOf("find 'my kettle_files' -type f | sort"),
              "my kettle_files/images/FileNew.png\nmy kettle_files/lid.png\n");
    // The cache of a site serves here, too, and a damaged record is made again.
    const char *damage = "$site build -o out -q && for f in out.cache/records/*; do truncate -s -1 \"$f\"; done\n"
                         "cp 'my kettle.htm' before && $site single --cache out.cache -o 'my kettle.htm' -q && "
                         "cmp before 'my kettle.htm'";
    EXPECT_EQ(directory.run(damage), 0) << directory.error;
}

/// Pages of markup are those of tavidoc, byte for byte; links of reference pages lead over the whole set.
TEST(HelpProject, PacksPlainPages)
{
    SiteDirectory directory;
    directory.write("lid.png", "PNG");
    directory.write("manual.dg",
                    "\\split{index}\n\\title{Kettle \u6C34}\n\\screen{lid.png}\\icon{FileNew} \\xref{boil}\n"
                    "\\split{a[b] c}\n\\title{More}\n\\html{<i id=\"x\">&amp;</i>}\n");
    directory.write("include/kettle.h", "/*!\n * \\this\n * Boils, see \\xref{open} and \\xref{a[b] c}.\n */\n"
                                        "int boil(int litres);\n");
    ASSERT_EQ(directory.run("$site export qhp -o help/kettle.qhp -q"), 0) << directory.error;
    ASSERT_EQ(
        directory.run("\"$tavidoc\" -o plain manual.dg && cd plain && for f in *.htm; do cmp \"$f\" \"../help/$f\""
                      " || exit 1; done; test -f 'a[b] c.htm'"),
        0)
        << directory.output << directory.error;
    const std::string boil = directory.outputOf("cat help/api/kettle/boil.htm");
    EXPECT_TRUE(boil.starts_with("<html>\n<!--\n// Tavi Documentation Tools\n"));
    EXPECT_NE(boil.find("<a href=\"../lid/open.htm\">open</a>"), boil.npos) << boil;
    EXPECT_EQ(boil.find("<script"), boil.npos);
    EXPECT_EQ(directory.outputOf("cd help; find -type f | sort"),
              "./a[b] c.htm\n./api/kettle/boil.htm\n./api/kettle/default.css\n./api/kettle/kettle_h.htm\n"
              "./api/lid/default.css\n./api/lid/lid_h.htm\n./api/lid/open.htm\n./default.css\n./images/FileNew.png\n"
              "./index.htm\n./kettle.qhp\n./lid.png\n");
}
