#include "site/record/field_printer.h"

#include <cstdio>

namespace tavidoc {

namespace {

constexpr std::size_t s_indent = 2;

/// Appends \a line with control characters as "\xNN", so that it does nothing to a terminal.
void appendPrintable(std::string &text, std::string_view line)
{
    for (const char character : line) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte != 0x7F) {
            text += character;
            continue;
        }
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02X", byte);
        text += escape;
    }
}

} // namespace

void FieldPrinter::beginLine(std::string_view name)
{
    m_text.append(m_level * s_indent, ' ').append(name).append(":");
}

void FieldPrinter::printNumber(std::string_view name, std::int64_t number)
{
    if (number == 0)
        return;
    beginLine(name);
    m_text.append(" ").append(std::to_string(number)).append("\n");
}

void FieldPrinter::printText(std::string_view name, std::string_view text)
{
    if (text.empty())
        return;
    beginLine(name);
    if (text.find('\n') == std::string_view::npos) {
        m_text += ' ';
        appendPrintable(m_text, text);
        m_text += '\n';
        return;
    }
    m_text += '\n';
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        m_text.append((m_level + 1) * s_indent, ' ');
        appendPrintable(m_text, text.substr(0, end));
        m_text += '\n';
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace tavidoc
