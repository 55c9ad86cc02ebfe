#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavidoc {

/// A command in a comment.
struct CommentCommand
{
    char sign = 0;         ///< "\\" or "@"
    std::string_view name; ///< letters and digits
    std::size_t end = 0;   ///< of the name, in the comment
    std::int64_t line = 0; ///< counted from 0, the first line of the comment
};

/// Finds the words of a comment that begin with a backslash or, after white space, with "@", in one pass. Those in
/// listings are left out, whichever sign their commands have.
class CommentCommands
{
public:
    explicit CommentCommands(std::string_view comment) : m_comment(comment) {}

    [[nodiscard]] std::optional<CommentCommand> next();

private:
    [[nodiscard]] bool isCommand(std::size_t at) const;
    /// Whether \a name is to be left out because it is in a listing.
    [[nodiscard]] bool skips(std::string_view name);

    std::string_view m_comment;
    std::size_t m_at = 0;
    std::int64_t m_line = 0;
    bool m_isInListing = false;
};

} // namespace tavidoc
