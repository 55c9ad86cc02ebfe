#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a page is in the middle of. The values are fixed.
enum class BlockMode
{
    None = 0,
    Paragraph = 1,
    BulletedList = 2,
    DefinitionList = 3,
    NumberedList = 4,
    Literal = 5,
    Table = 6,
    Matrix = 7,
};

/// The HTML text of the page being built and the block that is open in it. Text that comes in
/// is HTML already: nothing here escapes.
class HtmlBlocks
{
public:
    /// \a nextParagraphTag is the tag that the next paragraph opens with; opening it sets the tag back to "p". Borrowed.
    explicit HtmlBlocks(std::string &nextParagraphTag) : m_nextParagraphTag(nextParagraphTag) {}

    /// Closes the open block and opens \a mode. Inside lists, tables and literal blocks a
    /// paragraph request changes nothing, nor does a request for the mode that is open.
    /// \a columns and \a widths fill the openings of tables and matrices.
    void setMode(BlockMode mode, std::string_view columns = {}, std::string_view widths = {});

    /// The columns that the next matrix opens with: their count and the width of each in percent.
    void setMatrixColumns(std::size_t count, int percent);

    [[nodiscard]] BlockMode mode() const { return m_mode; }

    /// The page text, for appending. Taking text away is for the blocks alone.
    std::string &text() { return m_text; }

    /// Begins a list entry or the like: what follows is the start of a block's text.
    void append(std::string_view piece);

    /// The text of the open block, list entry or cell so far.
    [[nodiscard]] std::string_view openText() const { return std::string_view(m_text).substr(m_blockStart); }

    /// What ends the open row when the table or matrix is closed; empty while no row is open.
    void setRowEnd(std::string_view end) { m_rowEnd = end; }

    /// Removes white space from the end of the text, \a count characters at most, but nothing
    /// that was there when the block, list entry or cell began.
    void dropWhiteSpace(std::size_t count);

    /// The inside of the first paragraph of the page that has been closed; empty without one.
    [[nodiscard]] std::string_view firstParagraph() const;

    /// Empties the page. Does not close the open block.
    void clear();

private:
    void openParagraph();
    void openTable(std::string_view columns, std::string_view widths, std::string_view spacing);
    void openMatrix(std::string_view columns, std::string_view widths);
    void close();
    void closeLiteral();

    std::string &m_nextParagraphTag;
    std::string m_text;
    BlockMode m_mode = BlockMode::None;
    std::string m_paragraphTag;
    std::string_view m_rowEnd;
    std::size_t m_blockStart = 0;
    std::size_t m_paragraphBegin = 0;      // of the paragraph opened last
    std::size_t m_firstParagraphBegin = 0; // both are 0 before there is one
    std::size_t m_firstParagraphEnd = 0;
    std::size_t m_matrixColumns = 1;
    int m_matrixPercent = 97;
};

} // namespace tavidoc
