#include "markup/page_titles.h"

#include "base/white_space.h"

#include <utility>

namespace tavidoc {

namespace {

constexpr std::string_view s_split = "\\split";
constexpr std::string_view s_title = "\\title";
constexpr std::string_view s_pageSuffix = ".htm";

/// True when the command that \a line begins with is exactly \a name.
bool isCommand(std::string_view line, std::string_view name)
{
    return line.starts_with(name) && (line.size() == name.size() || !isNameCharacter(line[name.size()]));
}

/// The text of \a line, which begins with `\title`.
std::string titleText(std::string_view line)
{
    if (line.substr(s_title.size(), 1) != "{") {
        const std::string words = simplified(line);
        const std::size_t blank = words.find(' ');
        return blank == std::string::npos ? std::string() : words.substr(blank + 1);
    }
    std::string text = simplified(line.substr(s_title.size() + 1));
    if (text.ends_with('}'))
        text.pop_back();
    return simplified(text);
}

/// Walks over the lines of a document.
class TitleCollector
{
public:
    explicit TitleCollector(std::string_view text) : m_cursor(text) {}

    TitleLists collect()
    {
        constexpr std::string_view lineWithCommand = "\n\\";
        const std::string_view text = m_cursor.text();
        if (text.starts_with('\\'))
            readLine(0);
        for (std::size_t at = text.find(lineWithCommand); at != std::string_view::npos;
             at = text.find(lineWithCommand, at + 1))
            readLine(at + 1);
        return std::move(m_lists);
    }

private:
    void readLine(std::size_t begin)
    {
        const std::string_view rest = m_cursor.text().substr(begin);
        if (isCommand(rest, s_split))
            return splitLine(begin);
        // Deliberate: a link at the start of a line is not a title.
        if (rest.starts_with(s_title) && !isCommand(rest, "\\titleref"))
            titleLine(rest.substr(0, rest.find('\n')));
    }

    void splitLine(std::size_t begin)
    {
        m_cursor.moveTo(begin + s_split.size());
        const std::optional<std::string_view> name = takePageName(m_cursor);
        if (!name)
            return;
        m_pageName = *name;
        m_onPage = !name->empty();
        m_pageOpened = m_pageOpened || m_onPage;
    }

    void titleLine(std::string_view line)
    {
        std::string text = titleText(line);
        // After a page has been ended, a title belongs to nothing until the next page.
        if (text.empty() || (m_pageOpened && !m_onPage))
            return;
        if (m_onPage)
            m_lists.targets.insert_or_assign(text, m_pageName);
        m_lists.titles.insert_or_assign(m_pageName, std::move(text));
    }

    MarkupCursor m_cursor;
    TitleLists m_lists;
    std::string m_pageName; // of the page that the next title belongs to
    bool m_onPage = false;
    bool m_pageOpened = false; // here or before
};

} // namespace

std::optional<std::string_view> takePageName(MarkupCursor &cursor)
{
    // Deliberate: braces around the name change nothing.
    const std::optional<std::string_view> argument = cursor.atBrace() ? cursor.takeArgument() : cursor.takeLine();
    if (!argument)
        return std::nullopt;
    std::string_view name = trimmed(*argument);
    if (name.ends_with(s_pageSuffix))
        name.remove_suffix(s_pageSuffix.size());
    return name;
}

TitleLists titlesOf(std::string_view text)
{
    return TitleCollector(text).collect();
}

} // namespace tavidoc
