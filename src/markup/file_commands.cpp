#include "markup/file_commands.h"

#include "markup/markup_cursor.h"

namespace tavidoc {

namespace {

/// Whether the command whose name begins at \a at, after a backslash, may use a file.
bool isFileCommand(std::string_view text, std::size_t at)
{
    const std::string_view name = text.substr(at);
    switch (name.empty() ? '\0' : name.front()) {
    case 'c':
        return name.starts_with("copyin");
    case 'i':
        return name.starts_with("icon");
    case 'p':
        return name.starts_with("present");
    case 't': // the name that replaces it may complete a command
        return name.starts_with("this") && at >= 2 && (isNameCharacter(text[at - 2]) || text[at - 2] == '\\');
    default:
        return false;
    }
}

} // namespace

std::optional<std::size_t> lastFileCommand(std::string_view text)
{
    std::optional<std::size_t> last;
    for (std::size_t at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        if (isFileCommand(text, at + 1))
            last = at;
    }
    return last;
}

} // namespace tavidoc
