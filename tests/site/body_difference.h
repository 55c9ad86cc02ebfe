#pragma once

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <string_view>

/// Compares the body of a page of the site with the body that tavidoc writes, both in ASCII. Knows nothing of how the
/// site makes its pages: it reads both side by side and accepts only the insertions and relocations that are allowed.
class BodyDifference
{
public:
    BodyDifference(std::string_view original, std::string_view rendered) : m_original(original), m_rendered(rendered) {}

    /// Where the bodies differ otherwise, and how; empty if they do not.
    std::string find()
    {
        while (m_rend < m_rendered.size()) {
            const std::string_view originalTag = tagAt(m_original, m_orig);
            const std::string_view tag = tagAt(m_rendered, m_rend);
            if (tag.empty() && originalTag.empty() && m_original.substr(m_orig, 1) == m_rendered.substr(m_rend, 1)) {
                ++m_orig;
                ++m_rend;
            } else if (!tag.empty() && tag == originalTag) {
                advance(originalTag, tag);
                skipNewCaption(originalTag);
            } else if (isInserted(tag)) {
                m_rend += tag.size();
            } else if (!originalTag.empty() && isChanged(originalTag, tag)) {
                advance(originalTag, tag);
                skipNewCaption(originalTag);
            } else {
                return report();
            }
        }
        for (const auto &[element, count] : m_open) {
            if (count != 0)
                return "an inserted " + element + " is not closed";
        }
        return m_orig == m_original.size() ? std::string() : report();
    }

private:
    /// The tag that begins at \a at; empty if none does. A ">" in quotes does not end it.
    static std::string_view tagAt(std::string_view html, std::size_t at)
    {
        const std::size_t name = at + (html.substr(std::min(at, html.size())).starts_with("</") ? 2 : 1);
        if (name >= html.size() || html[at] != '<' || std::isalpha(static_cast<unsigned char>(html[name])) == 0)
            return {};
        char quote = 0;
        for (std::size_t end = name; end < html.size(); ++end) {
            if (quote != 0)
                quote = html[end] == quote ? '\0' : quote;
            else if (html[end] == '"' || html[end] == '\'')
                quote = html[end];
            else if (html[end] == '>')
                return html.substr(at, end + 1 - at);
        }
        return {};
    }

    void advance(std::string_view originalTag, std::string_view tag)
    {
        m_orig += originalTag.size();
        m_rend += tag.size();
    }

    bool isInserted(std::string_view tag)
    {
        constexpr std::pair<std::string_view, const char *> openings[] = {
            {"<div class=\"box\">", "div"},      {"<div class=\"listing\">", "div"},
            {"<a class=\"self\" href=\"#", "a"}, {"<a class=\"name\" href=\"", "a"},
            {"<span class=\"zkt-code-", "span"}, {"<strong class=\"error\">", "strong"}};
        for (const auto &[opening, element] : openings) {
            if (tag.starts_with(opening)) {
                ++m_open[element];
                return true;
            }
        }
        if (!tag.starts_with("</"))
            return false;
        const auto open = m_open.find(std::string(tag.substr(2, tag.size() - 3)));
        return open != m_open.end() && open->second-- > 0;
    }

    /// \a tag without the value of \a attribute.
    static std::string withoutValue(std::string_view tag, std::string_view attribute)
    {
        const std::string opening = " " + std::string(attribute) + "=\"";
        const std::size_t begin = tag.find(opening);
        if (begin == tag.npos)
            return std::string(tag);
        const std::size_t end = tag.find('"', begin + opening.size());
        return std::string(tag.substr(0, begin + opening.size())).append(tag.substr(end));
    }

    /// \a tag without the attribute that begins with \a begin, and without its value if that ends in a quote.
    static std::string without(std::string_view tag, std::string_view begin)
    {
        const std::size_t at = tag.find(begin);
        if (at == tag.npos)
            return std::string(tag);
        const std::size_t end = begin.ends_with('"') ? tag.find('"', at + begin.size()) + 1 : at + begin.size();
        return std::string(tag.substr(0, at)).append(tag.substr(end));
    }

    static bool isChanged(std::string_view original, std::string_view tag)
    {
        if (original.starts_with("<a "))
            return withoutValue(original, "href") == withoutValue(without(tag, " class=\""), "href");
        if (original.starts_with("<img "))
            return withoutValue(original, "src") == withoutValue(without(tag, " alt=\""), "src");
        if (original.starts_with("<h") && original.size() > 2 && original[2] >= '1' && original[2] <= '6')
            return original == without(tag, " id=\"");
        if (original == "<ol>")
            return original == without(tag, " start=\"");
        return original.starts_with("<tr ") && original == without(tag, " hidden");
    }

    /// After `<a href="X.htm">`, when the caption is "X", any caption will do.
    void skipNewCaption(std::string_view tag)
    {
        constexpr std::string_view opening = "<a href=\"";
        const std::size_t end = m_original.find("</a>", m_orig);
        if (!tag.starts_with(opening) || end == m_original.npos)
            return;
        std::string_view target = tag.substr(opening.size(), tag.size() - opening.size() - 2);
        target.remove_prefix(target.starts_with("./") ? 2 : 0);
        const std::string_view caption = m_original.substr(m_orig, end - m_orig);
        if (target != std::string(caption) + ".htm" && target != caption)
            return;
        m_orig = end;
        m_rend = m_rendered.find("</a>", m_rend);
    }

    [[nodiscard]] std::string report() const
    {
        return "at " + std::to_string(m_orig) + ": \"" + std::string(m_original.substr(m_orig, 60)) + "\" became \"" +
               std::string(m_rendered.substr(std::min(m_rend, m_rendered.size()), 60)) + "\"";
    }

    std::string_view m_original;
    std::string_view m_rendered;
    std::size_t m_orig = 0;
    std::size_t m_rend = 0;
    std::map<std::string, int> m_open; // inserted elements
};
