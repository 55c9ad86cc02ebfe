#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavidoc {

/// A tag of an HTML text.
struct ScannedTag
{
    std::size_t begin = 0; ///< of its "<"
    std::size_t end = 0;   ///< after its ">"
    std::string name;      ///< in small letters
    bool isClosing = false;
};

/// Finds the tags of an HTML text, any bytes, in one pass. Comments and the text of scripts, styles and the like are
/// passed over.
class TagScan
{
public:
    explicit TagScan(std::string_view html) : m_html(html) {}

    /// Goes to the next tag; false at the end of the text.
    bool next();
    [[nodiscard]] const ScannedTag &tag() const { return m_tag; }

    /// What would end the comment that is open at the end of the text; empty if none is.
    [[nodiscard]] const std::string &missingEnd() const { return m_missingEnd; }
    /// The "<" with which the text ends in the middle of a tag; npos if it does not.
    [[nodiscard]] std::size_t brokenTag() const { return m_brokenTag; }

private:
    [[nodiscard]] bool readTag(std::size_t begin);
    void skipTo(std::string_view closing);

    std::string_view m_html;
    std::size_t m_at = 0;
    ScannedTag m_tag;
    std::string m_missingEnd;
    std::size_t m_brokenTag = std::string_view::npos;
};

} // namespace tavidoc
