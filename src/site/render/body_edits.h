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

/// Reads the attributes of a tag in their order.
class AttributeReader
{
public:
    /// \a offset is that of the "<" of the tag in \a html; both must stay. A tag that is not closed has no attributes.
    AttributeReader(std::string_view html, std::size_t offset);

    /// Goes to the next attribute; false if there is none.
    bool next();

    [[nodiscard]] std::string_view name() const { return m_html.substr(m_begin, m_nameEnd - m_begin); }
    /// The place of the value. Not found when the attribute has none; then the offset is that of the end of the name.
    [[nodiscard]] AttributeValue value() const { return m_value; }
    [[nodiscard]] std::string_view text() const { return m_html.substr(m_value.offset, m_value.length); }
    /// The place of the whole attribute.
    [[nodiscard]] std::size_t begin() const { return m_begin; }
    [[nodiscard]] std::size_t end() const { return m_at; }

private:
    std::string_view m_html;
    std::size_t m_end = 0; // of the tag
    std::size_t m_at = 0;
    std::size_t m_begin = 0;
    std::size_t m_nameEnd = 0;
    AttributeValue m_value;
};

/// The offset after the ">" of the tag that begins at \a offset, which may be in quotes; npos if there is none.
[[nodiscard]] std::size_t tagEnd(std::string_view html, std::size_t offset);

} // namespace tavidoc
