#include "site/render/navigation.h"
#include "site/render/page_frame.h"
#include "site/render/page_text.h"
#include "site/render/render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

using namespace tavidoc;

namespace {

using Files = std::map<std::string, std::string>;

FileSink sinkTo(Files &files)
{
    return [&files](const std::string &address, const QByteArray &bytes) {
        EXPECT_TRUE(files.emplace(address, bytes.toStdString()).second) << address << " was written twice";
    };
}

Files sharedFiles(const SharedLinks &shared)
{
    Files files;
    renderShared(shared, sinkTo(files));
    return files;
}

bool contains(const std::string &text, std::string_view part)
{
    return text.find(part) != text.npos;
}

SiteSettings kettle()
{
    SiteSettings settings;
    settings.title = "Kettle & co";
    settings.version = "2.1";
    settings.copyright = "2026 Kettle W\u00F6rks";
    settings.url = "https://docs.example.org/";
    return settings;
}

RecordWithBodies samplePage()
{
    RecordPage page;
    page.headings = {{0, 1, "care", "Care"}, {13, 3, "daily", "Daily"}, {28, 3, "yearly", "Yearly"}};
    RecordWithBodies record;
    record.bodies = "<h1>Care</h1><h3>Daily</h3>\n<h3>Yearly</h3><p>Entkalken f\u00FCr \u6C34\u2026</p>";
    page.bodyLength = record.bodies.size();
    record.head.folder = "guide";
    record.head.icons = {{"images/Help.png", "PNG"}};
    record.head.pages = {page};
    return record;
}

RecordLinks sampleLinks()
{
    PageLinks page;
    page.address = "guide/care.htm";
    page.title = "Care <daily>";
    page.ancestors = {{"Kettle & co", "index.htm"}, {"Guide", ""}};
    const LinkTarget guide{"Guide", ""};
    page.navigation = {{{"Start", "index.htm"}, 0, false, false, false},
                       {guide, 0, false, true, false},
                       {{"Care <daily>", "guide/care.htm"}, 1, true, false, false},
                       {{"", "contents.htm"}, 1, false, false, true}};
    page.previous = LinkTarget{"Start", "index.htm"};
    RecordLinks links;
    links.pages = {page};
    return links;
}

} // namespace

/// The expected page is a file of its own, so that it can be read and opened.
TEST(RenderPage, IsTheGoldenPage)
{
    SharedLinks shared;
    shared.settings = kettle();
    Files files;
    renderRecord(samplePage(), sampleLinks(), shared, sinkTo(files));
    const std::string golden = TAVIDOC_SOURCE_DIR "/tests/site/pages/care.htm";
    if (std::getenv("TAVIDOC_UPDATE") != nullptr)
        std::ofstream(golden, std::ios::binary) << files["guide/care.htm"];
    std::ifstream file(golden, std::ios::binary);
    EXPECT_EQ(files["guide/care.htm"], std::string(std::istreambuf_iterator<char>(file), {}));
    EXPECT_EQ(files["guide/images/Help.png"], "PNG");
    EXPECT_TRUE(std::ranges::all_of(files["guide/care.htm"], [](char c) { return c > 0; })) << "not ASCII";
}

TEST(RenderPage, APageWithoutHeadingShowsItsTitle)
{
    const PageFrame frame{.address = "a.htm", .title = "A & b"};
    EXPECT_TRUE(contains(framedSitePage(frame, "<p>x", {}).toStdString(), "<h1 class=\"title\">A &amp; b</h1>\n<p>x"));
    EXPECT_FALSE(contains(framedSitePage(frame, "<h1>B</h1>", {}).toStdString(), "class=\"title\""));
}

TEST(RenderPage, GrowsByNineKilobytesAtMost)
{
    const std::string longText(2'000, 'x');
    RecordWithBodies record;
    RecordPage page;
    for (int count = 0; count < 400; ++count) {
        const std::string id = "a-heading-of-some-length-" + std::to_string(count);
        page.headings.push_back({record.bodies.size(), static_cast<std::uint8_t>(count == 0 ? 1 : 3), id, longText});
        record.bodies += count == 0 ? "<h1>x</h1>" : "<h3>x</h3>";
    }
    page.bodyLength = record.bodies.size();
    record.head.pages = {page};
    RecordLinks links = sampleLinks();
    PageLinks &pageLinks = links.pages.front();
    pageLinks.title = std::string(80, 't');
    for (int count = 0; count < 60; ++count)
        pageLinks.navigation.push_back({{longText, "guide/" + std::string(60, 'y') + std::to_string(count)}, 1});
    pageLinks.ancestors.assign(50, {longText, "guide/index.htm"});
    pageLinks.next = LinkTarget{longText, "guide/next.htm"};
    SharedLinks shared;
    shared.settings = kettle();
    Files files;
    renderRecord(record, links, shared, sinkTo(files));
    std::size_t ids = 0; // what is not the frame's: links need the ids
    for (const RecordHeading &heading : page.headings)
        ids += heading.id.size() + 6;
    EXPECT_LE(files.at("guide/care.htm").size(), record.bodies.size() + ids + 9'000);
    EXPECT_TRUE(contains(files.at("guide/care.htm"), "aria-current=\"page\""));
}

TEST(RenderPage, TextsAreCutBetweenCharacters)
{
    EXPECT_EQ(shortened("\u6C34\u6C34\u6C34", 3), "\u6C34\u6C34\u6C34");
    EXPECT_EQ(shortened("\u6C34\u6C34\u6C34", 2), "\u6C34\u2026");
    EXPECT_EQ(shortened("", 2), "");
}

TEST(RenderPage, LongNamesStayReadable)
{
    const std::string scope(90, 's');
    EXPECT_EQ(breakable("<a::b>::c"), "&lt;a::<wbr>b&gt;::<wbr>c");
    EXPECT_EQ(breakable("next_page::documentationLines2Of_THE__model::"),
              "next_page::<wbr>documentation<wbr>Lines2<wbr>Of_<wbr>THE__<wbr>model::");
    EXPECT_EQ(shownTitle(scope + "::C::run"), "\u2026::<wbr>C::<wbr>run") << "what tells it from others stays";
    EXPECT_EQ(shownTitle("f::" + scope), "\u2026::<wbr>" + std::string(79, 's') + "\u2026");
    EXPECT_EQ(shownTitle("About a::b, " + scope), "About a::<wbr>b, " + std::string(67, 's') + "\u2026");
    for (const auto &[title, parent, shown] :
         std::initializer_list<std::array<std::string_view, 3>>{{"n::C::run", "n::C", "run"},
                                                                {"n::C::run", "n", "C::run"},
                                                                {"n::Class", "n::C", "n::Class"},
                                                                {"n::", "n", "n::"},
                                                                {"::f", "", "::f"},
                                                                {"n", "n", "n"}})
        EXPECT_EQ(titleBelow(title, parent), shown);
    std::string html;
    appendNavigation(html, "x.htm",
                     {{.target = {"n::C", {}}, .depth = 1},
                      {.target = {"n::C::D", {}}, .depth = 2},
                      {.target = {"n::C::D::e", {}}, .depth = 3},
                      {.target = {"n::C::f", {}}, .depth = 2},
                      {.target = {"n::C::g", {}}, .depth = 1}},
                     9999);
    html.erase(std::remove(html.begin(), html.end(), '\n'), html.end());
    EXPECT_EQ(html, "<ul><li><span>n::<wbr>C</span><ul><li><span>D</span><ul><li><span>e</span></li></ul></li>"
                    "<li><span>f</span></li></ul></li><li><span>n::<wbr>C::<wbr>g</span></li></ul>");
}

TEST(RenderPage, ListsAreWellFormedWhateverTheDepths)
{
    std::string html;
    NestedList list(html);
    for (const std::size_t depth : {3, 5, 4, 0, 1})
        list.item(depth);
    list.close();
    html.erase(std::remove(html.begin(), html.end(), '\n'), html.end());
    EXPECT_EQ(html, "<ul><li><ul><li></li></ul><ul><li></li></ul></li><li></li><li></li></ul>");
}

TEST(RenderShared, WritesThePagesOfTheSite)
{
    SharedLinks shared;
    shared.settings = kettle();
    shared.settings.redirects = {{"old", "guide/care"}, {"guide/care", "lost"}};
    shared.contents = {{{"Guide", ""}, 0}, {{"Care", "guide/care.htm"}, 1}, {{"End", "end.htm"}, 0}};
    shared.names = {{"care", "page", {"Guide", ""}, "guide/care.htm"}, {"operator==", "function", {}, "end.htm"}};
    shared.addresses = {"end.htm", "guide/care.htm"};
    shared.firstPage = "guide/care.htm";
    const Files files = sharedFiles(shared);
    for (const char *address : {"contents.htm", "names.htm", "search.htm", "index.htm", "index.html", "old.htm",
                                "sitemap.xml", "site.css", "site.js", "search.js", "search_box.js"})
        EXPECT_TRUE(files.contains(address)) << address;
    EXPECT_EQ(files.size(), 11U) << "no redirect replaces a page";
    EXPECT_TRUE(contains(files.at("old.htm"), "content=\"0; url=guide/care.htm\""));
    EXPECT_TRUE(contains(files.at("index.html"), "<a href=\"guide/care.htm\">"));
    EXPECT_TRUE(contains(files.at("sitemap.xml"), "<loc>https://docs.example.org/guide/care.htm</loc>"));
    EXPECT_TRUE(contains(files.at("contents.htm"),
                         "<li><span>Guide</span>\n<ul>\n<li><a href=\"guide/care.htm\">Care</a></li>\n</ul></li>\n"));
    EXPECT_TRUE(contains(files.at("names.htm"), "<a href=\"guide/care.htm\">care</a> <small>page in Guide</small>"));
}

TEST(RenderShared, KeepsAPageCalledIndex)
{
    SharedLinks shared;
    shared.addresses = {"index.htm"};
    shared.firstPage = "index.htm";
    const Files files = sharedFiles(shared);
    EXPECT_FALSE(files.contains("index.htm"));
    EXPECT_TRUE(contains(files.at("index.html"), "url=index.htm"));
    EXPECT_FALSE(files.contains("sitemap.xml")) << "the address of the site is not known";
}

TEST(RenderShared, FoldsALargeTree)
{
    SharedLinks shared;
    for (int count = 0; count < 60; ++count) {
        shared.contents.push_back({{"Part", "part.htm"}, 0});
        shared.contents.push_back({{"Page", "page.htm"}, 1});
    }
    const std::string page = sharedFiles(shared).at("contents.htm");
    EXPECT_TRUE(contains(page, "<li><details open><summary><a href=\"part.htm\">Part</a></summary>\n<ul>\n"
                               "<li><a href=\"page.htm\">Page</a></li>\n</ul></details></li>\n"));
}

TEST(RenderShared, SplitsALargeIndex)
{
    SharedLinks shared;
    for (const auto &[name, count] : {std::pair{"alpha", 400}, {"Beta", 700}, {"~x", 1}, {"2nd", 1}}) {
        for (int number = 0; number < count; ++number)
            shared.names.push_back({name + std::to_string(number), "page", {}, "a.htm"});
    }
    const Files files = sharedFiles(shared);
    for (const char *address : {"names-A.htm", "names-B.htm", "names-B-2.htm", "names-0.htm", "names-other.htm"})
        EXPECT_TRUE(files.contains(address)) << address;
    EXPECT_TRUE(contains(files.at("names-B-2.htm"), ">Beta699</a>"));
    EXPECT_TRUE(contains(files.at("names.htm"), "<a href=\"names-B-2.htm\">Beta500 &#x2026; Beta699</a>"));
}
