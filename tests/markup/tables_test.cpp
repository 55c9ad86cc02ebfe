#include "markup/table_writer.h"
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

TEST(TableWriter, SeparatorsConsumeTheirBarsAndOpenRowsAndCells)
{
    struct Row
    {
        const char *text; // "@" is where the cursor is put
        const char *html; // after the opening and a first row with the cell "a"
        std::size_t taken;
        bool isGroup = false;
    };
    for (const Row &row : {
             Row{"a @| b", "a</td><td>", 1},
             Row{"a @|| b", "a</td><td>", 1},
             Row{"a\n @| b", "a</td></tr>\n<tr><td>", 1},
             Row{"@|- b", "a</td></tr>\n<tr><td>", 1},
             Row{"\n@||b", "a</td></tr>\n<tr bgcolor=\"#cccccc\"><th>\n", 2},
             Row{"\n@||- b", "a</td></tr>\n<tr><td colspan=\"100%\"><b>", 3, true},
         }) {
        std::string tag = "p";
        HtmlBlocks blocks(tag);
        TableWriter table(blocks);
        EXPECT_FALSE(table.isOpen());
        table.openTable(nullptr);
        EXPECT_TRUE(table.isBeforeFirstRow());
        table.beginText();
        table.beginText();
        EXPECT_FALSE(table.isBeforeFirstRow());
        blocks.text() += "a";
        std::string text = row.text;
        const std::size_t offset = text.find('@');
        text.erase(offset, 1);
        MarkupCursor cursor(text);
        cursor.moveTo(offset);
        EXPECT_EQ(table.takeSeparator(cursor), row.isGroup) << row.text;
        EXPECT_EQ(cursor.offset(), offset + row.taken) << row.text;
        constexpr std::string_view firstRow = "<tr bgcolor=\"#cccccc\"><td>\n";
        EXPECT_EQ(blocks.text().substr(blocks.text().find(firstRow) + firstRow.size()), row.html) << row.text;
        blocks.setMode(BlockMode::None);
        EXPECT_FALSE(table.isOpen());
    }
}
