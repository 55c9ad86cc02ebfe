#include "pages/html_blocks.h"

#include "base/source_text.h"

#include <utility>

namespace tavidoc {

namespace {

/// True when \a requested leaves the block \a open as it is.
bool staysOpen(BlockMode open, BlockMode requested)
{
    return requested == open || (requested == BlockMode::Paragraph && open != BlockMode::None);
}

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
    if (staysOpen(m_mode, mode))
        return;
    close();
    m_mode = mode;
    switch (mode) {
    case BlockMode::None:
        return;
    case BlockMode::Paragraph:
        return openParagraph();
    case BlockMode::BulletedList:
        return append("<ul><li>");
    case BlockMode::DefinitionList:
        return append("<dl><dt>");
    case BlockMode::NumberedList:
        return append("<ol><li>");
    case BlockMode::Literal:
        return append("\n<pre class=\"zkt-code\">");
    case BlockMode::Table:
        return openTable(columns, widths, "2");
    case BlockMode::Matrix:
        return openMatrix(columns, widths);
    }
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
    // The style is used up here, so that one set inside the paragraph is for the next.
    m_paragraphTag = std::exchange(m_nextParagraphTag, "p");
    if (m_paragraphTag.empty())
        m_paragraphTag = "p";
    m_text += '<';
    m_text += m_paragraphTag;
    append(">");
    m_paragraphBegin = m_text.size();
}

void HtmlBlocks::openTable(std::string_view columns, std::string_view widths, std::string_view spacing)
{
    m_text += "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"";
    m_text += spacing == "2" ? "2" : "0";
    m_text += "\" cellspacing=\"";
    m_text += spacing;
    m_text += "\" border=\"0\" cols=\"";
    m_text += columns;
    m_text += "\" fm_widths=\"";
    m_text += widths;
    append("\">\n");
}

void HtmlBlocks::openMatrix(std::string_view columns, std::string_view widths)
{
    openTable(columns, widths, "4");
    std::string column = "<col width=\"";
    column.append(std::to_string(m_matrixPercent)).append("%\"/>");
    for (std::size_t index = 0; index < m_matrixColumns; ++index)
        append(column);
}

void HtmlBlocks::close()
{
    static constexpr std::string_view endings[] = {
        "", "", "</li></ul>", "</dd></dl>", "</li></ol>", "", "</td></tr></table>", "</td></tr></table>",
    };
    if (m_mode == BlockMode::Paragraph) {
        if (m_firstParagraphEnd == 0) {
            m_firstParagraphBegin = m_paragraphBegin;
            m_firstParagraphEnd = m_text.size();
        }
        m_text += "</";
        m_text += m_paragraphTag;
        m_text += '>';
    } else if (m_mode == BlockMode::Literal) {
        closeLiteral();
    } else {
        m_text += std::exchange(m_rowEnd, {});
        m_text += endings[static_cast<std::size_t>(m_mode)];
    }
    m_blockStart = m_text.size();
}

void HtmlBlocks::closeLiteral()
{
    while (removeEnding(m_text, "&nbsp;") || removeEnding(m_text, "<br/>") || removeEnding(m_text, "\n")) {
    }
    m_text += "</pre>";
}

} // namespace tavidoc
