#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A change of a body: at \a offset, \a removed bytes give way to \a inserted.
struct BodyEdit
{
    std::size_t offset = 0;
    std::size_t removed = 0;
    std::string inserted;
};

using BodyEdits = std::vector<BodyEdit>;

/// \a body with \a edits, which are sorted first; those at one place keep their order. An edit that overlaps the one
/// before it is left out.
[[nodiscard]] std::string edited(std::string_view body, BodyEdits edits);

/// The edits that the structure of \a body asks for: boxes, numbers of lists, descriptions of pictures and marks of
/// errors. Any bytes are fine; what is not closed gets no box.
[[nodiscard]] BodyEdits structuralEdits(std::string_view body);

} // namespace tavidoc
