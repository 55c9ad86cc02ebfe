#include "pages/html_blocks.h"

#include "base/white_space.h"

#include <utility>

namespace tavidoc {

namespace {

bool removeEnding(std::string &text, std::string_view ending)
{
    if (!text.ends_with(ending))
        return false;
    text.resize(text.size() - ending.size());
    return true;
}

} // namespace

void HtmlBlocks::setMode(BlockMode mode, std::string_view columns, std::string_view widths)
{
    if (mode == m_mode || (mode == BlockMode::Paragraph && !traitsOf(m_mode).opensParagraph))
        return;
    close();
    m_mode = mode;
    const BlockTraits &opened = traitsOf(mode);
    if (mode == BlockMode::Paragraph)
        return openParagraph();
    if (!opened.hasRows)
        return append(opened.opening);
    openTable(opened.opening, columns, widths);
    if (mode == BlockMode::Matrix)
        appendMatrixColumns();
}

void HtmlBlocks::setMatrixColumns(std::size_t count, int percent)
{
    m_matrixColumns = count;
    m_matrixPercent = percent;
}

void HtmlBlocks::append(std::string_view piece)
{
    m_text += piece;
    m_blockStart = m_text.size();
}

void HtmlBlocks::dropWhiteSpace(std::size_t count)
{
    while (count > 0 && m_text.size() > m_blockStart && isSpace(m_text.back())) {
        m_text.pop_back();
        --count;
    }
}

void HtmlBlocks::clear()
{
    m_text.clear();
    m_blockStart = 0;
    m_firstParagraphBegin = 0;
    m_firstParagraphEnd = 0;
}

std::string_view HtmlBlocks::firstParagraph() const
{
    return std::string_view(m_text).substr(m_firstParagraphBegin, m_firstParagraphEnd - m_firstParagraphBegin);
}

void HtmlBlocks::openParagraph()
{
    // The style is reset here and not at the end, so that a style set inside the paragraph applies to the next.
    m_paragraphTag = std::exchange(m_nextParagraphTag, "p");
    if (m_paragraphTag.empty())
        m_paragraphTag = "p";
    m_text += '<';
    m_text += m_paragraphTag;
    append(">");
    m_paragraphBegin = m_text.size();
}

void HtmlBlocks::openTable(std::string_view opening, std::string_view columns, std::string_view widths)
{
    m_text += opening;
    m_text += columns;
    m_text += "\" fm_widths=\"";
    m_text += widths;
    append("\">\n");
}

void HtmlBlocks::appendMatrixColumns()
{
    std::string column = "<col width=\"";
    column.append(std::to_string(m_matrixPercent)).append("%\"/>");
    for (std::size_t index = 0; index < m_matrixColumns; ++index)
        append(column);
}

void HtmlBlocks::close()
{
    if (m_mode == BlockMode::Paragraph)
        closeParagraph();
    else if (m_mode == BlockMode::Literal)
        trimLiteral();
    m_text += std::exchange(m_rowEnd, {});
    m_text += traitsOf(m_mode).closing;
    m_blockStart = m_text.size();
}

void HtmlBlocks::closeParagraph()
{
    if (m_firstParagraphEnd == 0) {
        m_firstParagraphBegin = m_paragraphBegin;
        m_firstParagraphEnd = m_text.size();
    }
    m_text += "</";
    m_text += m_paragraphTag;
    m_text += '>';
}

void HtmlBlocks::trimLiteral()
{
    while (removeEnding(m_text, "&nbsp;") || removeEnding(m_text, "<br/>") || removeEnding(m_text, "\n")) {
    }
}

} // namespace tavidoc
