#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// A tag of an HTML text, or a comment or declaration, which has no name.
struct HtmlTag
{
    std::size_t begin = 0; ///< of its "<"
    std::size_t end = 0;   ///< after its ">"
    std::string name;      ///< in small letters
    bool isClosing = false;
    std::string_view attributes; ///< all of them, as written
};

/// Finds the tags of an HTML text, any bytes, in one pass. A "<" that begins no tag is text; so are a tag that is not
/// closed, with all that follows, and what is between the tags of a script, a style and the like.
class HtmlTags
{
public:
    explicit HtmlTags(std::string_view html) : m_html(html) {}

    /// Goes to the next tag or comment; false at the end of the text.
    bool next();
    [[nodiscard]] const HtmlTag &tag() const { return m_tag; }
    /// Passes over what is before \a offset, which is behind the current tag.
    void goOnAt(std::size_t offset) { m_at = offset; }

    /// What would end the comment that is open at the end of the text; empty if none is.
    [[nodiscard]] std::string_view missingEnd() const { return m_missingEnd; }
    /// The "<" with which the text ends in the middle of a tag; npos if it does not.
    [[nodiscard]] std::size_t brokenTag() const { return m_brokenTag; }

private:
    void skipTextElement();
    [[nodiscard]] bool readTag();
    void readComment(std::size_t from, std::string_view closing);

    std::string_view m_html;
    std::size_t m_at = 0;
    HtmlTag m_tag;
    std::string_view m_missingEnd;
    std::size_t m_brokenTag = std::string_view::npos;
};

/// The offset after the ">" of the tag that begins at \a offset, which may be in quotes; npos if there is none.
[[nodiscard]] std::size_t tagEnd(std::string_view html, std::size_t offset);

/// The place of the value of an attribute.
struct AttributeValue
{
    std::size_t offset = 0;
    std::size_t length = 0;
    bool found = false;
};

/// Reads the attributes of a tag in their order.
class AttributeReader
{
public:
    /// \a offset is that of the "<" of the tag in \a html; both must stay. A tag that is not closed has no attributes.
    AttributeReader(std::string_view html, std::size_t offset);
    /// \a attributes are those of a tag, and must stay. Places are in them.
    explicit AttributeReader(std::string_view attributes) : m_html(attributes), m_end(attributes.size()) {}

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

/// The place of the value of \a attribute in the tag that begins at \a offset of \a html.
[[nodiscard]] AttributeValue attributeValue(std::string_view html, std::size_t offset, std::string_view attribute);

/// The value of the attribute \a name, which is in small letters: a view of the HTML, with its character references and
/// without quotes. Nothing without one.
[[nodiscard]] std::optional<std::string_view> attributeOf(const HtmlTag &tag, std::string_view name);

} // namespace tavidoc
