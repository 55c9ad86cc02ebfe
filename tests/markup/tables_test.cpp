#include "markup/tables.h"

#include <gtest/gtest.h>

using namespace tavidoc;

TEST(Tables, WidthsShareThePageOutFromLeftToRight)
{
    struct Row
    {
        const char *list, *inches;
        std::optional<std::string_view> invalid = {};
    };
    for (const Row &row : {
             Row{"*", "5in"},
             Row{"2in,*", "2in,3in"},
             Row{"3cm,*", "1.1811in,3.8189in"},
             Row{" 1.5 , 2 in,\t*", "1.5in,2in,1.5in"},
             Row{"*,*,1", "5in,0in,1in"},
             Row{"6,*,.5", "6in,-1in,0.5in"},
             Row{"1e-7in,1e6in", "1e-07in,1e+06in"},
             Row{"", "0in", ""},
             Row{",*,", "0in,5in,0in", ""},
             Row{"in,cm,**", "0in,0in,0in", "in"},
             Row{"1, nan ,infin,1e999,0x1", "1in,0in,0in,0in,0in", "nan"},
             Row{"2mm,1,5IN", "0in,1in,0in", "2mm"},
         }) {
        const ColumnWidths widths = columnWidths(row.list);
        EXPECT_EQ(widths.inches, row.inches) << row.list;
        EXPECT_EQ(widths.invalid, row.invalid) << row.list;
        EXPECT_EQ(widths.count, columnCount(row.list)) << row.list;
    }
}

TEST(Tables, MatrixColumnsShareTheWidthInWholePercent)
{
    std::string percents;
    for (const std::size_t count : {1, 2, 3, 4, 7, 33, 101})
        percents += std::to_string(matrixColumnPercent(count)) + " ";
    EXPECT_EQ(percents, "97 47 30 22 11 0 -3 ");
}
