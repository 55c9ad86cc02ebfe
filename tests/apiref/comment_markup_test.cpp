#include "apiref/comment_markup.h"

#include <QString>

#include <gtest/gtest.h>

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
    };
    for (const Row &row : rows)
        EXPECT_EQ(commentMarkup(row.comment, "f()"), row.markup) << row.name;
}

TEST(CommentMarkup, OverviewsKeepTheirFirstLine)
{
    EXPECT_EQ(overviewMarkup("\\overview The text\n * goes on\n * here\n "), "\\overview The text\ngoes on\nhere\n ");
    EXPECT_EQ(overviewMarkup("\\overview\n ** a\n * b\n *** c\n "), "\\overview\na\nb\n* c\n ");
    EXPECT_EQ(overviewMarkup("one line"), "one line");
}

TEST(CommentMarkup, TextIsWhatDecorationLeaves)
{
    for (const char16_t *comment : {u"!", u"! a", u"!\n *\n * \n ", u"!\n **\n *\n **\n ", u"!\n\n \t\n "})
        EXPECT_FALSE(hasInnerText(comment)) << QString::fromUtf16(comment).toStdString();
    for (const char16_t *comment : {u"!\n *\n **\n ", u"!\n **\n *** \n ", u"!\n a\n ", u"!\n\n * a\n "})
        EXPECT_TRUE(hasInnerText(comment)) << QString::fromUtf16(comment).toStdString();
}
