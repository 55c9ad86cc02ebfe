#include "reading/report.h"

#include <algorithm>

namespace tavidoc {

void Report::error(std::size_t offset, std::string_view message, std::string_view check)
{
    send(m_sink, Message::Kind::Error, offset, message, check);
}

void Report::warning(std::size_t offset, std::string_view message, std::string_view check)
{
    send(m_sink, Message::Kind::Warning, offset, message, check);
}

void Report::errorWithoutPosition(std::string_view message, std::string_view check)
{
    m_sink({.kind = Message::Kind::Error, .file = {}, .line = 0, .text = std::string(message), .check = check});
}

void Report::missingInclude(std::size_t offset, std::string_view file)
{
    if (m_missing == nullptr)
        return;
    std::string message("\\include: the file \"");
    message.append(file).append("\" cannot be opened");
    send(m_missing->sink, Message::Kind::Error, offset, message, "missing-include");
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
    message.append(command).append(": there is no \"").append(name).append("\" in the directory of the input");
    send(m_missing->sink, Message::Kind::Error, offset, message, "unknown-name");
}

void Report::send(const MessageSink &sink, Message::Kind kind, std::size_t offset, std::string_view text,
                  std::string_view check)
{
    const SourcePosition position = m_map.position(m_text, offset);
    sink({.kind = kind,
          .file = position.file.toStdString(),
          .line = position.line,
          .text = std::string(text),
          .check = check});
}

} // namespace tavidoc
