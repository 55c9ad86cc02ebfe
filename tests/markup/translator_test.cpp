#include "markup/command_table.h"
#include "markup/markup_cursor.h"
#include "markup/shared_tables.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

/// A document of one page, what its body is and what is said about it.
struct Row
{
    const char *name;
    std::string markup;
    std::string body;
    std::string messages = {};
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

std::string testName(const testing::TestParamInfo<Row> &info)
{
    std::string name = info.param.name;
    for (char &c : name) {
        if (!isNameCharacter(c))
            c = '_';
    }
    return name;
}

class Markup : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(Markup, Becomes)
{
    const MarkupRun run = runMarkup("\\split{p}\n" + GetParam().markup);
    EXPECT_EQ(run.pages, GetParam().body.empty() ? "" : "p.htm: " + GetParam().body + "\n");
    EXPECT_EQ(run.messages, GetParam().messages);
}

#define ROWS(group, ...) INSTANTIATE_TEST_SUITE_P(group, Markup, testing::Values(__VA_ARGS__), testName)

ROWS(Text, Row{"a blank line ends a paragraph", "a\nb\n\n \t\nc", "<p>a\nb</p><p>c</p>"},
     Row{"text is copied as it is", "a < b & \"c\" {d} > |e|", "<p>a < b & \"c\" {d} > |e|</p>"},
     Row{"two angles are a hard blank in text", "<>a<>b", "<p>&nbsp;a&nbsp;b</p>"},
     Row{"but not in a list", "\\item a<>b", "<ul><li>a<>b</li></ul>"},
     Row{"nor in a synopsis", "\\synopsis a<>b", "<h5>Synopsis</h5><pre>a<>b</pre>"},
     Row{"but in an argument", "\\b{<>}", "<p><b>&nbsp;</b></p>"},
     Row{"the middle dot is a hard blank, deliberately",
         "\xC2\xB7"
         "a\n\n\\item b\xC2\xB7",
         "<p>&#160;a</p><ul><li>b&#160;</li></ul>"},
     Row{"characters beyond the encoding are references", "\xC3\xA9 \xE2\x80\xA6", "<p>\xE9 &#x2026;</p>"},
     Row{"symbols take nothing behind them", "a \\le b \\--c\\-", "<p>a &#x2264; b &mdash;c&ndash;</p>"},
     Row{"three stops", "\\....", "<p>&hellip;.</p>"},
     Row{"escapes", "\\& \\\\ \\: \\, \\{ \\} \\| \\< \\% \\\" \\\n\\",
         "<p>&amp; &#x5c; &#x202f; &#x202f; { } | &lt; % &quot; &#x5c;\n&#x5c;</p>"},
     Row{"a hyphen behind an escape is kept", "\\&-\\{-\\\\-\\:-", "<p>&amp;-{-&#x5c;-&#x202f;-</p>"},
     Row{"an unknown command", "a \\nope{b} c", "<p>a ***ERROR*** \\nope{b} c</p>",
         "error: docgen: doc.dg:2: \\nope: unknown command\n"},
     Row{"remarks vanish and end nothing", "a\\rem b\nc \\fixme{d}\n\\review e\nf", "<p>a\nc \n\nf</p>"});

ROWS(Styles, Row{"styles nest", "\\b{a \\i{b \\tt{c}}} \\bi{d}", "<p><b>a <i>b <tt>c</tt></i></b> <b><i>d</i></b></p>"},
     Row{"quotes and input", "\\dq{a} \\q{b} \\sq{c} \\input{ls}",
         "<p>&ldquo;a&rdquo; &lsquo;b&rsquo; &lsquo;c&rsquo; <b>ls</b> &#8629;</p>"},
     Row{"braces in an argument match", "\\b{a {b} \\} c}", "<p><b>a {b} } c</b></p>"},
     Row{"an argument goes over lines", "\\b{a\nb}", "<p><b>a\nb</b></p>"},
     Row{"but not over a blank line", "\\b{a\n\nb}", "<p>***ERROR*** \\b{a</p><p>b}</p>",
         "error: docgen: doc.dg:2: \\b: the argument is not closed\n"},
     Row{"a backslash hides no blank line", "\\b{a\\\n\nb}", "<p>***ERROR*** \\b{a&#x5c;</p><p>b}</p>",
         "error: docgen: doc.dg:2: \\b: the argument is not closed\n"},
     Row{"a missing argument", "\\b a", "<p>***ERROR*** \\b a</p>",
         "error: docgen: doc.dg:2: \\b: the argument is missing\n"},
     Row{"an inner style that closes outside", "\\b{a \\i{b} c", "<p>***ERROR*** \\b{a <i>b</i> c</p>",
         "error: docgen: doc.dg:2: \\b: the argument is not closed\n"},
     Row{"no blocks inside an argument", "\\b{a \\item b}", "<p><b>a ***ERROR*** \\item b</b></p>",
         "error: docgen: doc.dg:2: \\item: not allowed inside an argument or a synopsis\n"},
     Row{"the paragraph style holds for one paragraph", "\\style{div}a\n\nb \\style{pre}c\n\nd",
         "<div>a</div><p>b c</p><pre>d</pre>"},
     Row{"raw pieces open no paragraph", "\\html{<hr>\\{}\\document{a&b}\\subtitle{c}",
         "<hr>\\{<document>a&amp;b</document><subtitle>c</subtitle>"},
     Row{"a page style is emptied", "\\style\na\n\n\\style{ q }\nb", "<p>a</p><q>b</q>"},
     Row{"a remark ends with the argument that it is in", "\\b{a \\rem b} c", "<p><b>a </b> c</p>"},
     Row{"no page inside an argument", "\\b{\\split{q}\\contents up}",
         "<p><b>***ERROR*** \\split{q}***ERROR*** \\contents up</b></p>",
         "error: docgen: doc.dg:2: \\split: not allowed inside an argument or a synopsis\n"
         "error: docgen: doc.dg:2: \\contents: not allowed inside an argument or a synopsis\n"},
     Row{"pictures", "\\img{a.png} \\screen{b} \\screen{c.gif}{it's}",
         "<p><img src=\"a.png\" /> <img class=\"screen\" src=\"b.png\" /> <img class=\"screen\" src=\"c.gif\" "
         "alt=\"it&apos;s\"/></p>"},
     Row{"a renumbering leaves alone what is before it",
         "\\nope\\line{2147483647}\\nope\n\\table{*\\line{7}}\\line{9}\n|\\nope",
         "<p>***ERROR*** \\nope***ERROR*** \\nope\n</p><table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" "
         "cellspacing=\"2\" border=\"0\" cols=\"1\" fm_widths=\"0in\">\n<tr bgcolor=\"#cccccc\"><td>\n***ERROR*** "
         "\\nope</td></tr>\n</td></tr></table>",
         "error: docgen: doc.dg:2: \\nope: unknown command\nerror: docgen: doc.dg:2147483647: \\nope: unknown command\n"
         "warning: docgen: doc.dg:2147483648: \\table: invalid width \"*\\line{7}\": expected a number\n"
         "error: docgen: doc.dg:10: \\nope: unknown command\nwarning: docgen: doc.dg:2147483648: this table or matrix "
         "is "
         "still open at the end of the document\n"},
     Row{"a line can be numbered anew", "\\line{50}\\b\n\\nope\\line{x}",
         "<p>***ERROR*** \\b\n***ERROR*** \\nope***ERROR*** \\line</p>",
         "error: docgen: doc.dg:50: \\b: the argument is missing\nerror: docgen: doc.dg:51: \\nope: unknown command\n"
         "error: docgen: doc.dg:51: \\line: the argument is not a line number\n"});

ROWS(Lists,
     Row{"items with labels", "\\item\n\n a\n\\item{b \\tt{c}}\n d\n\\item{} e",
         "<ul><li>a\n</li>\n<li><i>b <tt>c</tt></i>:&nbsp;&nbsp;d\n</li>\n<li>e</li></ul>"},
     Row{"terms", "\\term a \\item b\n\\term c \\item d",
         "<dl><dt>a </dt>\n<dd>b\n</dd>\n<dt>c </dt>\n<dd>d</dd></dl>"},
     Row{"steps, then another list", "\\step a\n\\step b\n\\item c\n\nd",
         "<ol><li>a\n</li>\n<li>b\n</li></ol><ul><li>c</li></ul><p>d</p>"},
     Row{"parameters and results", "\\param{a} b\n\\param{c \\i{d}}\n\\return e",
         "<p><b>a</b> &mdash; b\n</p><p><b>c <i>d</i></b> &mdash;\n</p><p><b>p</b> returns &mdash; e</p>"},
     Row{"reference sections", "a\n\\ts b\n\\seealso c",
         "<p>a\n</p><h5>Thread Safety</h5><p>b\n</p><h5>See Also</h5><p>c</p>"},
     Row{"headings", "\\section A & B \n\\subsection{C}d\n\\h2 E\n\\task F\n\\side G\n\\overview h",
         "<h3>A &amp; B </h3><h4>C</h4><p>d\n</p><h2>E</h2><h5>F</h5><h6>G</h6><h3>Overview</h3><p>h</p>"},
     Row{"a heading without text", "\\section\na", "<p>***ERROR*** \\section\na</p>",
         "error: docgen: doc.dg:2: \\section: the argument is missing\n"},
     Row{"a synopsis ends at a blank line", "\\synopsis\n  int \\b{f}(\xC2\xB7);\nint g();\n\nafter",
         "<h5>Synopsis</h5><pre>  int <b>f</b>(&#160;);\nint g();</pre><p>after</p>"},
     Row{"or at a block command", "\\synopsis int f();\n\\desc b",
         "<h5>Synopsis</h5><pre>int f();</pre><h5>Description</h5><p>b</p>"},
     Row{"the brief stands alone", "a\n\\brief It \\i{is}.\nb", "<p>a\n</p><p>It <i>is</i>.</p><p>b</p>"},
     Row{"the brief in braces", "\\brief{a\nb} c\\brief{}d", "<p>a\nb</p><p>c***ERROR*** \\briefd</p>",
         "error: docgen: doc.dg:3: \\brief: the argument is missing\n"},
     Row{"a blank line ends a list, behind an item it does not", "\\item\n\na\n \n\nb", "<ul><li>a</li></ul><p>b</p>"},
     Row{"a label that is not closed", "\\item{a b\n\\param{c", "<p>***ERROR*** \\item{a b\n***ERROR*** \\param{c</p>",
         "error: docgen: doc.dg:2: \\item: the argument is not closed\n"
         "error: docgen: doc.dg:3: \\param: the argument is not closed\n"},
     Row{"a synopsis without a body", "\\synopsis\n\na\n\\synopsis\n\\h1 b",
         "<h5>Synopsis</h5><pre></pre><p>a\n</p><h5>Synopsis</h5><pre></pre><h1>b</h1>"},
     Row{"blocks inside the lines of a synopsis", "\\synopsis a \\item b\n \\rem c\nd",
         "<h5>Synopsis</h5><pre>a ***ERROR*** \\item b\n \nd</pre>",
         "error: docgen: doc.dg:2: \\item: not allowed inside an argument or a synopsis\n"},
     Row{"show closes a paragraph only", "a\\show{b<c}d\n\n\\item e\\show{f}",
         "<p>a</p><pre>b&lt;c;</pre><p>d</p><ul><li>e<pre>f;</pre></li></ul>"},
     Row{"a copied line", "a\n\\copy <hr>  b\nc", "<p>a\n</p><hr>  b<p>c</p>"},
     Row{"an unknown direction", "\\contents{down}\n\\contents ",
         "<p>***ERROR*** \\contents\n***ERROR*** \\contents</p>",
         "error: docgen: doc.dg:2: \\contents: expected down, up, top, sync or an XML line\nerror: docgen: doc.dg:3: "
         "\\contents: expected down, up, top, sync or an XML line\n"},
     Row{"nothing to close", "\\endcode \\endtable \\end",
         "<p>***ERROR*** \\endcode ***ERROR*** \\endtable ***ERROR*** \\end</p>",
         "error: docgen: doc.dg:2: \\endcode: nothing is open that it could close\nerror: docgen: doc.dg:2: "
         "\\endtable: nothing is open that it could close\n"
         "error: docgen: doc.dg:2: \\end: nothing is open that it could close\n"});

namespace {

const std::string s_table = "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"2\" "
                            "border=\"0\" cols=\"1\" fm_widths=\"5in\">\n";
const std::string s_matrix =
    "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"0\" cellspacing=\"4\" border=\"0\" cols=\"2\" "
    "fm_widths=\"2in,2in,2in\">\n<col width=\"47%\"/><col width=\"47%\"/>";

} // namespace

ROWS(Tables,
     Row{"the first row is shaded", "\\table{*}\n| a | b\n  c\n \n  | d\n\\endtable",
         s_table +
             "<tr bgcolor=\"#cccccc\"><td>\n a </td><td> b\n  c</td></tr>\n<tr><td> d\n</td></tr>\n</td></tr></table>"},
     Row{"heading rows and group rows", "\\table{*}\n|| a||b | c\n| d\n||- e \\b{|f}\n| g\n|| h\n|| i\n\\endtable",
         s_table + "<tr bgcolor=\"#cccccc\"><th>\n a</th><th>b </th><th> c</th></tr>\n<tr><td> d</td></tr>\n<tr><td "
                   "colspan=\"100%\"><b>e <b>|f</b></b>\n</td></tr>\n<tr><td> g"
                   "</td></tr>\n<tr bgcolor=\"#cccccc\"><th>\n h</th></tr>\n<tr bgcolor=\"#cccccc\"><th>\n "
                   "i\n</td></tr>\n</td></tr></table>"},
     Row{"a group row ends a heading row like any other, deliberately", "\\table{*}\n|| a\n||-b\n\\endtable",
         s_table + "<tr bgcolor=\"#cccccc\"><th>\n a</td></tr>\n<tr><td colspan=\"100%\"><b>b</b>\n\n</td></tr>\n"
                   "</td></tr></table>"},
     Row{"text before the first bar is a row", "\\table{*} a | b\n| c\\endtable",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\na </td><td> b</td></tr>\n<tr><td> c</td></tr>\n</td></tr></table>"},
     Row{"a table without rows", "\\table{*}\n\\endtable", s_table + "</td></tr></table>"},
     Row{"a table inside a table changes nothing, deliberately", "\\table{*}\n|a\n\\table{1in,*}\n|b\n\\endtable",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\na\n</td></tr>\n<tr><td>b\n</td></tr>\n</td></tr></table>",
         "warning: docgen: doc.dg:4: \\table: a table is already open\n"},
     Row{"a matrix inside a table, and one inside that", "\\table{*}\n|a\n\\matrix{a,b}\\matrix{}|b\n\\endmatrix",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\na\n</td></tr>\n</td></tr></table>" + s_matrix +
             "<tr>\n<td valign=\"top\">\nb\n</td></tr></table>",
         "warning: docgen: doc.dg:4: \\matrix: a table is already open\n"
         "warning: docgen: doc.dg:4: \\matrix: a matrix is already open\n"},
     Row{"text in cells", "\\table{*}|\\b{|}<>\xC2\xB7\\|\\code{plain}x\\endcode",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\n<b>|</b><>&#160;|</td></tr>\n</td></tr></table>\n<pre "
                   "class=\"zkt-code\">x</pre>"},
     Row{"widths that are not numbers", "\\table{*, x}\\endtable\\table{*",
         "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"2\" border=\"0\" cols=\"2\" "
         "fm_widths=\"5in,0in\">\n"
         "</td></tr></table><p>***ERROR*** \\table{*</p>",
         "warning: docgen: doc.dg:2: \\table: invalid width \"x\": expected a number\nerror: docgen: doc.dg:2: "
         "\\table: the argument is "
         "not closed\n"},
     Row{"another block closes a table", "\\table{*}\n|a\n\\item b",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\na\n</td></tr>\n</td></tr></table><ul><li>b</li></ul>"},
     Row{"a table that is never closed", "\\table{*}\n|a",
         s_table + "<tr bgcolor=\"#cccccc\"><td>\na</td></tr>\n</td></tr></table>",
         "warning: docgen: doc.dg:2: this table or matrix is still open at the end of the document\n"},
     Row{"a matrix", "\\matrix{a,b}\n| a | b\n| c\n\\endmatrix",
         s_matrix + "<tr>\n<td valign=\"top\">\n a </td>\n<td valign=\"top\">\n b</td>\n</tr>\n<tr><td "
                    "valign=\"top\">\n c\n</td></tr></table>"},
     Row{"the wrong end", "\\matrix{a,b}|a\\endtable\\endmatrix",
         s_matrix + "<tr>\n<td valign=\"top\">\na***ERROR*** \\endtable</td></tr></table>",
         "error: docgen: doc.dg:2: \\endtable: nothing is open that it could close\n"});

ROWS(Listings,
     Row{"a plain listing is escaped", "\\pre\na <b>\n\n\\endpre c",
         "\n<pre class=\"zkt-code\">a &lt;b&gt;</pre><p>c</p>"},
     Row{"either command closes, a doubled backslash hides one", "\\pre\n\\\\endpre \\b{x}\n\\endcode",
         "\n<pre class=\"zkt-code\">\\\\endpre \\b{x}</pre>"},
     Row{"a listing in a list closes it", "\\item a\\code{plain}b\\endcode",
         "<ul><li>a</li></ul>\n<pre class=\"zkt-code\">b</pre>"},
     Row{"a listing that is never closed", "\\code{plain}\na\n\\section b",
         "\n<pre class=\"zkt-code\">a\n\\section b</pre>",
         "warning: docgen: doc.dg:2: \\code: this listing is still open at the end of the document\n"},
     Row{"a file that is missing", "\\present no such & file \n\\copyin none.htm",
         "\n<pre class=\"zkt-code\">***no such &amp; file not found ***</pre>***none.htm not found ***",
         "error: docgen: doc.dg:2: \\present: the file cannot be opened\nerror: docgen: doc.dg:3: \\copyin: the file "
         "cannot be opened\n"});

ROWS(Links,
     Row{"captions that are not closed", "\\xref{a}{b \\screen{c}{d \\xref{e}{f}{g",
         "<p><a href=\"a.htm\">a</a>***ERROR*** \\xref{b <img class=\"screen\" src=\"c.png\" />***ERROR*** "
         "\\screen{d <a href=\"e.htm\">f</a>{g</p>",
         "error: docgen: doc.dg:2: \\xref: the argument is not closed\nerror: docgen: doc.dg:2: \\screen: the "
         "argument is not closed\n"},
     Row{"to addresses, https: too, deliberately",
         "\\xref{http://a/?b&c} \\ref{https://d}{e \\b{f}} \\titleref{https:} \\xref{HTTPS:x} \\xref{http}",
         "<p><a href=\"http://a/?b&amp;c\" target=\"_blank\">http://a/?b&amp;c</a> <a href=\"https://d\" "
         "target=\"_blank\">e \\b{f}</a> <big><a href=\"https:\" target=\"_blank\">https:</a></big><br/> <a "
         "href=\"./HTTPS:x.htm\">HTTPS:x</a> <a href=\"http.htm\">http</a></p>"},
     Row{"to pages and titles", "\\title The <P>\n\\xref{p} \\xref{The <P>} \\xref{p.htm} \\xref{q} \\titleref{p}{x}",
         "<p><a href=\"p.htm\">The &lt;P&gt;</a> <a href=\"p.htm\">The &lt;P&gt;</a> <a href=\"p.htm\">The "
         "&lt;P&gt;</a> <a href=\"q.htm\">q</a> <big><a href=\"p.htm\">x</a></big><br/></p>"});

TEST(Commands, AllAreThereOnce)
{
    std::map<std::string_view, int> names;
    for (const Command &command : CommandTable::rows()) {
        EXPECT_EQ(CommandTable::find(command.name), &command);
        ++names[command.name];
    }
    // The 122 of the language, and the escapes that are rows of the table too.
    EXPECT_EQ(names.size(), CommandTable::rows().size());
    EXPECT_EQ(CommandTable::find("Title"), nullptr);
}

ROWS(Edges, Row{"characters of four bytes", "\xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF", "<p>&#x1f600; &#x10ffff;</p>"},
     Row{"commands without their argument", "\\xref a \\line b \\screen c \\img d \\icon e",
         "<p>***ERROR*** \\xref a ***ERROR*** \\line b ***ERROR*** \\screen c ***ERROR*** \\img d ***ERROR*** \\icon "
         "e</p>",
         "error: docgen: doc.dg:2: \\xref: the argument is missing\n"
         "error: docgen: doc.dg:2: \\line: the argument is missing\n"
         "error: docgen: doc.dg:2: \\screen: the argument is missing\n"
         "error: docgen: doc.dg:2: \\img: the argument is missing\n"
         "error: docgen: doc.dg:2: \\icon: the argument is missing\n"},
     Row{"look-ups without an action", "\\menu a \\key b \\tip c",
         "<p>***ERROR*** \\menu a ***ERROR*** \\key b ***ERROR*** \\tip c</p>",
         "error: docgen: doc.dg:2: \\menu: the argument is missing\nerror: docgen: doc.dg:2: \\key: the argument is "
         "missing\n"
         "error: docgen: doc.dg:2: \\tip: the argument is missing\n"},
     Row{"look-ups of an unknown action", "\\menu{a&b} \\key{c} \\tip{d}",
         "<p><b>\\menu Can't find a&amp;b</b> <b></b> <b>***ERROR NO TIP*** d</b></p>",
         "warning: docgen: doc.dg:2: Can't find a&b in message scheme\nwarning: docgen: doc.dg:2: Can't find c in key "
         "scheme\n"
         "error: docgen: doc.dg:2: \\tip: there is no tip for d\n"});

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
        generator.setMessageSink([](std::string_view) {});
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
    EXPECT_EQ(run.messages, "error: docgen: doc.dg:1: \\split: the page would leave the output directory\n"
                            "error: docgen: doc.dg:3: \\split: the page would leave the output directory\n");
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
    EXPECT_EQ(run.messages, "error: docgen: doc.dg:1: \\ingroup: no page is open that could be filed\n"
                            "error: docgen: doc.dg:1: text before the first \\split is on no page\n");
    EXPECT_EQ(SharedTables::docGroups, std::vector<std::string>{"Tools"});
    runMarkup("");
    EXPECT_TRUE(SharedTables::docGroups.empty() && SharedTables::docObjects.empty());
    EXPECT_EQ(SharedTables::requiredOrder, (std::vector<std::string>{"B", "A"}));
}
