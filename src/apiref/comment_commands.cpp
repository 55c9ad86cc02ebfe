#include "apiref/comment_commands.h"

#include "base/byte_search.h"
#include "base/white_space.h"
#include "markup/markup_cursor.h"

#include <algorithm>

namespace tavidoc {

std::optional<CommentCommand> CommentCommands::next()
{
    while ((m_at = findAnyOf<'\\', '@', '\n'>(m_comment, m_at)) < m_comment.size()) {
        const std::size_t at = m_at++;
        if (m_comment[at] == '\n') {
            ++m_line;
            continue;
        }
        const std::string_view rest = m_comment.substr(m_at);
        const auto length = static_cast<std::size_t>(std::ranges::find_if_not(rest, isNameCharacter) - rest.begin());
        if (length == 0) {
            m_at += m_comment[at] == '\\' && rest.starts_with('\\') ? 1 : 0; // a doubled backslash
            continue;
        }
        m_at += length;
        const std::string_view name = rest.substr(0, length);
        if (isCommand(at) && !skips(name))
            return CommentCommand{m_comment[at], name, m_at, m_line};
    }
    return std::nullopt;
}

/// Addresses of mail contain "@", too.
bool CommentCommands::isCommand(std::size_t at) const
{
    return m_comment[at] == '\\' || at == 0 || isSpace(m_comment[at - 1]) || m_comment[at - 1] == '*';
}

bool CommentCommands::skips(std::string_view name)
{
    const bool begins = name == "code" || name == "pre" || name == "verbatim";
    const bool ends = name == "endcode" || name == "endpre" || name == "endverbatim";
    const bool isInside = m_isInListing && !ends;
    m_isInListing = begins || isInside;
    return isInside;
}

} // namespace tavidoc
