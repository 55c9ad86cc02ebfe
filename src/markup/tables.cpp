#include "markup/tables.h"

#include "base/white_space.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tavidoc {

namespace {

constexpr double s_pageInches = 5.0;
constexpr double s_centimetresPerInch = 2.54;

/// \a text as a finite number; nothing when it is something else.
std::optional<double> number(std::string_view text)
{
    bool valid = false;
    text = trimmed(text);
    const double value = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())).toDouble(&valid);
    if (!valid || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// The width that \a piece asks for, in inches, while \a remaining inches are left.
std::optional<double> inches(std::string_view piece, double remaining)
{
    if (piece == "*")
        return remaining;
    const std::string_view withoutUnit = piece.substr(0, piece.size() < 2 ? 0 : piece.size() - 2);
    if (piece.ends_with("in"))
        return number(withoutUnit);
    if (!piece.ends_with("cm"))
        return number(piece);
    const std::optional<double> centimetres = number(withoutUnit);
    return centimetres ? std::optional(*centimetres / s_centimetresPerInch) : std::nullopt;
}

} // namespace

ColumnWidths columnWidths(std::string_view list)
{
    ColumnWidths widths;
    double remaining = s_pageInches;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const std::string_view piece = trimmed(list.substr(begin, end - begin));
        const std::optional<double> width = inches(piece, remaining);
        if (!width && !widths.invalid)
            widths.invalid = piece;
        remaining -= width.value_or(0);
        if (widths.count > 0)
            widths.inches += ',';
        widths.inches += QByteArray::number(width.value_or(0), 'g', 6).toStdString();
        widths.inches += "in";
        ++widths.count;
        begin = end + 1;
    }
    return widths;
}

std::size_t columnCount(std::string_view list)
{
    return static_cast<std::size_t>(std::ranges::count(list, ',')) + 1;
}

int matrixColumnPercent(std::size_t count)
{
    return static_cast<int>(100 / count) - 3;
}

std::size_t whiteSpaceBefore(std::string_view text, std::size_t offset)
{
    std::size_t begin = offset;
    while (begin > 0 && isSpace(text[begin - 1]))
        --begin;
    return offset - begin;
}

} // namespace tavidoc
