#include "site/render/tag_scan.h"

#include "base/white_space.h"
#include "site/link/page_names.h"
#include "site/render/body_edits.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

/// Elements whose text has no tags but the one that ends it.
constexpr std::string_view s_textElements[] = {"script", "style",  "textarea", "title",
                                               "xmp",    "iframe", "noembed",  "noframes"};

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool endsName(char c)
{
    return isSpace(c) || c == '>' || c == '/';
}

} // namespace

bool TagScan::next()
{
    if (!m_tag.isClosing && std::ranges::find(s_textElements, m_tag.name) != std::end(s_textElements)) {
        const std::string closing = "</" + m_tag.name;
        m_tag.name.clear();
        skipTo(closing);
    }
    for (;;) {
        m_at = m_html.find('<', m_at);
        if (m_at == std::string_view::npos)
            return false;
        const std::string_view rest = m_html.substr(m_at);
        if (rest.starts_with("<!--")) {
            m_at += 2; // "<!-->" is a whole comment
            skipTo("-->");
        } else if (rest.starts_with("<!") || rest.starts_with("<?")) {
            skipTo(">");
        } else if (readTag(m_at)) {
            m_at = m_tag.end;
            return true;
        } else if (m_brokenTag != std::string_view::npos) {
            return false;
        } else {
            ++m_at;
        }
    }
}

bool TagScan::readTag(std::size_t begin)
{
    m_tag.begin = begin;
    m_tag.isClosing = m_html.substr(begin + 1).starts_with('/');
    const std::size_t nameBegin = begin + (m_tag.isClosing ? 2 : 1);
    if (nameBegin >= m_html.size() || !isLetter(m_html[nameBegin]))
        return false;
    const std::string_view rest = m_html.substr(nameBegin);
    const auto nameEnd = std::ranges::find_if(rest, endsName);
    m_tag.name = lowerCase(rest.substr(0, static_cast<std::size_t>(nameEnd - rest.begin())));
    m_tag.end = tagEnd(m_html, nameBegin);
    if (m_tag.end == std::string_view::npos) {
        m_tag.name.clear();
        m_brokenTag = begin;
    }
    return m_tag.end != std::string_view::npos;
}

/// Goes to \a closing. Small and capital letters are the same in it.
void TagScan::skipTo(std::string_view closing)
{
    const auto isSame = [](char c, char small) {
        return c == small || (c >= 'A' && c <= 'Z' && static_cast<char>(c | 0x20) == small);
    };
    const auto *const begin = m_html.begin() + static_cast<std::ptrdiff_t>(m_at);
    // cppcheck-suppress invalidLifetime
    const auto *const found = std::search(begin, m_html.end(), closing.begin(), closing.end(), isSame);
    if (found != m_html.end()) {
        m_at = static_cast<std::size_t>(found - m_html.begin());
        m_at += closing.front() == '<' ? 0 : closing.size();
        return;
    }
    m_at = m_html.size();
    if (closing.front() != '<')
        m_missingEnd = closing;
}

} // namespace tavidoc
