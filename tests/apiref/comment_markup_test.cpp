#include "apiref/comment_markup.h"

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
    EXPECT_EQ(overviewMarkup("one line"), "one line");
}
