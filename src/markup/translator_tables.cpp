#include "markup/tables.h"
#include "markup/translator.h"

#include <string>

namespace tavidoc {

void Translator::table(const Command &)
{
    const auto argument = braced();
    if (!argument)
        return;
    const ColumnWidths columns = columnWidths(*argument);
    if (columns.invalid)
        commandWarning("invalid width \"" + simplified(*columns.invalid) + "\": expected a number");
    if (beginTable(BlockMode::Table, columns.count))
        m_table.openTable(m_pages.framed() ? &columns : nullptr);
}

void Translator::matrix(const Command &)
{
    const auto argument = braced();
    if (argument && beginTable(BlockMode::Matrix, columnCount(*argument)))
        m_table.openMatrix(m_columnCount);
}

/// Warns when the command asks for a table or matrix inside another. The result is false when one of the
/// same \a mode is open: deliberately, its rows then go into the open one.
bool Translator::beginTable(BlockMode mode, std::size_t columnCount)
{
    if (m_blocks.mode() == BlockMode::Table)
        commandWarning("a table is already open");
    else if (m_blocks.mode() == BlockMode::Matrix)
        commandWarning("a matrix is already open");
    if (m_blocks.mode() == mode)
        return false;
    m_tableOffset = m_commandOffset;
    m_columnCount = columnCount;
    return true;
}

void Translator::endTable(const Command &)
{
    endTable(BlockMode::Table);
}

void Translator::endMatrix(const Command &)
{
    endTable(BlockMode::Matrix);
}

void Translator::endTable(BlockMode mode)
{
    if (m_blocks.mode() != mode)
        return errorMarker("there is nothing to close");
    m_blocks.setMode(BlockMode::None);
}

/// Translates the bar at the cursor; the text of a group row is the rest of its line.
void Translator::bar()
{
    const std::size_t offset = m_cursor.offset();
    if (!m_table.takeSeparator(m_cursor)) {
        if (m_facts != nullptr && m_table.cellsInRow() == m_columnCount + 1)
            noteSurplusCell(offset);
        return;
    }
    m_cursor.skipBlanks();
    openFrame(m_cursor.lineEnd(), m_cursor.lineEnd(), TableWriter::s_groupTextEnd, &Translator::endGroupRow);
}

/// Tells that the bar at \a offset begins a cell for which the table has no column.
void Translator::noteSurplusCell(std::size_t offset)
{
    const bool isTable = m_blocks.mode() == BlockMode::Table;
    const std::string columns = std::to_string(m_columnCount) + (m_columnCount == 1 ? " column" : " columns");
    m_facts->listener().finding({"surplus-cell", place(offset),
                                 "this row has more cells than its " + std::string(isTable ? "table" : "matrix") +
                                     ", which has " + columns +
                                     ": remove the bar, write \"\\|\" for a bar in the text, or add a " +
                                     (isTable ? "width to \\table" : "column to \\matrix")});
}

void Translator::endGroupRow()
{
    m_table.endGroupRow();
}

} // namespace tavidoc
