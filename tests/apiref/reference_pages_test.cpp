#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

struct ReferenceRun
{
    std::string pages; ///< "NAME.htm (HEADER): BODY\n" for every page; of the header's page the title too
    std::string contents;
    std::string messages;
};

ReferenceRun runHeader(std::string_view header, int split = 1, const QStringList &exclusions = {})
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(u"lib.h"_s), header);
    ReferenceRun run;
    OutputRecords records;
    DocGen generator;
    const std::string prefix = directory.path().toStdString() + "/";
    generator.setMessageSink([&](const Message &message) {
        std::string text = formatted(message);
        for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix))
            text.erase(at, prefix.size());
        run.messages += text;
    });
    generator.run(nullptr, split, Path(directory.filePath(u"lib.h"_s)), u"out"_s, records, {}, exclusions);
    for (const OutputRecord &record : records) {
        if (record.fileName.endsWith(u".xml"))
            run.contents =
                record.fileName.toStdString() + record.header.toStdString() + ": " + record.text.toStdString();
        else
            run.pages += record.fileName.toStdString() + " (" + record.header.toStdString() +
                         "): " + bodyOf(record.text.toStdString()) + "\n";
    }
    return run;
}

const std::string s_tableStart =
    "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" "
    "fm_widths=\"1.1in,*\" style=\"MultiHeadingTable\">\n";

std::string caption(const std::string &text)
{
    return "<tr bgcolor=\"#cccccc\"><td valign=\"center\" colspan=\"2\" style=\"CellTitle\"><b>" + text +
           "</b></td></tr>\n";
}

std::string entry(const std::string &stem, const std::string &title, const std::string &description)
{
    return "<tr><td valign=\"center\"><a href=\"" + stem + ".htm\" style=\"Heading\">" + title +
           "</a></td>                            <td width=\"100%\">" + description + "</td></tr>\n";
}

} // namespace

TEST(ReferencePages, AHeaderWithoutDocumentation)
{
    const ReferenceRun run = runHeader("/** no */\nint a(void);\n/* ! no */\nint b(void);\n");
    EXPECT_EQ(run.pages, "out/lib_h.htm (lib.h): <h3>API Summary</h3>" + s_tableStart + "</table>\n");
    EXPECT_EQ(run.contents, "out/lib.xml: <contents>\n<content url=\"lib_h.htm\">\n\n</content>\n</contents>");
    EXPECT_EQ(runHeader("", 0).pages + runHeader("", 0).contents, "");
}

TEST(ReferencePages, PagesGroupsAndLinks)
{
    const ReferenceRun run = runHeader(R"(/*!! About.
 * \grouporder Second, First
 */
#define NOT_DOCUMENTED 1
/*!
 * \ingroup First
 * \brief Adds <i>it</i>.
 * \synopsis
 *
 * \param{a} See \xref{list::size} and \xref{no::thing}.
 */
int add(int a, char *__b);

/*!
 * First. Second \this.
 * \ingroup Second
 */
struct list {
    /*!
     No stop here
     */
    int size;
};
/*!
 * \ingroup First
 * \show{add}\split{x}
 */
#define ZERO 0
)");
    EXPECT_EQ(run.pages,
              "out/list.htm (lib.h): <p>First. Second list.\n</p>\n"
              "out/add.htm (lib.h): <p>Adds <i>it</i>.</p><h5>Synopsis</h5><pre>int add(int a,\n        char *b);</pre>"
              "<p><b>a</b> &mdash; See <a href=\"size.htm\">list::size</a> and <a "
              "href=\"./no::thing.htm\">no::thing</a>.</p>\n"
              "out/size.htm (lib.h): <p>No stop here</p>\n"
              "out/ZERO.htm (lib.h): <pre>int add(int a, char *b);</pre><p>***ERROR*** \\split{x}</p>\n"
              "out/lib_h.htm (lib.h): <p>About.\n</p><h3>API Summary</h3>" +
                  s_tableStart + caption("Second") + entry("list", "list", "First.") + caption("First") +
                  entry("add", "add", "Adds <i>it</i>.") + entry("ZERO", "ZERO", "***ERROR*** \\split{x}") +
                  caption("*** UNASSIGNED GROUP ***") + entry("size", "size", "No stop here") + "</table>\n");
    EXPECT_EQ(run.messages, "error: docgen: lib.h:26: \\split: not allowed in header comments\n");
    EXPECT_EQ(run.contents, "out/lib.xml: <contents>\n<content url=\"lib_h.htm\">\n<content url=\"ZERO.htm\" "
                            "/>\n<content url=\"add.htm\" />\n"
                            "<content url=\"list.htm\" />\n<content url=\"size.htm\" />\n</content>\n</contents>");
}

TEST(ReferencePages, ReplacedEmptyAndExcludedOnes)
{
    const ReferenceRun run = runHeader(R"(/*!
 Old.
 */
void twice(int);
/*!
 New.
 */
void twice(char);
/*! one line */
int empty(void);
/*!
 Hidden.
 */
int hidden(void);
struct v {
/*!
 \this
 */
v operator/(int);
};
)",
                                       0, {u"hidden"_s});
    EXPECT_EQ(run.pages, "out/twice.htm (lib.h): <p>Old.</p>\nout/twice.htm (lib.h): <p>New.</p>\n"
                         "out/operatorslash.htm (lib.h): <p>operator/</p>\n");
    EXPECT_EQ(run.messages, "warning: docgen: lib.h:9: the comment of empty has no text\n"
                            "warning: docgen: lib.h:5: the page of twice replaces the one documented on line 1\n");
    EXPECT_EQ(run.contents, "");
}

TEST(ReferencePages, NamesWithColonsAreFoundAndLinkedFromTheFolder)
{
    const ReferenceRun run = runHeader(R"(/*!
 * \xref{A.B} \xref{A::B} \xref{A::B.f} \xref{f}
 */
class A::B {
/*!
 ** )"
                                       "\xC3\xA4"
                                       R"( of \xref{A::B}{it}.
 */
int f;
};
)");
    EXPECT_EQ(run.pages, "out/A::B.htm (lib.h): <p><a href=\"./A::B.htm\">A.B</a> <a href=\"./A::B.htm\">A::B</a> <a "
                         "href=\"f.htm\">A::B.f</a> <a href=\"f.htm\">f</a></p>\n"
                         "out/f.htm (lib.h): <p>\xE4 of <a href=\"./A::B.htm\">it</a>.</p>\n"
                         "out/lib_h.htm (lib.h): <h3>API Summary</h3>" +
                             s_tableStart + caption("*** UNASSIGNED GROUP ***") +
                             entry("./A::B", "A::B", "A.B A::B A::B.f f") + entry("f", "f", "\xE4 of it.") +
                             "</table>\n");
}

TEST(ReferencePages, SummariesOfOddNamesAndTexts)
{
    const ReferenceRun run = runHeader(R"(/*!!
 One.
 */
/*!!
 Two.
 */
/*!
 Where a \tt{<} b, x<3. Next.
 */
int less(void);
/*!
 \b{Version 1.5 is} <
 */
int open(void);
namespace a { struct b {
    /*!
     See \xref{a::b::get} and \xref{get}
     */
    int get(void);
};
}
/*!
 Old.
 \ingroup Lost
 */
int twice(int);
/*!
 New.
 */
int twice(char);
)");
    EXPECT_EQ(run.pages,
              "out/get.htm (lib.h): <p>See <a href=\"get.htm\">a::b::get</a> and <a href=\"get.htm\">get</a></p>\n"
              "out/less.htm (lib.h): <p>Where a <tt><</tt> b, x<3. Next.</p>\n"
              "out/open.htm (lib.h): <p><b>Version 1.5 is</b> <</p>\n"
              "out/twice.htm (lib.h): <p>Old.\n </p>\n"
              "out/twice.htm (lib.h): <p>New.</p>\n"
              "out/lib_h.htm (lib.h): <p>One.</p><p>Two.</p><h3>API Summary</h3>" +
                  s_tableStart + caption("*** UNASSIGNED GROUP ***") + entry("get", "get", "See a::b::get and get") +
                  entry("less", "less", "Where a < b, x<3.") + entry("open", "open", "Version 1.5 is <") +
                  entry("twice", "twice", "New.") + "</table>\n");
    EXPECT_EQ(run.messages, "warning: docgen: lib.h:27: the page of twice replaces the one documented on line 22\n");
}
