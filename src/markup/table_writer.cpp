#include "markup/table_writer.h"

#include "base/white_space.h"

#include <string>

namespace tavidoc {

namespace {

constexpr std::string_view s_headingRowEnd = "</th></tr>\n";
constexpr std::string_view s_dataRowEnd = "</td></tr>\n";

/// True when the cursor is at the first character of its line other than blanks.
bool isAtLineStart(const MarkupCursor &cursor)
{
    const std::string_view text = cursor.text();
    std::size_t at = cursor.offset();
    while (at > 0 && isBlank(text[at - 1]))
        --at;
    return at == 0 || text[at - 1] == '\n';
}

} // namespace

void TableWriter::openTable(const ColumnWidths *columns)
{
    m_blocks.setMode(BlockMode::None);
    m_row = Row::None;
    if (columns != nullptr)
        m_blocks.setMode(BlockMode::Table, std::to_string(columns->count), columns->inches);
    else
        m_blocks.setMode(BlockMode::Table);
}

void TableWriter::openMatrix(std::size_t columnCount)
{
    m_blocks.setMode(BlockMode::None);
    m_row = Row::None;
    m_blocks.setMatrixColumns(columnCount, matrixColumnPercent(columnCount));
    // Deliberate: three widths, whatever the number of columns.
    m_blocks.setMode(BlockMode::Matrix, std::to_string(columnCount), "2in,2in,2in");
}

bool TableWriter::takeSeparator(MarkupCursor &cursor)
{
    const bool startsRow = m_row == Row::None || isAtLineStart(cursor);
    if (startsRow && m_row != Row::None)
        m_blocks.dropWhiteSpace(whiteSpaceBefore(cursor.text(), cursor.offset()));
    const bool isDouble = cursor.peek(1) == '|';
    const bool isGroup = isDouble && cursor.peek(2) == '-';
    cursor.moveTo(cursor.offset() + 1);
    if (m_blocks.mode() == BlockMode::Matrix) {
        openMatrixCell(startsRow);
    } else if (!startsRow) {
        separateCells(cursor);
    } else if (isGroup) {
        cursor.moveTo(cursor.offset() + 2);
        openGroupRow();
        return true;
    } else if (isDouble) {
        cursor.moveTo(cursor.offset() + 1);
        openHeadingRow();
    } else {
        openDataRow();
    }
    return false;
}

void TableWriter::openFirstRow()
{
    if (m_blocks.mode() == BlockMode::Matrix)
        openMatrixCell(true);
    else
        openDataRow();
}

/// Opens the next cell of the open row of a table.
void TableWriter::separateCells(MarkupCursor &cursor)
{
    ++m_cells;
    if (m_row == Row::Data)
        return m_blocks.append("</td><td>");
    if (cursor.peek() == '|')
        cursor.moveTo(cursor.offset() + 1); // in a heading row two bars are one separator
    m_blocks.append("</th><th>");
}

void TableWriter::openDataRow()
{
    if (m_row == Row::None)
        m_blocks.append("<tr bgcolor=\"#cccccc\"><td>\n");
    else
        m_blocks.append(m_row == Row::Heading ? "</th></tr>\n<tr><td>" : "</td></tr>\n<tr><td>");
    setRow(Row::Data);
}

void TableWriter::openHeadingRow()
{
    if (m_row != Row::None)
        m_blocks.text() += m_row == Row::Heading ? s_headingRowEnd : s_dataRowEnd;
    m_blocks.append("<tr bgcolor=\"#cccccc\"><th>\n");
    setRow(Row::Heading);
}

/// Opens a row with a single cell as wide as the table.
void TableWriter::openGroupRow()
{
    if (m_row != Row::None)
        m_blocks.text() += s_dataRowEnd; // deliberate: after a heading row too
    m_blocks.append("<tr><td colspan=\"100%\"><b>");
    setRow(Row::Data);
}

void TableWriter::endGroupRow()
{
    m_blocks.append({}); // what follows can be dropped, the line end of the row cannot
}

/// Opens a cell of a matrix, in a new row when it \a startsRow.
void TableWriter::openMatrixCell(bool startsRow)
{
    if (m_row == Row::None)
        m_blocks.text() += "<tr>\n";
    else
        m_blocks.text() += startsRow ? "</td>\n</tr>\n<tr>" : "</td>\n";
    m_blocks.append("<td valign=\"top\">\n");
    m_row = Row::Data;
    m_cells = startsRow ? 1 : m_cells + 1;
}

/// Notes that a row of a table has been opened.
void TableWriter::setRow(Row row)
{
    m_row = row;
    m_cells = 1;
    m_blocks.setRowEnd(s_dataRowEnd); // deliberate: the last row ends like this even if it is a heading row
}

} // namespace tavidoc
