#pragma once

#include "site/record/record.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Collects the names of declarations in the code of one page. All offsets are those in its body.
class CodeNames
{
public:
    /// Takes \a html, the contents of a "tt" element at \a offset, if it is one name: identifiers separated by "::",
    /// perhaps with "()" after them.
    void addText(std::string_view html, std::size_t offset);
    /// Takes the names in \a html, a listing in C or C++ at \a offset, coloured or not. Names that it declares, and the
    /// same words elsewhere in it, are left out: they are its own.
    void addListing(std::string_view html, std::size_t offset);
    /// As addListing(), for the declaration of a synopsis, whose names are those of types.
    void addSynopsis(std::string_view html, std::size_t offset);

    /// The names, in the order of their first places.
    [[nodiscard]] std::vector<RecordName> takeNames();

private:
    void add(RecordName::Use use, std::string name, std::size_t offset);

    std::vector<RecordName> m_names;
    std::unordered_map<std::string, std::size_t> m_indices; // by use and name
};

} // namespace tavidoc
