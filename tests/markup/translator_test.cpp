#include "base/hexception.h"
#include "markup/shared_tables.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

using namespace tavidoc;

TEST(Translator, SplitFlagAndFormatDecideOnHeadings)
{
    const std::string source = "\\split p\n\\title A & B\n\\section C\n\\subsection D\n\\table{*}\n\\endtable";
    EXPECT_EQ(runMarkup(source, {.format = QStringLiteral("html")}).pages.substr(0, 26), "p.htm: <h1>A &amp; B</h1><");
    EXPECT_EQ(
        runMarkup(source, {.split = 0, .baseHeadingLevel = 2}).pages,
        "p.htm: <h3>A &amp; B</h3><h4>C</h4><h5>D</h5><table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" "
        "cellspacing=\"2\" border=\"0\" cols=\"\" fm_widths=\"\">\n</td></tr></table>\n");
    const MarkupRun early = runMarkup("\\title A\n\\split p\nb", {.split = 0, .format = QStringLiteral("html")});
    EXPECT_EQ(early.pages + early.messages, "p.htm: <p>b</p>\n");
}

TEST(Translator, TextOnNoPageIsReportedOnce)
{
    const MarkupRun run = runMarkup("lost\n\nlost too\n\\split{p}\nkept\n\\contents sync\nlost again");
    EXPECT_EQ(run.pages, "p.htm: <p>kept\n</p>\n");
    EXPECT_EQ(run.messages, "error: docgen: doc.dg:1: text before the first \\split is on no page\n"
                            "error: docgen: doc.dg:7: text before the first \\split is on no page\n");
    EXPECT_EQ(runMarkup("\n\n<>").messages, "error: docgen: doc.dg:3: text before the first \\split is on no page\n");
}

TEST(Translator, ASplitWithoutANameEndsThePage)
{
    for (const std::string_view split :
         {"\\split", "\\split \t", "\\split{}", "\\split{ \t}", "\\split{.htm}", "\\split .htm "}) {
        const MarkupRun run = runMarkup("\\split a\n\\title A\n\\xref{A} \\xref{T}\n\\item x\n" + std::string(split) +
                                        "\n\\title T\nlost\n\\split b\n\\return");
        EXPECT_EQ(run.pages, "a.htm: <p><a href=\"a.htm\">A</a> <a href=\"T.htm\">T</a>\n</p><ul><li>x\n</li></ul>\n"
                             "b.htm: <p><b>b</b> returns &mdash;</p>\n")
            << split;
        EXPECT_EQ(run.messages, "error: docgen: doc.dg:7: text before the first \\split is on no page\n") << split;
        EXPECT_EQ(run.contents, "<contents>\n<content url=\"a.htm\">\n</content>\n<content url=\"b.htm\">\n</content>\n"
                                "</contents>")
            << split;
    }
}

TEST(Translator, TheFrameShowsTheTitleOfTheDocument)
{
    const auto titleOf = [](const std::string &source) {
        const QTemporaryDir directory;
        writeFile(directory.filePath(QStringLiteral("doc.dg")), source);
        OutputRecords records;
        DocGen generator;
        generator.setMessageSink([](const Message &) {});
        generator.run(nullptr, 1, Path(directory.filePath(QStringLiteral("doc.dg"))), {}, records, {}, {});
        const std::string page = records.front().text.toStdString();
        const std::size_t begin = page.find("style=\"\">") + 9;
        return page.substr(begin, page.find("</title>") - begin);
    };
    const std::string page = "\n\\split a\n\\title Own\nx";
    EXPECT_EQ(titleOf("\\title Doc & all" + page), "Doc &amp; all");
    EXPECT_EQ(titleOf("\\contents top\n\\split\n\\title{Doc} tail" + page), "Doc");
    EXPECT_EQ(titleOf(page), "Own"); // deliberate: no page is untitled that has a title
    EXPECT_EQ(titleOf("\\split a\nx" + page), "Untitled");
    EXPECT_EQ(titleOf("\n \\title Indented" + page), "Indented");
    EXPECT_EQ(titleOf(page + "\n\\split\n\\title On no page"), "Own");
    // Titles are gathered from the beginnings of lines, where no page begins here.
    EXPECT_EQ(titleOf("\n \\split a\nx\n\\split\n\\title After the page"), "After the page");
}

TEST(Translator, ARunThatFailsLeavesThePagesBeforeTheFault)
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(QStringLiteral("images")), "in the way of the icons");
    const QString document = directory.filePath(QStringLiteral("doc.dg"));
    writeFile(document, "\\split a\nx\n\\split b\n\\icon{BrowserBack}\n\\copyin no.htm");
    OutputRecords records;
    DocGen generator;
    generator.setMessageSink([](const Message &) {});
    EXPECT_THROW(generator.run(nullptr, 1, Path(document), directory.path(), records, {}, {}), HException);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_TRUE(records.front().fileName.endsWith(QLatin1StringView("/a.htm")));
}

TEST(Translator, DepthOfArgumentsCostsNoStack)
{
    const int depth = 200'000;
    std::string markup = "\\split{p}\n";
    std::string body;
    for (int level = 0; level < depth; ++level) {
        markup += "\\b{";
        body += "<b>";
    }
    markup.append(depth, '}');
    for (int level = 0; level < depth; ++level)
        body += "</b>";
    EXPECT_TRUE(runMarkup(markup).pages == "p.htm: <p>" + body + "</p>\n");
}

TEST(Translator, PagesStayInTheOutputDirectory)
{
    const MarkupRun run = runMarkup("\\split{/etc/x}\na\n\\split a/../../b\nc\n\\split{ok..}\nd");
    EXPECT_EQ(run.pages, "ok...htm: <p>d</p>\n");
    EXPECT_EQ(run.messages, "error: docgen: doc.dg:1: \\split: page \"/etc/x\" is outside the output directory\n"
                            "error: docgen: doc.dg:3: \\split: page \"a/../../b\" is outside the output directory\n");
}

TEST(Translator, StyleSetAtTheEndHoldsForTheNextDocument)
{
    EXPECT_EQ(runMarkup("\\split{p}\na\n\n\\style{div}").pages, "p.htm: <p>a</p>\n");
    EXPECT_EQ(runMarkup("\\split{p}\na").pages, "p.htm: <div>a</div>\n");
    EXPECT_EQ(SharedTables::paraStyle, "p");
}

TEST(Translator, GroupsAreKeptForTheRunAndTheirOrderForTheProcess)
{
    const MarkupRun run = runMarkup("\\ingroup X\n\\split{p}\n\\ingroup{Tools} \\grouporder B, A\n");
    EXPECT_EQ(run.messages, "error: docgen: doc.dg:1: \\ingroup: no page is open: expected \\split before it\n"
                            "error: docgen: doc.dg:1: text before the first \\split is on no page\n");
    EXPECT_EQ(SharedTables::docGroups, std::vector<std::string>{"Tools"});
    runMarkup("");
    EXPECT_TRUE(SharedTables::docGroups.empty() && SharedTables::docObjects.empty());
    EXPECT_EQ(SharedTables::requiredOrder, (std::vector<std::string>{"B", "A"}));
}
