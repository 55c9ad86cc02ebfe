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
    std::optional<std::string_view> invalid; ///< the first piece that is not a finite number; such pieces count as 0
};

/// Distributes the width of a page, 5 inches, over the pieces of the comma-separated \a list from left to
/// right. A piece is a number of inches, with or without "in", or of centimetres with "cm"; "*" takes all
/// that remains.
[[nodiscard]] ColumnWidths columnWidths(std::string_view list);

/// The number of pieces of the comma-separated \a list; at least 1.
[[nodiscard]] std::size_t columnCount(std::string_view list);

/// The width of each of \a count columns of a matrix, in percent.
[[nodiscard]] int matrixColumnPercent(std::size_t count);

/// The number of white-space characters directly before \a offset.
[[nodiscard]] std::size_t whiteSpaceBefore(std::string_view text, std::size_t offset);

} // namespace tavidoc
