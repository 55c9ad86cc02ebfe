#include "reading/message.h"

#include <algorithm>
#include <cstdio>

namespace tavidoc {

std::string_view nameOf(Message::Kind kind)
{
    return kind == Message::Kind::Error ? "error" : "warning";
}

std::string formatted(const Message &message)
{
    std::string line(nameOf(message.kind));
    line += ": docgen: ";
    if (!message.file.empty())
        line.append(message.file).append(":").append(std::to_string(message.line)).append(": ");
    line += message.text;
    std::ranges::replace(line, '\n', ' '); // names from the source may span lines
    return line += '\n';
}

void printMessage(const Message &message)
{
    const std::string line = formatted(message);
    std::fwrite(line.data(), 1, line.size(), stdout);
}

} // namespace tavidoc
