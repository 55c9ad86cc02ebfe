#include "markup/tables.h"
#include "markup/translator.h"

namespace tavidoc {

void Translator::table(const Command &)
{
    const auto argument = braced();
    if (!argument)
        return;
    const ColumnWidths columns = columnWidths(*argument);
    if (columns.invalid)
        commandWarning("invalid width \"" + simplified(*columns.invalid) + "\": expected a number");
    if (beginTable(BlockMode::Table))
        m_table.openTable(m_pages.framed() ? &columns : nullptr);
}

void Translator::matrix(const Command &)
{
    const auto argument = braced();
    if (argument && beginTable(BlockMode::Matrix))
        m_table.openMatrix(columnCount(*argument));
}

/// Warns when the command asks for a table or matrix inside another. The result is false when one of the
/// same \a mode is open: deliberately, its rows then go into the open one.
bool Translator::beginTable(BlockMode mode)
{
    if (m_blocks.mode() == BlockMode::Table)
        commandWarning("a table is already open");
    else if (m_blocks.mode() == BlockMode::Matrix)
        commandWarning("a matrix is already open");
    if (m_blocks.mode() == mode)
        return false;
    m_tableOffset = m_commandOffset;
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
    if (!m_table.takeSeparator(m_cursor))
        return;
    m_cursor.skipBlanks();
    openFrame(m_cursor.lineEnd(), m_cursor.lineEnd(), TableWriter::s_groupTextEnd, &Translator::endGroupRow);
}

void Translator::endGroupRow()
{
    m_table.endGroupRow();
}

} // namespace tavidoc
