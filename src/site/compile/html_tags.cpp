#include "site/compile/html_tags.h"

#include "base/white_space.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool endsName(char c)
{
    return isSpace(c) || c == '/' || c == '>' || c == '=';
}

bool equalsLower(std::string_view text, std::string_view lower)
{
    return std::ranges::equal(text, lower, {}, lowerCase);
}

/// Reads attributes from the front of \a rest.
class AttributeReader
{
public:
    explicit AttributeReader(std::string_view attributes) : m_rest(attributes) {}

    std::optional<HtmlAttribute> next()
    {
        while (!m_rest.empty() && endsName(m_rest.front()))
            m_rest.remove_prefix(1);
        if (m_rest.empty())
            return std::nullopt;
        HtmlAttribute attribute;
        attribute.name = take(nameLength());
        skipSpace();
        if (!m_rest.starts_with('='))
            return attribute;
        m_rest.remove_prefix(1);
        skipSpace();
        attribute.value = takeValue();
        return attribute;
    }

private:
    [[nodiscard]] std::size_t nameLength() const
    {
        return static_cast<std::size_t>(std::ranges::find_if(m_rest, endsName) - m_rest.begin());
    }

    void skipSpace()
    {
        while (!m_rest.empty() && isSpace(m_rest.front()))
            m_rest.remove_prefix(1);
    }

    std::string_view take(std::size_t length)
    {
        const std::string_view taken = m_rest.substr(0, length);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    std::string_view takeValue()
    {
        const char quote = m_rest.empty() ? '\0' : m_rest.front();
        if (quote != '"' && quote != '\'')
            return take(static_cast<std::size_t>(std::ranges::find_if(m_rest, isSpace) - m_rest.begin()));
        m_rest.remove_prefix(1);
        const std::string_view value = take(m_rest.find(quote));
        if (!m_rest.empty())
            m_rest.remove_prefix(1);
        return value;
    }

    std::string_view m_rest;
};

} // namespace

std::optional<HtmlTag> HtmlTags::next()
{
    for (std::size_t at = m_html.find('<', m_offset); at != std::string_view::npos; at = m_html.find('<', at + 1)) {
        HtmlTag tag;
        tag.begin = at;
        if (m_html.substr(at).starts_with("<!--")) {
            const std::size_t close = m_html.find("-->", at + 4);
            tag.end = close == std::string_view::npos ? m_html.size() : close + 3;
            m_offset = tag.end;
            return tag;
        }
        tag.isClosing = m_html.substr(at + 1, 1) == "/";
        const std::size_t name = at + (tag.isClosing ? 2 : 1);
        if (name >= m_html.size() || !isLetter(m_html[name]))
            continue;
        const std::size_t end = tagEnd(name);
        if (end == std::string_view::npos)
            break;
        const std::string_view inside = m_html.substr(name, end - name);
        const auto nameEnd = std::ranges::find_if(inside, endsName);
        std::ranges::transform(inside.begin(), nameEnd, std::back_inserter(tag.name), lowerCase);
        tag.attributes = inside.substr(tag.name.size());
        tag.end = end + 1;
        m_offset = tag.end;
        return tag;
    }
    m_offset = m_html.size();
    return std::nullopt;
}

/// The offset of the ">" that ends the tag whose name is at \a at. A ">" in quotes does not.
std::size_t HtmlTags::tagEnd(std::size_t at) const
{
    for (at = m_html.find_first_of(">\"'", at); at != std::string_view::npos;
         at = m_html.find_first_of(">\"'", at + 1)) {
        if (m_html[at] == '>')
            return at;
        at = m_html.find(m_html[at], at + 1);
        if (at == std::string_view::npos)
            break;
    }
    return std::string_view::npos;
}

std::vector<HtmlAttribute> attributesOf(const HtmlTag &tag)
{
    std::vector<HtmlAttribute> attributes;
    AttributeReader reader(tag.attributes);
    while (const std::optional<HtmlAttribute> attribute = reader.next())
        attributes.push_back(*attribute);
    return attributes;
}

std::optional<std::string_view> attributeOf(const HtmlTag &tag, std::string_view name)
{
    AttributeReader reader(tag.attributes);
    while (const std::optional<HtmlAttribute> attribute = reader.next()) {
        if (equalsLower(attribute->name, name))
            return attribute->value;
    }
    return std::nullopt;
}

} // namespace tavidoc
