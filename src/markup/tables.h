#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// The columns of a table.
struct ColumnWidths
{
    std::size_t count = 0;
    std::string inches;                      ///< "2in,3in": a width for each column
    std::optional<std::string_view> invalid; ///< the first piece that is not a finite number; such a piece counts as 0
};

/// Shares the width of a page, 5 inches, out to the pieces of \a list, which commas separate.
/// A piece is a number of inches, with "in" or without, or of centimetres with "cm"; "*" takes
/// all that remains.
[[nodiscard]] ColumnWidths columnWidths(std::string_view list);

/// The number of pieces of \a list, which commas separate; at least 1.
[[nodiscard]] std::size_t columnCount(std::string_view list);

/// The width of each of \a count columns of a matrix, in percent.
[[nodiscard]] int matrixColumnPercent(std::size_t count);

/// How many characters of white space stand before \a offset.
[[nodiscard]] std::size_t whiteSpaceBefore(std::string_view text, std::size_t offset);

} // namespace tavidoc
