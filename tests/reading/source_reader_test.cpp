#include "base/hexception.h"
#include "reading/macro_context.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// The text that is left of a source on one page, as a literal block shows it: line by line.
std::string kept(std::string_view source, const MarkupOptions &options = {})
{
    constexpr std::string_view before = "p.htm: \n<pre class=\"zkt-code\">";
    std::string text = runMarkup("\\split{p}\n\\pre\n" + std::string(source) + "\n\\endpre", options).pages;
    return text.starts_with(before) ? text.substr(before.size(), text.size() - before.size() - 7) : text;
}

struct Row
{
    const char *name;
    std::string source;
    std::string kept;
};

class FailingMacroContext : public MacroContext
{
public:
    std::string expand(std::string_view, const MacroDefinitions &) override { throw std::runtime_error("no value"); }
};

/// Expands the first lines that it gets to an include of "doc.dg", the others to nothing.
class CountingMacroContext : public MacroContext
{
public:
    explicit CountingMacroContext(int includes) : m_includes(includes) {}
    std::string expand(std::string_view, const MacroDefinitions &) override
    {
        return m_includes-- > 0 ? "\\include doc.dg" : "";
    }

private:
    int m_includes;
};

} // namespace

TEST(SourceReader, ConditionsCommentsAndDefinitions)
{
    const Row rows[] = {
        {"a true block keeps its branch", "@arm\nA\n@else\nB\n@end\nC", "A\nC"},
        {"a false one its other branch", "@avr\nA\n@else\nB\n@end", "B"},
        {"every else turns", "@avr\nA\n@else\nB\n@else\nC\n@else\nD\n@end", "B\nD"},
        {"true inside false stays dropped", "@avr\n@arm\nX\n@else\nY\n@end\n@end\nZ", "Z"},
        {"true inside an else", "@avr\n@else\n@arm\nY\n@end\n@end", "Y"},
        {"the same block in both branches", "@avr\n@arm\nX\n@end\n@else\n@arm\nY\n@end\nZ\n@end", "Y\nZ"},
        {"surplus ends are harmless", "@end\n@avr\nA\n@end\n@end\nB", "B"},
        {"a missing end", "@avr\nA", ""},
        {"words after a directive make it ineffective", "@avr really\nA\n@AVR\nB\n@nothing\nC", "A\nB\nC"},
        {"fixed answers",
         "@arm_riscv\n1\n@end\n@morvath\n2\n@end\n@arm_morvath\n3\n@end\n@native\n4\n@end\n@codespace\n5\n@end\n"
         "@palvane\n6\n@end\n@riscv_morvath\n7\n@end\n@morvath_wendrix\n8\n@end\n@elide\n9\n@end",
         "1\n2\n3"},
        {"formats", "@html\nA\n@else\nB\n@end\n@print\nC\n@end", "B"},
        {"comments go, indented and in dropped blocks too", "% a\n \t\xC2\xA0% b\nc % d", "c % d"},
        {"a definition takes its continuation lines unread", "@def NAME a b \\\n% c \\\n@arm\nd", "d"},
        {"a use of a definition is text", "@(NAME)\n  @ (x)", "@(NAME)"},
        {"line ends", "a\r\nb\rc\r\n", "a\nb\rc"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(kept(row.source), row.kept) << row.name;
    EXPECT_EQ(kept("@html\nA\n@end\n@print\nB\n@end", {.format = u"html"_s}), "A");
    EXPECT_EQ(kept("@html\nA\n@end\n@print\nB\n@end", {.format = u"print"_s}), "B");
}

TEST(SourceReader, MacrosAreExpandedWhenTheCallerWantsIt)
{
    SimpleMacroContext macros;
    macros.setIntroducer('#');
    const std::string source =
        "@def A one \\\n two\n@avr\n@def A no\n@end\n@(A)|@(B)|@(A\n@def B.dg x\n\\include @(none).dg";
    EXPECT_EQ(kept(source, {.macros = &macros}), "one  two|@(B)|@(A");
    EXPECT_EQ(macros.introducer(), '#');
    FailingMacroContext failing;
    failing.setIntroducer('#');
    EXPECT_THROW(kept("", {.macros = &failing}), std::runtime_error);
    EXPECT_EQ(failing.introducer(), '#');
    EXPECT_EQ(kept("@(DateYear)", {.macros = &macros}).size(), 4U);
    EXPECT_EQ(kept("@(Time)", {.macros = &macros}).size(), 8U);
    EXPECT_EQ(kept("@(UnixTime)", {.macros = &macros}).size(), 10U);
}

TEST(SourceReader, EncodingsAreToldApartByTheWholeFile)
{
    EXPECT_EQ(kept("\xC3\xA9"), "\xE9");                             // UTF-8
    EXPECT_EQ(kept("\xE9\xC3\xA9"), "\xE9\xC3\xA9");                 // not UTF-8: each byte a character
    EXPECT_EQ(kept("\xED\xA0\x80\xC0\x80"), "\xED\xA0\x80\xC0\x80"); // surrogates and overlong forms are not UTF-8
    const MarkupRun marked = runMarkup("\xEF\xBB\xBF\\split p\na");
    EXPECT_EQ(marked.pages, "p.htm: <p>a</p>\n");
}

namespace {

/// Files of a test, in a directory that is the working directory meanwhile.
class Sources : public testing::Test
{
protected:
    Sources() { QDir::setCurrent(m_directory.path()); }
    ~Sources() override { QDir::setCurrent(m_before); }
    void write(const char *name, std::string_view text)
    {
        writeFile(m_directory.filePath(QString::fromUtf8(name)), text);
    }
    MarkupRun run(const QString &name = u"doc.dg"_s, MacroContext *macros = nullptr)
    {
        return runFile(m_directory, name, {.macros = macros});
    }
    std::string failure(MacroContext *macros = nullptr)
    {
        try {
            run(u"doc.dg"_s, macros);
        } catch (const HException &exception) {
            return exception.message().mid(exception.message().lastIndexOf('/') + 1).toStdString();
        }
        return "none";
    }

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_directory;
};

} // namespace

TEST_F(Sources, IncludesStandInTheirPlaceWithAnEmptyLineBehind)
{
    write("doc.dg", "\\split{p}\na\n \\include  one.dg\nb\n@avr\n\\include one.dg\n@end\n\\include "
                    "missing.dg\n\\nope\n\\includes two.dg");
    write("one.dg", "% c\n@avr\n\\include two.dg\n@else\nd \\nope\n\\include two.dg");
    write("two.dg", "\\nope\n@avr\nhidden");
    const MarkupRun result = run();
    EXPECT_EQ(result.pages, "p.htm: <p>a\nd ***ERROR*** \\nope\n***ERROR*** \\nope</p><p>b</p><p>***ERROR*** "
                            "\\nope\n***ERROR*** \\nope\n</p>\n");
    EXPECT_EQ(result.messages,
              "error: docgen: one.dg:5: \\nope: unknown command\nerror: docgen: two.dg:1: \\nope: unknown command\n"
              "error: docgen: doc.dg:9: \\nope: unknown command\nerror: docgen: two.dg:1: \\nope: unknown command\n");
    SimpleMacroContext macros;
    const MarkupRun copied = run(u"doc.dg"_s, &macros);
    EXPECT_EQ(copied.pages, result.pages);
    EXPECT_EQ(copied.messages, result.messages);
}

TEST_F(Sources, EachFileIsNumberedAnewByItself)
{
    write("doc.dg", "\\split{p}\n\\table{*}\\line{100}\n\\include one.dg\n\\nope\n\\include one.dg\n\\nope");
    write("one.dg", "\\nope\n\\line{7}\\nope\n");
    std::string messages;
    for (const char *place : {"one.dg:1", "one.dg:7", "doc.dg:102", "one.dg:1", "one.dg:7", "doc.dg:104"})
        messages += std::string("error: docgen: ") + place + ": \\nope: unknown command\n";
    EXPECT_EQ(run().messages,
              messages + "warning: docgen: doc.dg:2: this table or matrix is still open at the end of the document\n");
}

TEST_F(Sources, AConditionOutlivesItsFile)
{
    write("doc.dg", "\\split{p}\n\\include one.dg\na\n@else\nb\n@end\nc");
    write("one.dg", "@avr\nx");
    // Kept again after the file, but the block is open: "@else" drops, and "@end" closes it.
    EXPECT_EQ(run().pages, "p.htm: <p>a\nc</p>\n");
}

TEST_F(Sources, EndlessIncludesAreProved)
{
    write("doc.dg", "a\n\\include doc.dg");
    EXPECT_EQ(failure(), "doc.dg includes itself without end");
    write("doc.dg", "\\include two.dg");
    write("two.dg", "\\include doc.dg");
    EXPECT_EQ(failure(), "doc.dg includes itself without end");
    write("doc.dg", "@arm\n\\include doc.dg"); // ever more blocks are open
    EXPECT_EQ(failure(), "doc.dg includes itself without end");
    write("doc.dg", std::string(600'000, 'x') + "\n@arm\n\\include doc.dg"); // 64 MiB long before it is that deep
    EXPECT_EQ(failure(), "doc.dg includes itself without end");
    // Each reading of the second file closes a block; the last one drops the include.
    std::string blocks;
    for (int block = 0; block < 120; ++block)
        blocks += "@arm\n";
    write("doc.dg", "\\include open.dg\n" + blocks + "\\include two.dg");
    write("open.dg", "@avr\n@arm");
    write("two.dg", "@end\n@else\n@else\n\\include two.dg");
    EXPECT_EQ(failure(), "none");
    write("doc.dg", "@end\n@else\n\\include doc.dg\n@end");
    EXPECT_EQ(failure(), "none"); // the first line of the inner reading drops the include
}

TEST_F(Sources, UnderMacrosAnIncludeMayEndAtAnyTime)
{
    write("doc.dg", "line");
    CountingMacroContext ends(9'998); // the file is open 9,999 times
    EXPECT_EQ(failure(&ends), "none");
    CountingMacroContext goesOn(9'999);
    EXPECT_EQ(failure(&goesOn), "doc.dg includes itself without end");
}

TEST_F(Sources, DepthAsSuchHasNoLimit)
{
    constexpr int depth = 3000;
    for (int index = 0; index < depth; ++index)
        write(std::to_string(index).append(".dg").c_str(), "\\include " + std::to_string(index + 1) + ".dg");
    write("3000.dg", "\\split{p}\nend");
    EXPECT_EQ(run(u"0.dg"_s).pages, "p.htm: <p>end</p>\n");
}

TEST_F(Sources, WhatIsNoRegularFileIsEmpty)
{
    QDir().mkdir(u"dir.dg"_s);
    EXPECT_EQ(run(u"dir.dg"_s).contents, "<contents>\n</contents>");
    EXPECT_EQ(run(u"missing.dg"_s).pages, "");
}

TEST(PageTitles, LeadToThePagesThatAreWritten)
{
    struct Split
    {
        const char *split, *stem;
    };
    for (const Split &row : {
             Split{"\\split b", "b"},
             Split{"\\split  b \t", "b"},
             Split{"\\split\tb c", "b c"},
             Split{"\\split b.htm ", "b"},
             Split{"\\split {b}", "{b}"},
             Split{"\\split-b", "-b"},
             Split{"\\split{b} tail", "b"},
             Split{"\\split{ b c\t}", "b c"},
             Split{"\\split{b{c{}}d}", "b{c{}}d"},
             Split{"\\split{b.htm}", "b"},
             Split{"\\split{b\nc }", "b\nc"},
         }) {
        const MarkupRun run =
            runMarkup("\\split a\n\\xref{T}\n" + std::string(row.split) + "\n\\title T\nx\n\\split z\n\\return");
        const std::string file = std::string(row.stem) + ".htm";
        EXPECT_TRUE(run.pages.starts_with("a.htm: <p><a href=\"" + file + "\">T</a>\n</p>\n" + file + ": "))
            << row.split << run.pages;
        EXPECT_NE(run.contents.find("<content url=\"" + file + "\">"), std::string::npos) << row.split;
    }
    // Neither of these opens a page.
    for (const std::string split : {"\\split{b", "\\splits b", "\\split{b\n\n}"}) {
        const MarkupRun run = runMarkup("\\split a\n\\xref{T}\n" + split + "\n\\title T\n");
        EXPECT_TRUE(run.pages.starts_with("a.htm: <p><a href=\"a.htm\">T</a>")) << run.pages;
        EXPECT_NE(run.messages, "") << split;
    }
}

TEST(PageTitles, AreFoundBeforeTheTranslation)
{
    const MarkupRun run = runMarkup(
        "\\title Doc\n\\split{a}\n\\xref{b}|\\xref{Last}|\\xref{First}|\\xref{Doc}|\\xref{c}|\\xref{B} tail}\n"
        "\\split b\n\\title  First\n\\title{ Last }\n\\titleref{x}\n\\title\n\\title{ }\n \\title Indented\n"
        "\\split  c\n\\title{two } tail\n");
    EXPECT_EQ(run.pages.substr(0, run.pages.find('\n')),
              "a.htm: <p><a href=\"b.htm\">Last</a>|<a href=\"b.htm\">Last</a>|<a href=\"b.htm\">Last</a>|<a "
              "href=\"Doc.htm\">Doc</a>|<a href=\"c.htm\">two } tail</a>|<a href=\"B.htm\">B</a> tail}");
    EXPECT_NE(run.pages.find("c.htm: <p>tail"), std::string::npos) << run.pages;
}

TEST(Contents, IsAlwaysWellFormed)
{
    const auto contents = [](std::string_view source) { return runMarkup(source).contents; };
    EXPECT_EQ(contents("\\split a\n\\contents down\n\\split b\n\\split c"),
              "<contents>\n<content url=\"a.htm\">\n<content url=\"b.htm\">\n</content>\n<content "
              "url=\"c.htm\">\n</content>\n</content>\n</contents>");
    EXPECT_EQ(contents("\\contents up\n\\title A&B\n\\title C\n\\contents down\n\\contents "
                       "down\n\\split{a.htm}\n\\contents up\n\\here\n\\split b\n\\split c\n"
                       "\\contents top\n\\title D\n\\begin{G}\n\\split d\n\\end\n\\split e\n\\begin H"),
              "<contents>\n<content title=\"A&amp;B\">\n</content>\n<content title=\"C\">\n<content "
              "url=\"a.htm\">\n</content>\n<content url=\"c.htm\">\n</content>\n</content>\n"
              "<content title=\"G\">\n<content url=\"d.htm\">\n</content>\n</content>\n<content "
              "url=\"e.htm\">\n<content title=\"H\">\n</content>\n</content>\n</contents>");
    EXPECT_EQ(
        contents("\\title A\n\\contents top\n\\title B\n\\contents sync\n\\contents down\n\\title C\n\\split a\n"
                 "\\contents top\n\\title D\n\\split\n\\title E"),
        "<contents>\n<content title=\"A\">\n</content>\n<content title=\"B\">\n</content>\n<content title=\"C\">\n"
        "</content>\n<content url=\"a.htm\">\n</content>\n</contents>");
    EXPECT_EQ(contents("\\rawcontent <x/>\n\\contents <y>z</y> \n\\include gnu_a.xml\n\\include "
                       "b.xml\n\\include{c}\n\\include d.htm"),
              "<contents>\n<x/>\n<y>z</y> \n<include filename=\"gnu_a.xml\" />\n<include filename=\"b.xml\" "
              "no_root=\"1\" />\n"
              "<content url=\"c.htm\" />\n<content url=\"d.htm\" />\n</contents>");
}
