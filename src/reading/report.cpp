#include "reading/report.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace tavidoc {

void printMessage(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stdout);
}

void Report::error(std::size_t offset, std::string_view message)
{
    say(m_sink, "error: docgen: ", offset, message);
}

void Report::warning(std::size_t offset, std::string_view message)
{
    say(m_sink, "warning: docgen: ", offset, message);
}

void Report::missingInclude(std::size_t offset, std::string_view file)
{
    if (m_missing == nullptr)
        return;
    std::string message("\\include: the file \"");
    message.append(file).append("\" cannot be opened");
    say(m_missing->sink, "error: docgen: ", offset, message);
}

void Report::missingDefinition(std::size_t offset, std::string_view command, std::string_view name)
{
    if (m_missing == nullptr)
        return;
    const auto missing = std::ranges::find(m_missing->definitions, name);
    if (missing == m_missing->definitions.end())
        return;
    m_missing->definitions.erase(missing);
    std::string message("\\");
    message.append(command).append(": there is no \"").append(name).append("\" beside the input");
    say(m_missing->sink, "error: docgen: ", offset, message);
}

void Report::say(const MessageSink &sink, std::string_view kind, std::size_t offset, std::string_view message)
{
    const SourcePosition position = m_map.position(m_text, offset);
    std::string line(kind);
    line += position.file.toStdString();
    line += ':';
    line += std::to_string(position.line);
    line += ": ";
    line += message;
    std::ranges::replace(line, '\n', ' '); // a name may run over lines, a message does not
    line += '\n';
    sink(line);
}

} // namespace tavidoc
