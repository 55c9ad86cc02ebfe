#include "markup/translator.h"

#include "base/text_escape.h"
#include "markup/shared_tables.h"

#include <charconv>
#include <utility>

namespace tavidoc {

namespace {

/// \a text as a decimal integer. Nothing when it is something else or too large.
std::optional<int> integer(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

bool hasExtension(std::string_view file)
{
    return file.substr(file.rfind('/') + 1).find('.') != std::string_view::npos;
}

} // namespace

void Translator::misplaced(const Command &)
{
    errorMarker("there is nothing to close");
}

void Translator::symbol(const Command &command)
{
    beginText();
    write(command.opening);
}

/// Opens a style. Its argument is translated by the same loop as any other text; the style is
/// closed when that loop reaches the closing brace.
void Translator::style(const Command &command)
{
    const std::optional<std::size_t> end = m_cursor.argumentEnd();
    if (!end)
        return missingArgument();
    beginText();
    write(command.opening);
    if (m_facts != nullptr && m_commandName == "file")
        m_facts->addFileName(m_blocks.text().size());
    m_cursor.moveTo(m_cursor.offset() + 1);
    openFrame(*end, *end + 1, command.closing);
}

void Translator::rawHtml(const Command &)
{
    const auto html = braced();
    if (!html)
        return;
    write(*html);
    if (m_facts != nullptr)
        noteHtml(*html, static_cast<std::size_t>(html->data() - m_cursor.text().data()));
}

void Translator::wrapText(const Command &command)
{
    const auto text = braced();
    if (!text)
        return;
    write(command.opening);
    writeEscaped(*text);
    write(command.closing);
}

void Translator::image(const Command &)
{
    const auto file = braced();
    if (!file)
        return;
    beginText();
    write("<img src=\"");
    const std::size_t source = m_blocks.text().size();
    writeEscaped(*file);
    if (m_facts != nullptr)
        noteImage(source, std::string(*file));
    write("\" />");
}

void Translator::screen(const Command &)
{
    const auto file = braced();
    if (!file)
        return;
    const auto caption = m_cursor.takeArgument();
    beginText();
    write("<img class=\"screen\" src=\"");
    const std::size_t source = m_blocks.text().size();
    const std::string name = std::string(*file) + (hasExtension(*file) ? "" : ".png");
    writeEscaped(name);
    if (m_facts != nullptr)
        noteImage(source, name);
    if (caption) {
        write("\" alt=\"");
        writeEscaped(*caption);
        write("\"/>");
    } else {
        write("\" />");
    }
    if (!caption && m_cursor.atBrace())
        missingArgument();
}

void Translator::link(const Command &command)
{
    const auto target = braced();
    if (!target)
        return;
    if (target->empty())
        return errorMarker("the argument is missing");
    const auto caption = m_cursor.takeArgument();
    beginText();
    write(command.opening);
    const std::size_t begin = m_blocks.text().size();
    LinkedPage page = m_references.appendLink(m_blocks.text(), *target, caption);
    if (m_facts != nullptr)
        noteLink(begin, std::move(page), *target, caption.has_value());
    write(command.closing);
    if (!caption && m_cursor.atBrace())
        missingArgument();
}

void Translator::choose(const Command &)
{
    instruct("Choose", "Press");
}

void Translator::choosing(const Command &)
{
    instruct("Choosing", "Pressing");
}

void Translator::lineNumber(const Command &)
{
    const auto text = braced();
    if (!text)
        return;
    const std::optional<int> number = integer(trimmed(*text));
    if (!number)
        return errorMarker("invalid line number \"" + simplified(*text) + "\": expected an integer");
    m_report.renumber(m_commandOffset, *number);
}

void Translator::discardLine(const Command &)
{
    m_cursor.takeLine();
}

void Translator::paragraphStyle(const Command &)
{
    if (const auto style = lineOrBraced())
        SharedTables::paraStyle = trimmed(*style);
}

} // namespace tavidoc
