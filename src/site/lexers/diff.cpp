#include "site/lexers/lexers.h"

namespace tavidoc {

namespace {

using enum ListingStyle;

struct LineStart
{
    std::string_view text;
    ListingStyle style;
};

/// The first row that fits counts.
constexpr LineStart s_lineStarts[] = {
    {"+++", Markup},          {"---", Markup},     {"diff ", Markup},       {"index ", Markup},
    {"Index: ", Markup},      {"@@", Control},     {"Only in ", Markup},    {"new file", Markup},
    {"deleted file", Markup}, {"rename ", Markup}, {"similarity ", Markup}, {"+", Inserted},
    {">", Inserted},          {"-", Deleted},      {"<", Deleted},          {"\\", Comment},
};

ListingStyle styleOfLine(const ListingScanner &scanner)
{
    for (const LineStart &row : s_lineStarts) {
        if (scanner.startsWith(row.text))
            return row.style;
    }
    return Plain;
}

} // namespace

void lexDiff(ListingScanner &scanner)
{
    while (!scanner.atEnd()) {
        scanner.takeLine(styleOfLine(scanner));
        scanner.skip();
    }
}

} // namespace tavidoc
