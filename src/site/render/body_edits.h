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

/// The place of the value of \a attribute in the tag that begins at \a offset of \a html.
struct AttributeValue
{
    std::size_t offset = 0;
    std::size_t length = 0;
    bool found = false;
};
[[nodiscard]] AttributeValue attributeValue(std::string_view html, std::size_t offset, std::string_view attribute);

/// The offset after the ">" of the tag that begins at \a offset, which may be in quotes; npos if there is none.
[[nodiscard]] std::size_t tagEnd(std::string_view html, std::size_t offset);

} // namespace tavidoc
