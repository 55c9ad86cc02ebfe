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
    say("error: docgen: ", offset, message);
}

void Report::warning(std::size_t offset, std::string_view message)
{
    say("warning: docgen: ", offset, message);
}

void Report::say(std::string_view kind, std::size_t offset, std::string_view message)
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
    m_sink(line);
}

} // namespace tavidoc
