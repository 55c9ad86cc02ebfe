#pragma once

#include "site/record/record.h"

#include <string_view>
#include <vector>

namespace tavidoc {

/// Where a text is in a page, which decides the weight of its terms.
enum class TermField
{
    Name, ///< the qualified name of a declaration
    Title,
    Heading,
    Brief,
    Body,
};

/// Collects the terms of one page.
class TermCollector
{
public:
    /// \a text is plain text, UTF-8; bytes that are not count as separators.
    void add(TermField field, std::string_view text);

    /// The terms by text, each once. Leaves the collector empty.
    [[nodiscard]] std::vector<RecordTerm> takeTerms();
};

} // namespace tavidoc
