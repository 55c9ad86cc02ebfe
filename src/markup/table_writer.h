#pragma once

#include "markup/markup_cursor.h"
#include "markup/tables.h"
#include "pages/html_blocks.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavidoc {

/// Writes the rows and cells of the table or matrix that is open in the page. Text of cells is
/// appended to the page by the caller.
class TableWriter
{
public:
    /// \a blocks holds the page and the mode of its open block. Borrowed.
    explicit TableWriter(HtmlBlocks &blocks) : m_blocks(blocks) {}

    /// True when a table or matrix is open.
    [[nodiscard]] bool isOpen() const { return traitsOf(m_blocks.mode()).hasRows; }
    /// True when a table or matrix is open and has no row yet.
    [[nodiscard]] bool isBeforeFirstRow() const { return m_row == Row::None && isOpen(); }

    /// Closes the open block and opens a table. Without \a columns its attributes are empty.
    void openTable(const ColumnWidths *columns);
    /// Closes the open block and opens a matrix of \a columnCount columns, at least 1.
    void openMatrix(std::size_t columnCount);

    /// Makes sure that text has a cell: opens the first row if none is open. Without a table or
    /// matrix nothing happens.
    void beginText()
    {
        if (isBeforeFirstRow())
            openFirstRow();
    }

    /// Takes the separator at \a cursor, which is at a bar of the open table or matrix, and
    /// writes its tags. The result is true for the mark of a group row,
    /// "||-": the rest of the line is its text, and endGroupRow() must follow it.
    [[nodiscard]] bool takeSeparator(MarkupCursor &cursor);

    /// The number of cells of the row that was opened last, without a group row.
    [[nodiscard]] std::size_t cellsInRow() const { return m_cells; }

    static constexpr std::string_view s_groupTextEnd = "</b>\n"; ///< HTML after the text of a group row
    /// Must be called when the text of a group row and its end have been written.
    void endGroupRow();

private:
    /// The last row that was opened in the table or matrix.
    enum class Row : std::uint8_t
    {
        None,
        Heading,
        Data,
    };

    void openFirstRow();
    void separateCells(MarkupCursor &cursor);
    void openDataRow();
    void openHeadingRow();
    void openGroupRow();
    void openMatrixCell(bool startsRow);
    void setRow(Row row);

    HtmlBlocks &m_blocks;
    Row m_row = Row::None;
    std::size_t m_cells = 0; // of that row
};

} // namespace tavidoc
