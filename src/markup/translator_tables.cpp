#include "markup/translator.h"

#include "markup/tables.h"

namespace tavidoc {

void Translator::table(const Command &)
{
    const auto argument = braced();
    if (!argument)
        return;
    const ColumnWidths columns = columnWidths(*argument);
    if (columns.invalid)
        commandWarning("invalid width \"" + std::string(*columns.invalid) + "\": expected a number");
    warnOfOpenGrid();
    if (m_blocks.mode() == BlockMode::Table)
        return; // deliberate: its rows go into the open one
    m_gridOffset = m_commandOffset;
    m_blocks.setMode(BlockMode::None);
    m_row = Row::None;
    if (m_pages.framed())
        m_blocks.setMode(BlockMode::Table, std::to_string(columns.count), columns.inches);
    else
        m_blocks.setMode(BlockMode::Table);
}

void Translator::matrix(const Command &)
{
    const auto argument = braced();
    if (!argument)
        return;
    const std::size_t count = columnCount(*argument);
    warnOfOpenGrid();
    if (m_blocks.mode() == BlockMode::Matrix)
        return; // deliberate, as with tables
    m_gridOffset = m_commandOffset;
    m_blocks.setMode(BlockMode::None);
    m_row = Row::None;
    m_blocks.setMatrixColumns(count, matrixColumnPercent(count));
    m_blocks.setMode(BlockMode::Matrix, std::to_string(count), "2in,2in,2in"); // deliberate: whatever the count
}

/// Warns when the command at hand asks for a table or matrix inside another.
void Translator::warnOfOpenGrid()
{
    if (m_blocks.mode() == BlockMode::Table)
        commandWarning("a table is already open");
    else if (m_blocks.mode() == BlockMode::Matrix)
        commandWarning("a matrix is already open");
}

void Translator::endTable(const Command &)
{
    endGrid(BlockMode::Table);
}

void Translator::endMatrix(const Command &)
{
    endGrid(BlockMode::Matrix);
}

void Translator::endGrid(BlockMode mode)
{
    if (m_blocks.mode() != mode)
        return errorMarker("nothing is open that it could close");
    m_blocks.setMode(BlockMode::None);
}

void Translator::bar()
{
    const bool startsRow = m_row == Row::None || barStartsRow();
    if (startsRow && m_row != Row::None)
        m_blocks.dropWhiteSpace(whiteSpaceBefore(m_cursor.text(), m_cursor.offset()));
    m_cursor.moveTo(m_cursor.offset() + 1);
    if (m_blocks.mode() == BlockMode::Matrix)
        return matrixBar(startsRow);
    if (!startsRow || m_cursor.peek() != '|')
        return tableBar(startsRow);
    if (m_cursor.peek(1) == '-')
        groupRow();
    else
        headingRow();
}

/// True when the bar at the cursor is the first character of its line, blanks aside.
bool Translator::barStartsRow() const
{
    const std::string_view text = m_cursor.text();
    std::size_t at = m_cursor.offset();
    while (at > 0 && isBlank(text[at - 1]))
        --at;
    return at == 0 || text[at - 1] == '\n';
}

/// Opens a cell of a table, in a row of its own when it \a startsRow.
void Translator::tableBar(bool startsRow)
{
    if (m_row == Row::None) {
        m_blocks.append("<tr bgcolor=\"#cccccc\"><td>\n");
    } else if (!startsRow) {
        if (m_row == Row::Heading && m_cursor.peek() == '|')
            m_cursor.moveTo(m_cursor.offset() + 1); // in a heading row two bars are one separator
        return m_blocks.append(m_row == Row::Heading ? "</th><th>" : "</td><td>");
    } else {
        m_blocks.append(m_row == Row::Heading ? "</th></tr>\n<tr><td>" : "</td></tr>\n<tr><td>");
    }
    m_row = Row::Data;
    m_blocks.setRowEnd(s_dataRowEnd);
}

void Translator::headingRow()
{
    m_cursor.moveTo(m_cursor.offset() + 1);
    if (m_row != Row::None)
        write(m_row == Row::Heading ? s_headingRowEnd : s_dataRowEnd);
    m_blocks.append("<tr bgcolor=\"#cccccc\"><th>\n");
    m_row = Row::Heading;
    m_blocks.setRowEnd(s_dataRowEnd); // deliberate: the last row ends so, be it a heading row
}

/// Opens a row whose one cell goes over the whole width and holds the rest of the line.
void Translator::groupRow()
{
    m_cursor.moveTo(m_cursor.offset() + 2);
    if (m_row != Row::None)
        write(s_dataRowEnd); // deliberate: behind a heading row too
    m_blocks.append("<tr><td colspan=\"100%\"><b>");
    m_row = Row::Data;
    m_blocks.setRowEnd(s_dataRowEnd);
    m_cursor.skipBlanks();
    openFrame(m_cursor.lineEnd(), m_cursor.lineEnd(), "</b>\n", &Translator::endGroupRow);
}

void Translator::endGroupRow()
{
    m_blocks.append({});
}

/// Opens a cell of a matrix, in a row of its own when it \a startsRow.
void Translator::matrixBar(bool startsRow)
{
    if (m_row == Row::None)
        write("<tr>\n");
    else
        write(startsRow ? "</td>\n</tr>\n<tr>" : "</td>\n");
    m_blocks.append("<td valign=\"top\">\n");
    m_row = Row::Data;
}

} // namespace tavidoc
