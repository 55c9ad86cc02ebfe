#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavidoc {

/// The block that is open in a page. The values are fixed.
enum class BlockMode
{
    None = 0,
    Paragraph = 1,
    BulletedList = 2,
    DefinitionList = 3,
    NumberedList = 4,
    Literal = 5,
    Table = 6,
    Matrix = 7,
};

/// The characters of a text that can have a meaning of their own, as bits of a set.
enum SpecialCharacter : std::uint8_t
{
    Backslash = 1, ///< begins a command
    LineEnd = 2,   ///< ends the block when a blank line follows
    Less = 4,      ///< a no-break space together with ">"
    MiddleDot = 8, ///< a no-break space
    Bar = 16,      ///< separates cells
};

/// Everything that differs between block modes.
struct BlockTraits
{
    BlockMode mode;
    std::string_view opening;    ///< HTML; of a table or matrix, up to its column count
    std::string_view closing;    ///< HTML
    unsigned special;            ///< the set of characters that are not copied as they are
    bool opensParagraph = false; ///< text opens a paragraph here
    bool hasRows = false;        ///< a table or matrix
};

/// The tags of a paragraph are not in its row: they name the paragraph style.
inline constexpr BlockTraits s_blockTraits[] = {
    {.mode = BlockMode::None,
     .opening = "",
     .closing = "",
     .special = Backslash | LineEnd | Less | MiddleDot,
     .opensParagraph = true},
    {.mode = BlockMode::Paragraph, .opening = "", .closing = "", .special = Backslash | LineEnd | Less | MiddleDot},
    {.mode = BlockMode::BulletedList,
     .opening = "<ul><li>",
     .closing = "</li></ul>",
     .special = Backslash | LineEnd | MiddleDot},
    {.mode = BlockMode::DefinitionList,
     .opening = "<dl><dt>",
     .closing = "</dd></dl>",
     .special = Backslash | LineEnd | MiddleDot},
    {.mode = BlockMode::NumberedList,
     .opening = "<ol><li>",
     .closing = "</li></ol>",
     .special = Backslash | LineEnd | MiddleDot},
    {.mode = BlockMode::Literal, .opening = "\n<pre class=\"zkt-code\">", .closing = "</pre>", .special = 0},
    {.mode = BlockMode::Table,
     .opening = "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"2\" border=\"0\" cols=\"",
     .closing = "</td></tr></table>",
     .special = Backslash | Bar | MiddleDot,
     .hasRows = true},
    {.mode = BlockMode::Matrix,
     .opening = "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"0\" cellspacing=\"4\" border=\"0\" cols=\"",
     .closing = "</td></tr></table>",
     .special = Backslash | Bar | MiddleDot,
     .hasRows = true},
};

[[nodiscard]] constexpr const BlockTraits &traitsOf(BlockMode mode)
{
    return s_blockTraits[static_cast<std::size_t>(mode)];
}

/// True when each row of the table is at the place that its mode names.
consteval bool areBlockTraitsInOrder()
{
    std::size_t index = 0;
    for (const BlockTraits &traits : s_blockTraits) {
        if (static_cast<std::size_t>(traits.mode) != index++)
            return false;
    }
    return index == static_cast<std::size_t>(BlockMode::Matrix) + 1;
}
static_assert(areBlockTraitsInOrder());

} // namespace tavidoc
