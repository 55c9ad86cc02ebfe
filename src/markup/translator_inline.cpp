#include "markup/translator.h"

#include "base/text_escape.h"
#include "markup/shared_tables.h"

#include <charconv>

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
    m_cursor.moveTo(m_cursor.offset() + 1);
    openFrame(*end, *end + 1, command.closing);
}

void Translator::rawHtml(const Command &)
{
    if (const auto html = braced())
        write(*html);
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
    writeEscaped(*file);
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
    writeEscaped(*file);
    if (!hasExtension(*file))
        write(".png");
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
    m_references.appendLink(m_blocks.text(), *target, caption);
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
