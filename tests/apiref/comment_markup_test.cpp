#include "apiref/comment_markup.h"

#include <QString>

#include <gtest/gtest.h>

#include <QString>

using namespace tavidoc;

TEST(CommentMarkup, RowsOfComments)
{
    struct Row
    {
        const char *name;
        const char *comment;
        const char *markup;
    };
    constexpr Row rows[] = {
        {"the lines of the delimiters go", "! first\n a\n  b\n last", " a\n  b"},
        {"a comment of two lines is empty", "! first\n last ", ""},
        {"a comment of one line is empty", "! all ", ""},
        {"decoration goes where it is", "!\n\n  * a\n *b\n c\n *  d\n *\n", "\na\nb\n c\n d\n"},
        {"the first line sets the width", "!\n ** a\n  **b\n * c\n **** d\n **\n  e\n ", "a\nb\nc\n** d\n\n  e"},
        {"one asterisk is one", "!\n * a\n ** b\n ***c\n\t*\td\n ", "a\n* b\n**c\nd"},
        {"without decoration on the first line there is none", "!\n a\n * b\n ", " a\n * b"},
        {"the name", "!\n \\this and \\thisisit\n ", " f() and f()isit"},
        {"code without a language is C and loses its indentation",
         "!\n\\code\n    a\n      b\n  c\n\\endcode\n    d\n ", "\\code{c}\na\n  b\nc\n\\endcode\n    d"},
        {"code with a language loses it too", "!\n * \\code{js}\n *   a\n *  \\endcode\n *  b\n */",
         "\\code{js}\na\n\\endcode\n b"},
        {"what only looks like code", "!\n\\coded \\\\code \\code\n", "\\coded \\\\code \\code{c}"},
        {"letters and digits continue a command's name", "!\n\\codea \\codez \\codeA \\codeZ \\code0 \\code9 \\code/\n",
         "\\codea \\codez \\codeA \\codeZ \\code0 \\code9 \\code{c}/"},
        {"signs next to letters and digits do not", "!\n\\code: \\code@ \\code[ \\code` \\code{x\n",
         "\\code{c}: \\code{c}@ \\code{c}[ \\code{c}` \\code{x"},
        {"tabs are blanks, a decorated line may be empty", "!\n\t*\ta\n\t*\n\t*", "a\n"},
        {"a first line of blanks decides nothing", "!\n \n * a\n\n *\n", " \na\n\n"},
        {"each block of code has an indentation of its own",
         "!\n\\code\n    a\n\\endcode\n\\code\n  b\n c\n    d\n\\endcode\n",
         "\\code{c}\na\n\\endcode\n\\code{c}\nb\nc\n  d\n\\endcode"},
        {"a backslash ends a line", "!\n\\\n\\", "\\"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(commentMarkup(row.comment, "f()"), row.markup) << row.name;
}

TEST(CommentMarkup, TextIsWhatDecorationLeaves)
{
    for (const char16_t *const none : {u"", u"! a", u"! a\n b", u"!\n \t \n b", u"!\n *\n * \t\n\n\t*\n b",
                                       u"!\n \r\n \v\f\r\n", u"!\n *", u"!\n **\n *\n **\n "})
        EXPECT_FALSE(hasInnerText(none)) << QString::fromUtf16(none).toStdString();
    for (const char16_t *const some : {u"!\na\n", u"!\n\n  a\n", u"!\n *\n * a\n", u"!\n *\n a\n", u"!\n \r\n *\n",
                                       u"!\n *\n\n *a\n b", u"!\n\r\n a\n", u"!\n *\n **\n ", u"!\n **\n *** \n "})
        EXPECT_TRUE(hasInnerText(some)) << QString::fromUtf16(some).toStdString();
}

TEST(CommentMarkup, OverviewsKeepTheirFirstLine)
{
    EXPECT_EQ(overviewMarkup("\\overview The text\n * goes on\n * here\n "), "\\overview The text\ngoes on\nhere\n ");
    EXPECT_EQ(overviewMarkup("\\overview\n ** a\n * b\n *** c\n "), "\\overview\na\nb\n* c\n ");
    EXPECT_EQ(overviewMarkup("one line"), "one line");
    EXPECT_EQ(overviewMarkup("* a\n"), "* a\n");
    EXPECT_EQ(overviewMarkup("\n\n b\n* c"), "\n\n b\n* c");
}
