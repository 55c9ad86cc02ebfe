#pragma once

#include "base/word_index.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tavidoc {

class Translator;

/// What a command is for. Where it is allowed follows from that.
enum class CommandKind : std::uint8_t
{
    Symbol,  ///< writes the same text everywhere
    Inline,  ///< allowed everywhere
    Heading, ///< a block whose text is the rest of the line
    Block,   ///< opens, closes or switches a block: not allowed inside an argument or a synopsis
    Page,    ///< a block that belongs to pages or contents: not allowed in the comments of a header either
};

/// A row of the command table.
struct Command
{
    std::string_view name;
    CommandKind kind;
    void (Translator::*handler)(const Command &);
    std::string_view opening = {}; ///< HTML before the argument; of a symbol, all that it writes
    std::string_view closing = {}; ///< HTML after the argument
};

/// True for commands that an argument or a synopsis may contain.
[[nodiscard]] constexpr bool isAllowedInArgument(const Command &command)
{
    return command.kind == CommandKind::Symbol || command.kind == CommandKind::Inline;
}

/// All commands of the language. Everything that needs their names or kinds asks here.
class CommandTable
{
public:
    [[nodiscard]] static std::span<const Command> rows();
    /// Null for an unknown name.
    [[nodiscard]] static const Command *find(std::string_view name);

private:
    using Index = WordIndex<Command, &Command::name>;

    [[nodiscard]] static const Index &index();
};

} // namespace tavidoc
