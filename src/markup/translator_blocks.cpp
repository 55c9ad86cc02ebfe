#include "markup/translator.h"

#include "codeedit/listing.h"
#include "pages/html_pages.h"

#include <algorithm>

namespace tavidoc {

void Translator::item(const Command &)
{
    if (m_cursor.atBrace() && !m_cursor.argumentEnd())
        return missingArgument();
    if (m_blocks.mode() == BlockMode::BulletedList)
        m_blocks.append("</li>\n<li>");
    else if (m_blocks.mode() == BlockMode::DefinitionList)
        m_blocks.append("</dt>\n<dd>");
    else
        m_blocks.setMode(BlockMode::BulletedList);
    const std::optional<std::size_t> end = m_cursor.argumentEnd();
    if (end && *end > m_cursor.offset() + 1) {
        m_cursor.moveTo(m_cursor.offset() + 1);
        write("<i>");
        return openFrame(*end, *end + 1, "</i>:&nbsp;&nbsp;", &Translator::skipAfterLabel);
    }
    m_cursor.takeArgument();
    m_cursor.skipBlanksAndLineEnds();
}

void Translator::skipAfterLabel()
{
    m_cursor.skipBlanksAndLineEnds();
}

void Translator::term(const Command &)
{
    if (m_blocks.mode() == BlockMode::DefinitionList)
        m_blocks.append("</dd>\n<dt>");
    else
        m_blocks.setMode(BlockMode::DefinitionList);
    m_cursor.skipBlanksAndLineEnds();
}

void Translator::step(const Command &)
{
    if (m_blocks.mode() == BlockMode::NumberedList)
        m_blocks.append("</li>\n<li>");
    else
        m_blocks.setMode(BlockMode::NumberedList);
    m_cursor.skipBlanksAndLineEnds();
}

void Translator::parameter(const Command &)
{
    const std::optional<std::size_t> end = m_cursor.argumentEnd();
    if (!end)
        return missingArgument();
    m_blocks.setMode(BlockMode::None);
    beginText();
    write("<b>");
    m_cursor.moveTo(m_cursor.offset() + 1);
    openFrame(*end, *end + 1, "</b> &mdash;");
}

void Translator::returns(const Command &)
{
    m_blocks.setMode(BlockMode::None);
    beginText();
    write("<b>");
    writeEscaped(m_declarations == nullptr ? m_pages.name() : m_declarations->currentName());
    write("</b> returns &mdash;");
}

void Translator::referenceSection(const Command &command)
{
    m_blocks.setMode(BlockMode::None);
    write(command.opening);
}

void Translator::synopsis(const Command &command)
{
    referenceSection(command);
    m_blocks.append({});
    m_cursor.skipBlanks();
    m_cursor.skipLineEnd();
    const std::size_t begin = m_cursor.offset();
    const std::size_t resume = synopsisEnd();
    std::size_t end = resume;
    while (end > begin && m_cursor.text()[end - 1] == '\n')
        --end;
    if (m_declarations != nullptr && trimmed(m_cursor.text().substr(begin, end - begin)).empty())
        writeSynopsis(m_declarations->currentSynopsis());
    m_inSynopsis = true;
    openFrame(end, resume, command.closing, &Translator::endSynopsis);
}

void Translator::writeSynopsis(const Declarations::Synopsis &synopsis)
{
    if (synopsis.language.empty())
        return writeEscaped(synopsis.text);
    std::string &html = m_blocks.text();
    appendListing(html, synopsis.text, synopsis.language);
    html.erase(html.find_last_not_of('\n') + 1); // every line of a listing ends with one
}

void Translator::endSynopsis()
{
    m_inSynopsis = false;
}

/// The end of the synopsis that begins at the cursor: a blank line, a line that begins with a
/// command that is not allowed in a synopsis, or the end of the text.
std::size_t Translator::synopsisEnd() const
{
    const std::string_view text = m_cursor.text();
    MarkupCursor line(text);
    line.moveTo(m_cursor.offset());
    while (!line.atLimit() && !isBlankLine(text, line.offset())) {
        const std::size_t begin = line.offset();
        line.skipBlanks();
        if (line.peek() == '\\') {
            const Command *const command = CommandTable::find(line.takeCommandName());
            if (command != nullptr && !isAllowedInArgument(*command))
                return begin;
        }
        line.takeLine();
        line.skipLineEnd();
    }
    return line.offset();
}

void Translator::heading(const Command &command)
{
    const auto text = filledLine();
    if (!text)
        return;
    m_blocks.setMode(BlockMode::None);
    write(command.opening);
    writeEscaped(*text);
    write(command.closing);
}

void Translator::section(const Command &)
{
    if (const auto text = filledLine())
        startSection(1, *text);
}

void Translator::subsection(const Command &)
{
    if (const auto text = filledLine())
        startSection(2, *text);
}

void Translator::overview(const Command &)
{
    startSection(1, "Overview");
}

/// Writes a heading \a levelBelowTop levels below that of the page title.
void Translator::startSection(int levelBelowTop, std::string_view title)
{
    m_blocks.setMode(BlockMode::None);
    // In a document that is split into pages, page titles have level 1.
    const int top = m_pages.framed() ? 1 : m_baseHeadingLevel;
    appendHeading(m_blocks.text(), top + levelBelowTop, title);
}

void Translator::copyLine(const Command &)
{
    const auto html = lineOrBraced();
    if (!html)
        return;
    m_blocks.setMode(BlockMode::None);
    write(*html);
    if (m_facts != nullptr)
        noteHtml(*html, static_cast<std::size_t>(html->data() - m_cursor.text().data()));
}

void Translator::briefText(const Command &)
{
    const std::optional<std::size_t> brace = m_cursor.argumentEnd();
    if (m_cursor.atBrace() && !brace)
        return missingArgument();
    const std::size_t end = brace ? *brace : m_cursor.lineEnd();
    const std::size_t resume = brace ? end + 1 : end;
    if (brace)
        m_cursor.moveTo(m_cursor.offset() + 1);
    m_cursor.skipBlanks();
    if (m_cursor.offset() >= end) {
        m_cursor.moveTo(resume);
        return errorMarker("the argument is missing");
    }
    m_blocks.setMode(BlockMode::None);
    beginText();
    m_briefOffset = m_blocks.text().size();
    openFrame(end, resume, {}, &Translator::endBrief);
}

void Translator::endBrief()
{
    m_brief = m_blocks.text().substr(m_briefOffset);
    if (m_facts != nullptr)
        m_facts->setBrief(m_blocks.text(), m_briefOffset);
    m_blocks.setMode(BlockMode::None);
}

} // namespace tavidoc
