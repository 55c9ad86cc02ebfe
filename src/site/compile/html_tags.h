#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// An attribute of a tag.
struct HtmlAttribute
{
    std::string_view name;  ///< as written
    std::string_view value; ///< a view of the HTML, with its character references; without quotes
};

/// A tag of an HTML text, or a comment, which has no name.
struct HtmlTag
{
    std::size_t begin = 0; ///< of its "<"
    std::size_t end = 0;   ///< after its ">"
    std::string name;      ///< in lower case
    bool isClosing = false;
    std::string_view attributes; ///< all of them, as written
};

/// Finds the tags of an HTML text, any bytes, in one pass.
class HtmlTags
{
public:
    explicit HtmlTags(std::string_view html) : m_html(html) {}

    /// The next tag or comment; nothing at the end of the text. A "<" that begins neither is text; a tag that is not
    /// closed is text too, with all that follows.
    [[nodiscard]] std::optional<HtmlTag> next();

private:
    [[nodiscard]] std::size_t tagEnd(std::size_t at) const;

    std::string_view m_html;
    std::size_t m_offset = 0;
};

/// The attributes of a tag.
[[nodiscard]] std::vector<HtmlAttribute> attributesOf(const HtmlTag &tag);

/// The value of the attribute \a name, which is in lower case; nothing without one.
[[nodiscard]] std::optional<std::string_view> attributeOf(const HtmlTag &tag, std::string_view name);

} // namespace tavidoc
