#pragma once

#include "pages/block_modes.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavidoc {

/// The HTML text of the page being built and the block that is open in it. The text added
/// is HTML already; nothing is escaped here.
class HtmlBlocks
{
public:
    /// \a nextParagraphTag is the tag of the next paragraph; opening a paragraph resets it to "p". Borrowed.
    explicit HtmlBlocks(std::string &nextParagraphTag) : m_nextParagraphTag(nextParagraphTag) {}

    /// Closes the open block and opens \a mode. A request for a paragraph inside another block
    /// changes nothing, nor does a request for the mode that is open. \a columns and \a widths
    /// fill the openings of tables and matrices.
    void setMode(BlockMode mode, std::string_view columns = {}, std::string_view widths = {});

    /// Opens a paragraph unless a block is open.
    void beginText()
    {
        if (traitsOf(m_mode).opensParagraph)
            setMode(BlockMode::Paragraph);
    }

    /// Sets the number of columns of the next matrix and the width of each in percent.
    void setMatrixColumns(std::size_t count, int percent);

    [[nodiscard]] BlockMode mode() const { return m_mode; }

    /// The page text, for appending. Only this class removes text.
    std::string &text() { return m_text; }

    /// Appends \a piece, after which the text of a block, list entry or cell begins.
    void append(std::string_view piece);

    /// The text of the open block, list entry or cell so far.
    [[nodiscard]] std::string_view openText() const { return std::string_view(m_text).substr(m_blockStart); }

    /// Sets the HTML that ends the open row when the table or matrix is closed; empty while no row
    /// is open. Borrowed.
    void setRowEnd(std::string_view end) { m_rowEnd = end; }

    /// Removes at most \a count characters of white space from the end of the text, but nothing
    /// that was there when the block, list entry or cell began.
    void dropWhiteSpace(std::size_t count);

    /// The contents of the first closed paragraph of the page; empty without one.
    [[nodiscard]] std::string_view firstParagraph() const;
    /// Makes the next paragraph that is closed the first one.
    void forgetFirstParagraph() { m_firstParagraphBegin = m_firstParagraphEnd = 0; }

    /// Empties the page. Does not close the open block.
    void clear();

private:
    void openParagraph();
    void openTable(std::string_view opening, std::string_view columns, std::string_view widths);
    void appendMatrixColumns();
    void close();
    void closeParagraph();
    void trimLiteral();

    std::string &m_nextParagraphTag;
    std::string m_text;
    BlockMode m_mode = BlockMode::None;
    std::string m_paragraphTag;
    std::string_view m_rowEnd;
    std::size_t m_blockStart = 0;
    std::size_t m_paragraphBegin = 0;      // of the paragraph opened last
    std::size_t m_firstParagraphBegin = 0; // both are 0 until a paragraph has been closed
    std::size_t m_firstParagraphEnd = 0;
    std::size_t m_matrixColumns = 1;
    int m_matrixPercent = 97;
};

} // namespace tavidoc
