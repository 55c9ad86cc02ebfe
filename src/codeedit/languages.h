#pragma once

#include "codeedit/parser.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace tavidoc {

/// A row of the table of languages.
struct Language
{
    /// A short list in a row. Unused items are empty and come last.
    template <class Item, std::size_t Capacity> struct List
    {
        Item items[Capacity];

        [[nodiscard]] constexpr const Item *begin() const { return items; }
        [[nodiscard]] constexpr const Item *end() const
        {
            const Item *item = begin();
            while (item != begin() + Capacity && *item != Item())
                ++item;
            return item;
        }
    };

    /// The suffix of a file name.
    struct Suffix
    {
        enum class Case
        {
            Exact,
            Any, ///< the case of the letters in file names does not matter
        };

        constexpr Suffix() = default;
        // Not explicit, so that a row can simply list them.
        constexpr Suffix(const char *withoutDot, Case letters = Case::Exact) : text(withoutDot), letterCase(letters) {}
        constexpr bool operator==(const Suffix &) const = default;

        std::string_view text; ///< without its dot; in lower case if the case does not matter
        Case letterCase = Case::Exact;
    };

    /// How editors colour a listing. Without these names they do not colour it.
    struct Editors
    {
        std::string_view vim;      ///< the name of the syntax file
        std::string_view textMate; ///< the scope
    };

    /// Whether the numbers at the beginning of lines are shown.
    enum class LineNumbers
    {
        Kept,
        LeftOut,
    };

    List<std::string_view, 4> names; ///< as written after \code; the first one is for presented files
    std::unique_ptr<CodeEditParser> (*makeLexer)();
    List<Suffix, 8> suffixes = {}; ///< of the presented files that are in this language unless another is given
    Editors editors = {};
    LineNumbers lineNumbers = LineNumbers::Kept;
};

/// All languages that have a lexer.
namespace Languages {

[[nodiscard]] std::span<const Language> all();
/// The language of \a name, compared exactly; null when there is none.
[[nodiscard]] const Language *named(std::string_view name);
/// The language of presented files whose names end in a dot and \a suffix; null when there is none.
[[nodiscard]] const Language *ofSuffix(std::string_view suffix);

} // namespace Languages

} // namespace tavidoc
