#include "markup/command_table.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

#include <set>

using namespace tavidoc;

namespace {

/// A command and what it writes into a page that holds nothing else.
struct CommandRow
{
    std::string_view name;
    std::string after;         ///< what stands behind the name
    std::string body;          ///< of the page "p"; pages behind it begin a new line
    std::string contents = {}; ///< lines inside the entry of that page
};

/// A command that writes the same whatever comes.
struct Writes
{
    std::string_view name, html;
};

/// A command around its argument.
struct Wraps
{
    std::string_view name, opening, closing;
};

constexpr Writes s_symbols[] = {
    {"lt", "&lt;"},
    {"gt", "&gt;"},
    {"or", "&mdash;or&mdash;"},
    {"plusminus", "&plusmn;"},
    {"inf", "&#x221e;"},
    {"pi", "&#x3c0;"},
    {"theta", "&#x3B8;"},
    {"psi", "&#x3C8;"},
    {"phi", "&#x3C6;"},
    {"half", "&#xbd;"},
    {"quarter", "&#xbc;"},
    {"threequarter", "&#xbe;"},
    {"vdots", "&#x205e;"},
    {"divslash", "&#x2215;"},
    {"bullet", "&#x2219;"},
    {"minus", "&#x2212;"},
    {"times", "&#xd7;"},
    {"divide", "&#xf7;"},
    {"ge", "&#x2265;"},
    {"le", "&#x2264;"},
    {"ne", "&#x2260;"},
    {"up", "&#x2191;"},
    {"down", "&#x2193;"},
    {"updown", "&#x2195;"},
    {"hdots", "&hellip;"},
    {"...", "&hellip;"},
    {"-", "&ndash;"},
    {"--", "&mdash;"},
    {":", "&#x202f;"},
    {",", "&#x202f;"},
    {"&", "&amp;"},
    {"\\", "&#x5c;"},
    {"br", "<br/>"},
};

constexpr Wraps s_styles[] = {
    {"b", "<b>", "</b>"},
    {"a", "<b>", "</b>"},
    {"f", "<b>", "</b>"},
    {"m", "<b>", "</b>"},
    {"ui", "<b>", "</b>"},
    {"u", "<u>", "</u>"},
    {"bi", "<b><i>", "</i></b>"},
    {"i", "<i>", "</i>"},
    {"e", "<i>", "</i>"},
    {"em", "<i>", "</i>"},
    {"big", "<big>", "</big>"},
    {"tt", "<tt>", "</tt>"},
    {"file", "<tt>", "</tt>"},
    {"sub", "<sub>", "</sub>"},
    {"sup", "<sup>", "</sup>"},
    {"q", "&lsquo;", "&rsquo;"},
    {"sq", "&lsquo;", "&rsquo;"},
    {"dq", "&ldquo;", "&rdquo;"},
    {"input", "<b>", "</b> &#8629;"},
};

constexpr Writes s_sections[] = {
    {"overview", "<h3>Overview</h3>"}, {"description", "<h5>Description</h5>"},
    {"desc", "<h5>Description</h5>"},  {"ts", "<h5>Thread Safety</h5>"},
    {"note", "<h5>Note</h5>"},         {"errors", "<h5>Errors</h5>"},
    {"sa", "<h5>See Also</h5>"},       {"seealso", "<h5>See Also</h5>"},
    {"rv", "<h5>Return Value</h5>"},   {"returns", "<h5>Return Value</h5>"},
    {"stds", "<h5>Standards</h5>"},    {"standards", "<h5>Standards</h5>"},
    {"port", "<h5>Portability</h5>"},  {"portability", "<h5>Portability</h5>"},
};

const std::string s_error = "<p>***ERROR*** \\";
const std::string s_grid = "<table bgcolor=\"#f0f0f0\" width=\"100%\" ";

/// Every command that is in none of the lists above.
const CommandRow s_rows[] = {
    {"document", "{a<}", "<document>a&lt;</document>"},
    {"subtitle", "{a<}", "<subtitle>a&lt;</subtitle>"},
    {"html", "{a<\\{}", "a<\\{"},
    {"choose", "{Nowhere}", "<p>***ERROR***</p>"},
    {"press", "{Nowhere}", "<p>***ERROR***</p>"},
    {"choosing", "{Nowhere}", "<p>***ERROR***</p>"},
    {"pressing", "{}", "<p>***ERROR***</p>"},
    {"menu", "{No&}", "<p><b>\\menu Can't find No&amp;</b></p>"},
    {"key", "{Nowhere}", "<p><b></b></p>"},
    {"tip", "{No&}", "<p><b>***ERROR NO TIP*** No&amp;</b></p>"},
    {"property", "{No&}", "<p><font color=\"red\">Unknown property No&amp;</font></p>"},
    {"icon", "{Filter}\\icon{No&}", "<p><img src=\"images/Filter.png\" />***ERROR*** \\icon</p>"},
    {"include", " gnu_a.xml\n\\include{b.xml} \n\\include c ", "",
     "<include filename=\"gnu_a.xml\" />\n<include filename=\"b.xml\" no_root=\"1\" />\n<content url=\"c.htm\" />\n"},
    {"rawcontent", "  <x y='z'>{ ", "", "<x y='z'>{ \n"},
    {"begin", " A & B\n\\end", "", "<content title=\"A &amp; B\">\n</content>\n"},
    {"end", "", s_error + "end</p>"},
    {"contents", " down\n\\split{q}\nx", "q.htm: <p>x</p>", "<content url=\"q.htm\">\n</content>\n"},
    {"split", " q.htm \nx", "q.htm: <p>x</p>", "</content>\n<content url=\"q.htm\">\n"},
    {"here", "\n\\split{../q}\n\\split{r}\n", "", "</content>\n<content url=\"r.htm\">\n"},
    {"title", " Page", ""},
    {"line", "{x}", s_error + "line</p>"},
    {"grouporder", " A, B", ""},
    {"ingroup", " A", ""},
    {"copyin", " none&", "***none&amp; not found ***"},
    {"present", "{c} none&", "\n<pre class=\"zkt-code\">***none&amp; not found ***</pre>"},
    {"code", "{plain}a\n\\endcode", "\n<pre class=\"zkt-code\">a</pre>"},
    {"pre", "\n<br/>\n\\endpre", "\n<pre class=\"zkt-code\">&lt;br/&gt;</pre>"},
    {"endcode", "", s_error + "endcode</p>"},
    {"endpre", "", s_error + "endpre</p>"},
    {"endtable", "", s_error + "endtable</p>"},
    {"endmatrix", "", s_error + "endmatrix</p>"},
    {"table", "{2in,*}\\endtable",
     s_grid + "cellpadding=\"2\" cellspacing=\"2\" border=\"0\" cols=\"2\" fm_widths=\"2in,3in\">\n</td></tr></table>"},
    {"matrix", "{a,,b,}\\endmatrix",
     s_grid + "cellpadding=\"0\" cellspacing=\"4\" border=\"0\" cols=\"4\" fm_widths=\"2in,2in,2in\">\n<col "
              "width=\"22%\"/><col width=\"22%\"/><col width=\"22%\"/><col width=\"22%\"/></td></tr></table>"},
    {"brief", " A \\i{b}.", "<p>A <i>b</i>.</p>"},
    {"term", " a", "<dl><dt>a</dd></dl>"},
    {"item", " a", "<ul><li>a</li></ul>"},
    {"step", " a", "<ol><li>a</li></ol>"},
    {"param", "{a}", "<p><b>a</b> &mdash;</p>"},
    {"return", "", "<p><b>p</b> returns &mdash;</p>"},
    {"img", "{a&}", "<p><img src=\"a&amp;\" /></p>"},
    {"screen", "{../a}{b&}", "<p><img class=\"screen\" src=\"../a.png\" alt=\"b&amp;\"/></p>"},
    {"xref", "{a}{b&}", "<p><a href=\"a.htm\">b&amp;</a></p>"},
    {"ref", "{a.htm}", "<p><a href=\"a.htm\">a.htm</a></p>"},
    {"titleref", "{http:a}", "<p><big><a href=\"http:a\" target=\"_blank\">http:a</a></big><br/></p>"},
    {"show", "{a<}", "<pre>a&lt;;</pre>"},
    {"synopsis", " a", "<h5>Synopsis</h5><pre>a</pre>"},
    {"h1", " a<\xC2\xB7", "<h1>a&lt;&middot;</h1>"},
    {"h2", "{a}b", "<h2>a</h2><p>b</p>"},
    {"h3", " a", "<h3>a</h3>"},
    {"task", " a", "<h5>a</h5>"},
    {"side", " a", "<h6>a</h6>"},
    {"section", " a", "<h3>a</h3>"},
    {"subsection", " a", "<h4>a</h4>"},
    {"copy", "{<hr>}\\copy \\b<\xC2\xB7{ ", "<hr>\\b<\xB7{ "},
    {"style", "{div}a", "<div>a</div>"},
    {"rem", " a", ""},
    {"fixme", "{a} b", ""},
    {"review", "", ""},
    {"envpage", "",
     s_grid + "cellpadding=\"2\" cellspacing=\"0\" border=\"0\" cols=\"200pt 200pt\">\n<tr bgcolor=\"#cccccc\"><th>"
              "Property</th><th>Description</th></tr>\n</table>"},
};

std::vector<CommandRow> allRows()
{
    std::vector<CommandRow> rows(std::begin(s_rows), std::end(s_rows));
    for (const auto &[name, html] : s_symbols)
        rows.push_back({name, "", "<p>" + std::string(html) + "</p>"});
    for (const auto &[name, opening, closing] : s_styles)
        rows.push_back({name, "{x}", "<p>" + std::string(opening) + "x" + std::string(closing) + "</p>"});
    for (const auto &[name, html] : s_sections)
        rows.push_back({name, " x", std::string(html) + "<p>x</p>"});
    return rows;
}

} // namespace

TEST(Commands, EachWritesWhatItsRowSays)
{
    std::set<std::string_view> tested;
    for (const CommandRow &row : allRows()) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(tested.insert(row.name).second);
        const MarkupRun run = runMarkup("\\split{p}\n\\" + std::string(row.name) + row.after);
        const bool otherPage = row.body.starts_with("q.htm: ");
        const std::string pages = row.body.empty() ? "" : (otherPage ? "" : "p.htm: ") + row.body + "\n";
        EXPECT_EQ(run.pages, pages);
        EXPECT_EQ(run.contents, "<contents>\n<content url=\"p.htm\">\n" + row.contents + "</content>\n</contents>");
    }
    std::set<std::string_view> known;
    for (const Command &command : CommandTable::rows())
        known.insert(command.name);
    EXPECT_EQ(tested, known);
}
