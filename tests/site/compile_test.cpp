#include "base/hexception.h"
#include "base/text_escape.h"
#include "pages/page_encoding.h"
#include "tests/site/compile_run.h"
#include "tests/support/script_run.h"

#include <gtest/gtest.h>

#include <map>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

struct TextRow
{
    const char *name;
    QString input;
    std::string_view source;
    std::string_view expected;
};

std::string rowName(const testing::TestParamInfo<TextRow> &row)
{
    return row.param.name;
}

class CompiledFinding : public testing::TestWithParam<TextRow>
{
};

class CompiledForeignCommand : public testing::TestWithParam<TextRow>
{
};

class CompiledLink : public testing::TestWithParam<TextRow>
{
};

class CompiledContents : public testing::TestWithParam<TextRow>
{
};

std::string_view kindText(RecordLink::Kind kind)
{
    constexpr std::string_view names[] = {"resolved", "open", "external", "raw"};
    return names[static_cast<std::size_t>(kind)];
}

/// The links of all pages, as "LINE KIND TARGET (PAGE) CAPTION? ELEMENT".
std::string linksOf(const RecordWithBodies &record)
{
    std::string text;
    for (const RecordPage &page : record.head.pages) {
        for (const RecordLink &link : page.links) {
            text += std::to_string(link.place.line) + " " + std::string(kindText(link.kind)) + " " + link.target;
            text += link.page.empty() ? "" : " (" + link.page + ")";
            text += link.hasCaption ? " captioned " : " ";
            text += std::string(partOf(record, page, link)) + "\n";
        }
    }
    return text;
}

/// The contents as "DEPTH LINE KIND TARGET 'TITLE'".
std::string contentsOf(const RecordWithBodies &record)
{
    constexpr std::string_view kinds[] = {"page", "title", "include"};
    std::string text;
    for (const RecordEntry &entry : record.head.contents) {
        text += std::string(2 * entry.depth, ' ') + std::to_string(entry.place.line) + " ";
        text += std::string(kinds[static_cast<std::size_t>(entry.kind)]) + " " + entry.target;
        text += entry.title.empty() ? "" : " '" + entry.title + "'";
        text += entry.noRoot ? " no_root\n" : "\n";
    }
    return text;
}

} // namespace

TEST_P(CompiledFinding, HasTheNameOfItsCheckAndItsPlace)
{
    EXPECT_EQ(findingsOf(recordOf(GetParam().input, GetParam().source)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    OfMarkup, CompiledFinding,
    testing::Values(
        TextRow{"a_missing_include", u"docs/a.dg"_s, "\\split a\n\\include part/b.dg\nText.\n",
                "docs/a.dg:2: missing-include: \\include: the file \"part/b.dg\" cannot be opened\n"},
        TextRow{
            "a_directive_that_is_none", u"a.dg"_s, "\\split a\n@Override\n@arm\n@avr\n@Other\n@end\n@end\n",
            "a.dg:2: swallowed-line: the line \"@Override\" is dropped: lines that begin with \"@\" are directives\n"},
        TextRow{
            "a_directive_in_a_listing", u"a.dg"_s, "\\split a\n\\code{java}\n  @Override\nint f();\n\\endcode\n",
            "a.dg:3: swallowed-line: the line \"@Override\" is dropped: lines that begin with \"@\" are directives; "
            "use \\present for this listing\n"},
        TextRow{
            "a_longer_word_than_def_and_an_end_of_nothing", u"a.dg"_s, "\\split a\n@default x\n@def a b\n@end\n",
            "a.dg:2: swallowed-line: the line \"@default x\" is dropped: lines that begin with \"@\" are directives\n"
            "a.dg:4: swallowed-line: the line \"@end\" is dropped: lines that begin with \"@\" are directives\n"},
        TextRow{
            "a_comment_in_a_listing_only", u"a.dg"_s,
            "% one\n\\split a\n% two\n\\pre\n% three\nx\n%\n\\endpre\n% four\n",
            "a.dg:5: swallowed-line: the line \"% three\" is dropped: lines that begin with \"%\" are comments; use "
            "\\present for this listing\n"
            "a.dg:7: swallowed-line: the line \"%\" is dropped: lines that begin with \"%\" are comments; use "
            "\\present for this listing\n"},
        TextRow{"a_page_made_twice", u"a.dg"_s, "\\split a\nOne.\n\\split b\nTwo.\n\\split a\nThree.\n",
                "a.dg:5: duplicate-page: page \"a\" replaces the one that begins on line 1\n"},
        TextRow{"an_error", u"a.dg"_s, "\\split a\n\\wrong\n", "a.dg:2: markup: \\wrong: unknown command\n"},
        TextRow{"an_unknown_command_like_a_known_one", u"a.dg"_s, "\\split a\n\\presnet x\n\\bold{x}\n\\zz\n\\q1\n",
                "a.dg:2: markup: \\presnet: unknown command; did you mean \"\\present\"?\n"
                "a.dg:3: markup: \\bold: unknown command; did you mean \"\\b\"?\n"
                "a.dg:4: markup: \\zz: unknown command\n"
                "a.dg:5: markup: \\q1: unknown command\n"},
        TextRow{
            "text_that_browsers_take_for_a_tag", u"a.dg"_s,
            "\\split a\nA vector<int>,\n\\tt{Outcome<T>} and \\<T\\> and <name>Ann</name>.\n\nGive <file-name> if i "
            "<n.\n"
            "\\code\nvector<int>\n\\endcode\n",
            "a.dg:2: unknown-tag: \"<int>\" is not an HTML tag, so browsers do not show it: write \"\\<int\\>\"\n"
            "a.dg:3: unknown-tag: \"<T>\" is not an HTML tag, so browsers do not show it: write \"\\<T\\>\"\n"
            "a.dg:3: unknown-tag: \"<name>\" is not an HTML tag, so browsers do not show it: write \"\\<name\\>\"\n"
            "a.dg:5: unknown-tag: \"<file-name>\" is not an HTML tag, so browsers do not show it: write "
            "\"\\<file-name\\>\"\n"
            "a.dg:5: unknown-tag: browsers take \"<n.\" for the beginning of a tag: write \"\\<\" for the character "
            "\"<\"\n"},
        TextRow{"text_that_is_HTML", u"a.dg"_s,
                "\\split a\n<B>x</B> <br/> a < b, 1<2 <my-part>x</my-part> <!-- <T> -->\n"
                "\\html{<svg><path d=\"\"/></svg><script>if (a<n) b();</script><style>p>q{}</style>}\n"
                "<a href=\"x.htm?a=b>c\">x</a>10<>km<input disabled>\n\\document{<T>}\n",
                ""},
        TextRow{"elements_that_are_not_meant", u"a.dg"_s, "\\split a\nStack<U> and if (a<p && c>d).\n",
                "a.dg:2: unknown-tag: \"<U>\" is not an HTML tag, so browsers do not show it: write \"\\<U\\>\"\n"
                "a.dg:2: unknown-tag: \"<p && c>\" is not an HTML tag, so browsers do not show it: write \"\\<p && "
                "c\\>\"\n"},
        TextRow{
            "more_cells_than_columns", u"a.dg"_s,
            "\\split a\n\\table{1in,*}\n|| A || B | C\n| a | b\n| a\n | b | c | d\n||- Group | text\n| a | b "
            "|\n\\endtable\n"
            "\\matrix{*}\n| a | b\n\\endmatrix\n",
            "a.dg:3: surplus-cell: this row has more cells than its table, which has 2 columns: remove the bar, write "
            "\"\\|\" for a bar in the text, or add a width to \\table\n"
            "a.dg:6: surplus-cell: this row has more cells than its table, which has 2 columns: remove the bar, write "
            "\"\\|\" for a bar in the text, or add a width to \\table\n"
            "a.dg:8: surplus-cell: this row has more cells than its table, which has 2 columns: remove the bar, write "
            "\"\\|\" for a bar in the text, or add a width to \\table\n"
            "a.dg:11: surplus-cell: this row has more cells than its matrix, which has 1 column: remove the bar, write "
            "\"\\|\" for a bar in the text, or add a column to \\matrix\n"},
        TextRow{"an_order_of_groups_that_do_not_exist", u"a.dg"_s,
                "\\split a\n\\ingroup Types\n\\split b\n\\grouporder Gone\n\\grouporder Typs, Types, ,Other\nText.\n",
                "a.dg:5: unknown-name: \\grouporder: nothing is in the group \"Typs\"; did you mean \"Types\"?\n"
                "a.dg:5: unknown-name: \\grouporder: nothing is in the group \"Other\"\n"},
        TextRow{"a_warning", u"a.dg"_s, "\\split a\n\\table{*}\n| a\n",
                "a.dg:2: markup-warning: this table or matrix is still open at the end of the document\n"},
        TextRow{"names_that_are_unknown", u"a.dg"_s,
                "\\split a\n\\key{K}\n\\menu{M}\n\\tip{T}\n\\property{P}\n\\icon{I}\n\\choose{C}\n",
                "a.dg:2: unknown-name: Can't find K in key scheme\n"
                "a.dg:3: unknown-name: Can't find M in message scheme\n"
                "a.dg:4: unknown-name: \\tip: no tip for \"T\": expected an item with a tip in messages.xml\n"
                "a.dg:5: unknown-name: \\property: unknown property \"P\": expected a name from properties.xml\n"
                "a.dg:6: unknown-name: \\icon: unknown icon \"I\": expected the name of a built-in icon\n"
                "a.dg:7: unknown-name: Can't find C in message scheme\n"
                "a.dg:7: unknown-name: missing both menu path and accelerator for C\n"},
        TextRow{"contents_that_are_not_XML", u"a.dg"_s,
                "\\split a\nA.\n\\rawcontent <content url=\"b.htm\"></include>\n\\split c\nC.\n",
                "a.dg:3: contents-xml: Opening and ending tag mismatch.\n"},
        TextRow{"contents_with_an_unknown_element", u"a.dg"_s, "\\split a\nA.\n\\rawcontent <x/><content/>\n",
                "a.dg:3: contents-xml: unknown element \"x\": expected \"content\" or \"include\"\n"
                "a.dg:3: contents-xml: an entry without a page and a title: expected \"url\" or \"title\"\n"},
        TextRow{
            "an_unknown_suffix", u"docs/manual.v2.dg"_s, "\\split a\nText.\n",
            "docs/manual.v2.dg:0: unknown-suffix: the name has the suffix \"v2.dg\": expected \"dg\" or \"h\" after "
            "the first dot\n"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    OfHeaders, CompiledFinding,
    testing::Values(
        TextRow{
            "a_comment_that_documents_nothing", u"inc/a.h"_s,
            "/*!\n * One.\n */\n\n\n\nint a;\n/*!\n * Two.\n */\nint b;\n/*!\n * Three.\n */\n",
            "inc/a.h:1: stray-comment: this comment documents nothing: expected a declaration directly after it (an "
            "overview begins with \"/*! \\overview\")\n"
            "inc/a.h:12: stray-comment: this comment documents nothing: expected a declaration directly after it (an "
            "overview begins with \"/*! \\overview\")\n"},
        TextRow{"no_comment_of_another_kind", u"a.h"_s,
                "/*!! Overview. */\n/* plain */\n/*** other */\nint a; /*!< behind */\n/*! \\region x */\n", ""},
        TextRow{"text_on_the_first_and_the_last_line", u"a.h"_s,
                "/*! First.\n * Second.\n * Last. */\nint a;\n/*! Only. */\nint b;\n/*!\n */\nint c;\n",
                "a.h:5: comment-first-line: the text on the first line of a comment is not used: begin it on the next "
                "line\n"
                "a.h:7: markup-warning: the comment of c has no text\n"
                "a.h:1: comment-first-line: the text on the first line of a comment is not used: begin it on the next "
                "line\n"
                "a.h:3: comment-first-line: the text on the last line of a comment is not used: write \"*/\" on a line "
                "of its own\n"},
        TextRow{"an_error_in_a_comment", u"a.h"_s, "/*!\n * \\split x\n */\nint f(int a);\n",
                "a.h:2: markup: \\split: not allowed in header comments\n"}),
    rowName);

TEST_P(CompiledLink, IsKnownWithItsElement)
{
    EXPECT_EQ(linksOf(recordOf(GetParam().input, GetParam().source)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    OfDeclarations, CompiledFinding,
    testing::Values(
        TextRow{
            "without_a_comment", u"inc/a.h"_s,
            "#ifndef A_H\n#define A_H\n#define SQUARE(x) ((x) * (x))\n/*!\n * Text.\n */\nclass Buffer\n{\npublic:\n"
            "  Buffer();\n  ~Buffer();\n  Buffer(const Buffer &) = delete;\n  /** Other. */\n  void push(int a);\n"
            "  int size;\nprotected:\n  void inner();\nprivate:\n  class Secret { public: void f(); };\n};\n"
            "namespace tools {\nenum Colour { Red };\nenum { Nameless };\n}\nnamespace {\nvoid hidden();\n}\n"
            "class Later;\nstruct Later { int a; };\nvoid f(int a);\n/*!\n * Text.\n */\nvoid g(int a);\n"
            "void g(int b);\nvoid g(char a);\n#endif\n",
            "inc/a.h:29: undocumented: struct \"Later\" has no documentation comment\n"
            "inc/a.h:10: undocumented: function \"Buffer::Buffer\" has no documentation comment\n"
            "inc/a.h:14: undocumented: function \"Buffer::push\" has no documentation comment\n"
            "inc/a.h:30: undocumented: function \"f\" has no documentation comment\n"
            "inc/a.h:36: undocumented: function \"g\" has no documentation comment\n"
            "inc/a.h:22: undocumented: enum \"tools::Colour\" has no documentation comment\n"
            "inc/a.h:3: undocumented: macro \"SQUARE\" has no documentation comment\n"
            "inc/a.h:13: foreign-command: comments that begin with \"/**\" are not used: begin documentation "
            "comments with \"/*!\"\n"},
        TextRow{
            "macros_for_other_declarations", u"a.h"_s,
            "// A.\n#pragma once\n#  ifndef A_H\n#define A_H 1\n#define A_CALL __attribute__((pure))\n"
            "#define A_API A_VISIBLE\n#define A_WITH(x) [[gnu::aligned(x)]]\n#ifndef A_SIZE\n#define A_SIZE 1\n#endif\n"
            "/*!\n * Text.\n */\nA_API int f();\n#endif\n",
            "a.h:9: undocumented: macro \"A_SIZE\" has no documentation comment\n"},
        TextRow{"with_one_misspelling", u"a.h"_s,
                "/*!\n * \\parm{size} Bytes.\n * \\param{text} Text.\n */\nint f(int size, int text);\n"
                "/*!\n * \\param{width} Bytes.\n */\nint g(int size);\n",
                "a.h:2: markup: \\parm: unknown command; did you mean \"\\param\"?\n"
                "a.h:7: param-mismatch: \"g\" has no argument \"width\": expected \"size\"\n"},
        TextRow{"in_an_order_of_groups", u"a.h"_s,
                "/*! \\overview\n * \\grouporder Types, Tools\n */\n/*!\n * \\ingroup Tools\n */\nint f();\n",
                "a.h:2: unknown-name: \\grouporder: nothing is in the group \"Types\"\n"},
        TextRow{"none_of_which_has_a_comment", u"a.h"_s, "/*!!\n * Overview.\n */\nvoid f(int a);\nclass A {};\n", ""},
        TextRow{"with_other_parameters", u"a.h"_s,
                "/*!\n * Text.\n * \\param{size} Bytes.\n *\n * \\param{tect} Text.\n * \\return Nothing.\n */\n"
                "static inline void f(int size, const char *text, int __flags);\n"
                "/*!\n * \\param{x, *y} Two.\n * \\param{flags} Shown without underscores.\n * \\param{...} More.\n"
                " * \\return A number.\n */\nint g(int x, int y[], int __flags, ...);\n"
                "/*!\n * \\code\n * \\param{no}\n * \\endcode\n * \\\\param{no} \\return\n */\nvoid *h(int a);\n"
                "/*!\n * \\param{y} Not x.\n */\n#define SQUARE(x) ((x) * (x))\n"
                "/*!\n * \\param{any} Of a prototype without names.\n */\nvoid i(int, char *);\n"
                "/*!\n * \\param{member} Of something that is not called.\n */\nstruct S { int member; };\n",
                "a.h:6: param-mismatch: \"f\" returns nothing: remove \"\\return\"\n"
                "a.h:5: param-mismatch: \"f\" has no argument \"tect\"; did you mean \"text\"?\n"
                "a.h:1: param-mismatch: the argument \"flags\" of \"f\" has no \"\\param\"\n"
                "a.h:24: param-mismatch: \"SQUARE\" has no argument \"y\": expected \"x\"\n"}),
    rowName);

TEST_P(CompiledForeignCommand, SaysWhatToWriteInstead)
{
    const RecordWithBodies record = recordOf(GetParam().input, GetParam().source);
    std::string text;
    for (const RecordFinding &finding : record.head.findings) {
        if (finding.check == "foreign-command")
            text += std::to_string(finding.place.line) + (finding.isRaised ? "! " : " ") + finding.text + "\n";
    }
    EXPECT_EQ(text, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    OfHeaders, CompiledForeignCommand,
    testing::Values(
        TextRow{
            "one_or_two_in_a_comment", u"a.h"_s,
            "/*!!\n * @file a.h\n */\n/*!\n * @param[in] size of it\n * \\returns a number, see me@example.org.\n */\n"
            "int f(int size);\n",
            "5 \"@param size\" is a command of another tool: write \"\\param{size}\"\n"
            "6 \"\\returns\" is a command of another tool: write \"\\return\"\n"
            "2 \"@file\" is a command of another tool: remove it\n"},
        TextRow{"three_in_a_comment", u"a.h"_s,
                "/*!\n * \\brief: Text with \\c code.\n * @see g\n * \\param{a} Fine.\n * \\code\n * @param x\n * "
                "\\endcode\n"
                " * \\note Fine. \\tt{@return} \\\\returns\n */\nint f(int a);\n",
                "2! \"\\brief:\" is a command of another tool: write \"\\brief\"\n"
                "2! \"\\c code\" is a command of another tool: write \"\\tt{code}\"\n"
                "3! \"@see\" is a command of another tool: write \"\\sa\"\n"},
        TextRow{
            "comments_of_another_form_once", u"a.h"_s,
            "//////////\n// plain\nint a; ///< after\n/*****\n * x\n */\n  /// One.\n  /// @return x\nint f(int a);\n"
            "/// Two.\nint g(int a);\n/** Three */\nint h(int a);\n",
            "7 comments that begin with \"///\" are not used: begin documentation comments with \"/*!\"\n"},
        TextRow{"comments_of_another_form_with_three_commands", u"a.h"_s,
                "/// One.\nint f(int a);\n/*!\n/// inside\n */\nint b;\n/**\n * @brief x\n * @param a x\n * @return "
                "x\n */\n"
                "int g(int a);\n",
                "7! comments that begin with \"/**\" are not used: begin documentation comments with \"/*!\"\n"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    OfRecords, CompiledLink,
    testing::Values(
        TextRow{"resolved_by_title_and_by_name", u"a.dg"_s,
                "\\split a\n\\title One & all\n\\xref{b} \\xref{Two}\n\\ref{b.htm}{cap}\n\\split b\n\\title Two\n"
                "\\xref{One & all}\n",
                "3 resolved b (b) <a href=\"b.htm\">Two</a>\n"
                "3 resolved Two (b) <a href=\"b.htm\">Two</a>\n"
                "4 resolved b.htm (b) captioned <a href=\"b.htm\">cap</a>\n"
                "7 resolved One & all (a) <a href=\"a.htm\">One &amp; all</a>\n"},
        TextRow{"open", u"a.dg"_s,
                "\\split a\n\\xref{x&y} \\titleref{ns::f}{g} \\xref{none}\n\\title Only\n\\split none\n\\title None\n",
                "2 open x&y <a href=\"x&amp;y.htm\">x&amp;y</a>\n"
                "2 open ns::f captioned <a href=\"./ns::f.htm\">g</a>\n"
                "2 open none <a href=\"none.htm\">None</a>\n"},
        TextRow{"to_a_title_whose_page_is_empty", u"a.dg"_s, "\\split a\n\\xref{None}\n\\split none\n\\title None\n",
                "2 open None <a href=\"none.htm\">None</a>\n"},
        TextRow{"external", u"a.dg"_s, "\\split a\n\\xref{https://e.x/?a=1&b}\n",
                "2 external https://e.x/?a=1&b <a href=\"https://e.x/?a=1&amp;b\" "
                "target=\"_blank\">https://e.x/?a=1&amp;b</a>\n"},
        TextRow{"in_tables_lists_styles_and_synopses", u"a.dg"_s,
                "\\split a\n\\table{*,*}\n|| \\xref{h} || b\n| \\xref{c}   | d\n||- \\xref{g}\n\\endtable\n"
                "\\item{\\xref{l}} \\b{\\xref{m}}\n\n\\synopsis\nint \\xref{n};\n\n\\code\nx\n\n\n\\endcode\n\\xref{o}",
                "3 open h <a href=\"h.htm\">h</a>\n"
                "4 open c <a href=\"c.htm\">c</a>\n"
                "5 open g <a href=\"g.htm\">g</a>\n"
                "7 open l <a href=\"l.htm\">l</a>\n"
                "7 open m <a href=\"m.htm\">m</a>\n"
                "10 open n <a href=\"n.htm\">n</a>\n"
                "17 open o <a href=\"o.htm\">o</a>\n"},
        TextRow{"raw_with_the_line_where_it_is", u"a.dg"_s,
                "\\split a\nText\n<a href=\"x.htm#y\">x</a> and <A HREF='q&amp;r'>q</a\n>.\n"
                "\\html{\n<a title=\"a>b\" href=z>z}\\xref{i}\n<a name=\"n\">no</a>\n",
                "3 raw x.htm#y captioned <a href=\"x.htm#y\">x</a>\n"
                "3 raw q&r captioned <A HREF='q&amp;r'>q</a\n>\n"
                "6 raw z captioned <a title=\"a>b\" href=z>z\n"
                "6 open i <a href=\"i.htm\">i</a>\n"},
        TextRow{"raw_but_no_tags_in_scripts_comments_and_declarations", u"a.dg"_s,
                "\\split a\n\\html{<!doctype html><!--><a href=a>a</a><script>if (1<b) '<a href=b>'</SCRIPT>"
                "<textarea><a href=c></textarea><a href=d>d</a>}\n",
                "2 raw a captioned <a href=a>a</a>\n2 raw d captioned <a href=d>d</a>\n"},
        TextRow{"of_a_header_and_its_summary", u"a.h"_s,
                "/*!!\n * \\xref{f}\n */\n/*!\n * \\brief See \\xref{S::m}{m}.\n */\nint f(int a);\nstruct S\n{\n"
                "/*!\n * Text.\n */\nint m;\n};\n",
                "5 resolved S::m (S.m) captioned <a href=\"S.m.htm\">m</a>\n"
                "2 resolved f (f) <a href=\"f.htm\">f</a>\n"
                "4 resolved f (f) captioned <a href=\"f.htm\" style=\"Heading\">f</a>\n"
                "5 resolved S::m (S.m) captioned <a href=\"S.m.htm\">m</a>\n"
                "10 resolved S::m (S.m) captioned <a href=\"S.m.htm\" style=\"Heading\">S::m</a>\n"}),
    rowName);

TEST_P(CompiledContents, AreReadFromTheLinesOfTheDocument)
{
    EXPECT_EQ(contentsOf(recordOf(GetParam().input, GetParam().source)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    OfRecords, CompiledContents,
    testing::Values(
        TextRow{
            "nested_by_levels_and_groups", u"a.dg"_s,
            "\\title Book & more\n\\split a\nA.\n\\contents down\n\\split b\nB.\n\\begin Group\n\\split c\nC.\n\\end\n"
            "\\contents top\n\\here\n\\split d\nD.\n",
            "1 title  'Book & more'\n2 page a\n  5 page b\n    7 title  'Group'\n      8 page c\n"},
        TextRow{"included", u"a.dg"_s,
                "\\split a\nA.\n\\include b.xml\n\\include gnu_c.xml\n\\include d\n"
                "\\rawcontent <content url=\"e.htm\" title=\"E &lt;\"><include filename=\"f.xml\" "
                "no_root=\"1\"/></content>\n",
                "1 page a\n  3 include b.xml no_root\n  4 include gnu_c.xml\n  5 include d\n  6 include e 'E <'\n"
                "    6 include f.xml no_root\n"},
        TextRow{"kept_up_to_a_fault", u"a.dg"_s,
                "\\split a\nA.\n\\contents <content title=\"x\">\n\\contents </p>\n\\split b\nB.\n",
                "1 page a\n  3 title  'x'\n"},
        TextRow{"of_a_header", u"a.h"_s, "/*!\n * Text.\n */\nint f(int a);\n\n/*!\n * Text.\n */\nint b;\n",
                "1 page a_h\n  6 page b\n  1 page f\n"},
        TextRow{"of_a_class_before_its_members", u"a.h"_s,
                "/*!\n * Text.\n */\nclass C\n{\n/*!\n * Text.\n */\nvoid z();\n/*!\n * Text.\n */\nint a;\n};\n",
                "1 page a_h\n  1 page C\n  10 page C.a\n  6 page C.z\n"}),
    rowName);

TEST(Compile, KnowsTheHeadingsOfAPage)
{
    const RecordWithBodies record =
        recordOf(u"a.dg"_s, "\\split a\n\\h1 Don't & do\n\\section Größe\n\\section Größe\n\\task 日本\n"
                            "\\html{<h2 id=\"own\">Own <b>id</b></h2><h3></h3><p id=\"grosse\">}\n");
    std::string text;
    for (const RecordHeading &heading : record.head.pages.at(0).headings) {
        text += bodyOf(record, record.head.pages[0]).substr(heading.offset, 3);
        text += " " + heading.id + (heading.hasId ? " own '" : " '") + heading.text + "'\n";
    }
    EXPECT_EQ(text, "<h1 dont-do 'Don't & do'\n<h3 grosse-2 'Größe'\n<h3 grosse-3 'Größe'\n<h5 section '日本'\n"
                    "<h2 own own 'Own id'\n");
    EXPECT_EQ(record.head.pages[0].anchors, (std::vector<std::string>{"grosse", "own"}));
}

TEST(Compile, KnowsImagesIconsAndListings)
{
    const RecordWithBodies record = recordOf(
        u"d/a.dg"_s, "\\split a\n\\img{p/x&y.png} \\screen{shot}{Caption} \\icon{CMake}\n<img alt=a src='r.png'>\n"
                     "\\code{python}\nif x &lt; y:\n\n\\endcode\n\\code\nint a;\n\\endcode\n\\pre\nz\n\\endpre\n");
    const RecordPage &page = record.head.pages.at(0);
    std::string text;
    for (const RecordImage &image : page.images)
        text += placeText(record, image.place) + " " + image.source + (image.isIcon ? " icon " : " ") +
                std::string(partOf(record, page, image)) + "\n";
    for (const RecordListing &listing : page.listings)
        text += listing.language + ": " + std::string(partOf(record, page, listing)) + "\n";
    EXPECT_EQ(text, "d/a.dg:2 p/x&y.png p/x&amp;y.png\nd/a.dg:2 shot.png shot.png\n"
                    "d/a.dg:2 images/CMake.png icon images/CMake.png\nd/a.dg:3 r.png r.png\n"
                    "python: if x &amp;lt; y:\n");
    ASSERT_EQ(record.head.icons.size(), 1);
    EXPECT_TRUE(record.head.icons[0].bytes.starts_with("\x89PNG"));
}

TEST(Compile, DescribesPages)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, "/*!!\n * Over.\n */\nnamespace n {\nclass C\n{\n/*!\n * \\brief Does \\b{it} \\xref{x}.\n"
                  " * \\ingroup G\n */\nvoid f(int a);\n};\n/*!\n * First one. Second.\n */\n#define M(x)\n}\n");
    std::string text;
    for (const RecordPage &page : record.head.pages)
        text += page.stem + "|" + page.title + "|" + page.declaration + "|" + page.qualifiedName + "|" + page.brief +
                "|" + page.group + "|" + placeText(record, page.place) + "|" + page.excerpt + "\n";
    EXPECT_EQ(text, "n.C.f|n::C::f|function|n::C::f|Does <b>it</b> x.|G|a.h:7|Does it x.\n"
                    "M|M|macro|M|First one.||a.h:13|First one. Second.\n"
                    "a_h|<a.h>|||||a.h:1|Over. G n::C::f Does it x. M First one. "
                    "Without documentation (1) n::C class line 5\n");
}

TEST(Compile, NamesReferencePagesByQualifiedNamesAndKeepsOverloadsTogether)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s,
        "/*!\n * Class. \\xref{Buffer} \\xref{push}\n */\nclass Buffer\n{\npublic:\n/*!\n * Makes.\n */\nBuffer();\n"
        "/*!\n * One int.\n */\nvoid push(int a);\n/*!\n * \\brief Text.\n * \\xref{clear}\n */\n"
        "void push(const char *text);\n/*!\n * Clears.\n */\nvoid clear();\n};\n"
        "/*!\n * Free \\xref{push}.\n */\nvoid clear();\n");
    std::string text;
    for (const RecordPage &page : record.head.pages)
        text += page.stem + "|" + page.title + "|" + page.brief + "|" + std::string(bodyOf(record, page)) + "\n";
    EXPECT_EQ(
        text.substr(0, text.find("a_h|")),
        "Buffer.Buffer|Buffer::Buffer|Makes.|<p>Makes.</p>\n"
        "Buffer.clear|Buffer::clear|Clears.|<p>Clears.</p>\n"
        "Buffer.push|Buffer::push|Text.|<h2>push(int a)</h2><p>One int.</p><h2>push(const char *text)</h2>"
        "<p>Text.</p><p><a href=\"Buffer.clear.htm\">clear</a></p>\n"
        "clear|clear|Free push.|<p>Free <a href=\"Buffer.push.htm\">push</a>.</p>\n"
        "Buffer|Buffer|Class.|<p>Class. <a href=\"Buffer.htm\">Buffer</a> <a href=\"Buffer.push.htm\">push</a></p>"
        "<h3>Constructors and Destructor</h3>\n<table class=\"members\">\n"
        "<tr><td><code><a href=\"Buffer.Buffer.htm\">Buffer</a>()</code></td><td>Makes.</td></tr>\n</table>\n"
        "<h3>Functions</h3>\n<table class=\"members\">\n"
        "<tr><td><code><a href=\"Buffer.push.htm\">push</a>(int a)</code></td><td>One int.</td></tr>\n"
        "<tr><td><code><a href=\"Buffer.push.htm\">push</a>(const char *text)</code></td><td>Text.</td></tr>\n"
        "<tr><td><code><a href=\"Buffer.clear.htm\">clear</a>()</code></td><td>Clears.</td></tr>\n</table>\n\n");
    EXPECT_EQ(findingsOf(record), "");
}

TEST(Compile, WritesTheHeadingOfOverloadsOnce)
{
    const RecordWithBodies record = recordOf(u"a.h"_s, "/*!\n * \\h1 \\this\n * One.\n * \\wrong\n */\nvoid f(int a);\n"
                                                       "/*!\n * \\h1 \\this\n */\nvoid f(long a);\n"
                                                       "/*!\n * \\h1 Other\n * Two.\n */\nvoid f(char a);\n"
                                                       "/*!\n * \\h1 \\this\n * Alone.\n */\nvoid g();\n");
    EXPECT_EQ(bodyOf(record, record.head.pages.at(0)),
              "<h1>f</h1><h2>f(int a)</h2><p>One.\n***ERROR*** \\wrong</p><h2>f(long a)</h2><h2>f(char a)</h2>"
              "<h1>Other</h1><p>Two.</p>");
    EXPECT_EQ(bodyOf(record, record.head.pages.at(1)), "<h1>g</h1><p>Alone.</p>");
    EXPECT_EQ(findingsOf(record), "a.h:4: markup: \\wrong: unknown command\n");
}

TEST(Compile, StatesAndColoursSynopsesAsTheLanguageDoes)
{
    const QTemporaryDir directory;
    writeBelow(
        directory, u"a.h"_s,
        "/*!\n * \\synopsis\n */\nenum class E : char { A, };\n/*!\n * Text.\n * \\show{A}\n */\nusing A = E;\n");
    const RecordWithBodies record = recordOf(directory, u"a.h"_s);
    std::string text;
    for (const RecordPage &page : record.head.pages)
        text += page.stem + "|" + page.declaration + "|" + std::string(bodyOf(record, page)) + "\n";
    EXPECT_NE(text.find("E|enum|"), std::string::npos) << text;
    EXPECT_NE(text.find("<pre><span class=\"zkt-code-keyword\">enum</span>"), std::string::npos) << text;
    EXPECT_NE(text.find("A|alias|<p>Text.\n</p>"), std::string::npos) << text;
    EXPECT_NE(text.find("<pre>using A = E;</pre>"), std::string::npos) << text;
}

TEST(Compile, KnowsTheOverloadsOfAPage)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, "class B\n{\n/*!\n * One.\n */\nvoid push(int a);\n/*!\n * Two.\n */\n"
                  "void push(const  char *text, void (*done)(int), std::map<int, int> &m = {}, ...) const;\n};\n"
                  "/*!\n * Three.\n */\nint f(void);\n");
    std::string text;
    for (const RecordPage &page : record.head.pages) {
        for (const RecordOverload &overload : page.overloads)
            text += page.stem + "(" + overload.types + ")" + (overload.qualifiers.empty() ? "" : " ") +
                    overload.qualifiers + " (" + overload.parameters + ") #" + overload.heading +
                    (page.isMember ? " member\n" : "\n");
    }
    EXPECT_EQ(text, "B.push(int) (int a) #push-int-a member\n"
                    "B.push(const char*,void(*)(int),std::map<int,int>&,...) const (const char*text,void(*done)(int),"
                    "std::map<int,int>&m,...) #push-const-char-text-void-done-int-std-map-int-int-m-const member\n"
                    "f() () #\n");
}

struct CodeRow
{
    const char *name;
    std::string_view source;
    std::string_view names; ///< "USE NAME" for each, with "*N" when it is there N times
};

class CompiledCode : public testing::TestWithParam<CodeRow>
{
};

TEST_P(CompiledCode, HasTheNamesThatMayBecomeLinks)
{
    const RecordWithBodies record = recordOf(u"a.dg"_s, "\\split a\n" + std::string(GetParam().source) + "\n");
    const RecordPage &page = record.head.pages.at(0);
    constexpr std::string_view uses[] = {"text", "code", "dot", "type"};
    std::string text;
    for (const RecordName &name : page.names) {
        text += std::string(uses[static_cast<std::size_t>(name.use)]) + " " + name.name;
        text += name.offsets.size() == 1 ? "\n" : "*" + std::to_string(name.offsets.size()) + "\n";
        const std::string last =
            name.use == RecordName::Use::Text ? name.name : name.name.substr(name.name.rfind(':') + 1);
        for (const std::uint64_t offset : name.offsets)
            EXPECT_EQ(bodyOf(record, page).substr(offset, last.size()), last);
    }
    EXPECT_EQ(text, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    Elements, CompiledCode,
    testing::Values(
        CodeRow{"text_that_is_one_name",
                "\\tt{push} \\tt{a::b_2} \\tt{push()} \\tt{push(int)} \\tt{a b} \\tt{a.b} \\tt{::x} \\tt{x::} \\tt{2x} "
                "\\tt{} \\tt{\xC3\xA4} \\tt{\\b{q}}",
                "text push*2\ntext a::b_2\n"},
        CodeRow{"no_text_in_links_headings_and_names_of_files",
                "\\section \\tt{head}\n\\xref{p}{\\tt{cap}} \\html{<a href=\"x\"><tt>in</tt></a><tt>raw</tt>} "
                "\\file{make} \\tt{after}",
                "text raw\ntext after\n"},
        CodeRow{"a_listing",
                "\\code\n#include <stdio.h>\n#include \"push.h\"\nif (a.push(1) == NONE) // push it\n"
                "    p->pop(\"top\", 'c', b + 0x1F);\nu::v<w::x> \xC3\xA4x; /* y */ return z & MASK;\n\\endcode",
                "code a\ndot push\ncode NONE\ncode p\ndot pop\ncode b\ncode u\ncode u::v\ncode w\ncode w::x\ncode z\n"
                "code MASK\n"},
        CodeRow{"what_a_listing_declares_is_its_own",
                "\\code\nTimer *timer = make(a, b);\nconst Size size(3), &other = x;\nvoid run(Clock clock, Clock &);\n"
                "for (auto i : items) timer->run(size, i.clock);\nnamespace n { class C : public Base {}; }\n"
                "template <typename T> T f(T t);\n\\endcode",
                "code Timer\ncode make\ncode a\ncode b\ncode Size\ncode size*2\ncode x\ncode run\ncode Clock*2\ncode "
                "items\n"
                "dot run\ndot clock\ncode C\ncode Base\ncode f\n"},
        CodeRow{"the_type_of_a_result_after_an_arrow",
                "\\code\nauto f() const -> Box<int> { return g() -> h() + i -> j + k->l; }\n\\endcode",
                "code f\ncode Box\ncode g\ncode h\ncode i\ndot j\ncode k\ndot l\n"},
        CodeRow{"a_listing_in_another_language",
                "\\code{python}\npush()\n\\endcode\n\\pre\npush\n\\endpre\n\\code{xml}\n<push/>\n\\endcode", ""},
        CodeRow{"a_synopsis",
                "\\synopsis\nStatus push(Buffer *buffer, const t::Size &size = Size(\"a\"), Flag, \\xref{Linked} l); "
                "// note\n",
                "type Status\ntype push\ntype Buffer\ntype t\ntype t::Size\ntype Size\ntype Flag\n"},
        CodeRow{"no_listing_that_is_written_as_html", "\\html{<pre>Buffer b</pre>}", ""}),
    [](const auto &row) { return row.param.name; });

TEST(Compile, TakesAnyCode)
{
    for (const std::string piece : {"a::", "\"", "'", "/*", "a*", "<", "&", "x ", "->", "\\"}) {
        std::string code;
        while (code.size() < 200'000)
            code += piece;
        const RecordWithBodies record =
            recordOf(u"a.dg"_s, "\\split a\n\\synopsis\n" + code + "\n\n\\code\n" + code + "\n");
        std::size_t size = 0;
        for (const RecordName &name : record.head.pages.at(0).names)
            size += name.name.size();
        EXPECT_LT(size, 1'000'000U) << piece;
    }
}

TEST(Compile, RunsInTheDirectoryOfItsInput)
{
    const QTemporaryDir directory;
    writeBelow(directory, u"d/a.dg"_s, "\\split a\n\\include ./p/../b.dg\n\\present c.txt\n\\copyin none.htm\n");
    writeBelow(directory, u"d/b.dg"_s, "\\include ../e/f.dg\n<a\n href=\"q\">q</a>\n");
    QDir(directory.path()).mkpath(u"d/p"_s);
    writeBelow(directory, u"e/f.dg"_s, "\\oops\n");
    writeBelow(directory, u"d/c.txt"_s, "listing");
    const RecordWithBodies record = recordOf(directory, u"d/a.dg"_s);
    std::string files;
    for (const RecordFile &file : record.head.files)
        files += file.name + (file.found ? " " : "? ");
    EXPECT_EQ(files,
              "d/a.dg d/menus.xml? d/messages.xml? d/keys.xml? d/properties.xml? e/f.dg d/c.txt d/none.htm? d/b.dg ");
    EXPECT_EQ(findingsOf(record), "e/f.dg:1: markup: \\oops: unknown command\n"
                                  "d/a.dg:4: markup: \\copyin: cannot open \"none.htm\"\n");
    EXPECT_EQ(linksOf(record), "2 raw q captioned <a\n href=\"q\">q</a>\n");
    EXPECT_THROW(static_cast<void>(recordOf(directory, u"d/none.dg"_s)), HException);
}

/// \a html of a declaration's page without its synopsis, which is the site's own.
std::string withoutSynopsis(std::string html)
{
    const std::string_view opening = "<h5>Synopsis</h5><pre>";
    const std::size_t begin = html.find(opening);
    if (begin != std::string::npos)
        html.erase(begin + opening.size(), html.find("</pre>", begin) - begin - opening.size());
    return html;
}

TEST(Compile, HoldsExactlyTheBodiesThatTheProgramWrites)
{
    const QTemporaryDir directory;
    const QString inputs[] = {u"docs/manual/manual.dg"_s, u"examples/handbook/kettle.dg"_s,
                              u"examples/handbook/timer.h"_s};
    for (const QString &input : inputs) {
        const QFileInfo file(QStringLiteral(TAVIDOC_SOURCE_DIR "/") + input);
        const QString output = directory.filePath(file.fileName());
        runScript(directory, u"cd '%1' && $tavidoc -o '%2' '%3'"_s.arg(file.path(), output, file.fileName()));
        const RecordWithBodies record = compiled(file.filePath(), {});
        std::map<std::string, const RecordPage *> pages;
        for (const RecordPage &page : record.head.pages)
            pages[page.stem] = &page;
        EXPECT_EQ(pages.size(), QDir(output).entryList({u"*.htm"_s}).size()) << input.toStdString();
        for (const auto &[stem, page] : pages) {
            QByteArray encoded;
            appendLatin1(encoded, bodyOf(record, *page));
            QFile written(output + u'/' + QString::fromStdString(stem) + u".htm"_s);
            ASSERT_TRUE(written.open(QIODevice::ReadOnly)) << stem;
            const std::string writtenBody(bodyOf(written.readAll().toStdString()));
            if (input.endsWith(u".h"))
                EXPECT_EQ(withoutSynopsis(writtenBody), withoutSynopsis(encoded.toStdString())) << stem;
            else
                EXPECT_TRUE(writtenBody == encoded.toStdString()) << stem;
        }
        for (const RecordPage &page : record.head.pages) {
            for (const RecordLink &link : page.links) {
                const std::string_view element = partOf(record, page, link);
                EXPECT_TRUE(element.starts_with("<a ") && element.ends_with("</a>") && element.rfind("<a ") == 0)
                    << page.stem << ": " << element;
            }
            for (const RecordImage &image : page.images)
                EXPECT_EQ(partOf(record, page, image), escapedText(image.source));
        }
    }
}
