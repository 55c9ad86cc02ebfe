#include "apiref/comment_markup.h"

#include "base/white_space.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tavidoc {

namespace {

// Comments are UTF-16 in declarations and UTF-8 in markup.
template <typename Char> constexpr bool isBlankCharacter(Char c)
{
    return c == Char(' ') || c == Char('\t');
}

template <typename Char> std::size_t leadingBlanks(std::basic_string_view<Char> line)
{
    return static_cast<std::size_t>(std::ranges::find_if_not(line, isBlankCharacter<Char>) - line.begin());
}

/// The number of asterisks after the blanks at the start of \a line.
template <typename Char> std::size_t asterisks(std::basic_string_view<Char> line)
{
    line.remove_prefix(leadingBlanks(line));
    return std::min(line.find_first_not_of(Char('*')), line.size());
}

/// \a line without decoration, of which at most \a width asterisks and the blank after them are removed.
template <typename Char>
std::basic_string_view<Char> withoutDecoration(std::basic_string_view<Char> line, std::size_t width)
{
    const std::size_t count = std::min(asterisks(line), width);
    if (count == 0)
        return line;
    line.remove_prefix(leadingBlanks(line) + count);
    if (!line.empty() && isBlankCharacter(line.front()))
        line.remove_prefix(1);
    return line;
}

bool continuesName(std::string_view text)
{
    const char c = text.empty() ? '\0' : text.front();
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Copies the lines of a comment and applies the rules of code blocks on the way.
class CodeBlockCopier
{
public:
    void copyLine(std::string_view line)
    {
        if (m_inCode && m_indentation == s_unknown)
            m_indentation = leadingBlanks(line);
        if (m_inCode)
            line.remove_prefix(std::min(leadingBlanks(line), m_indentation));
        while (!line.empty())
            copyToBackslash(line);
    }

    void endLine() { m_text += '\n'; }
    std::string takeText() { return std::move(m_text); }

private:
    static constexpr std::size_t s_unknown = std::string_view::npos;

    /// Copies the text up to the next backslash of \a line and the command that follows.
    void copyToBackslash(std::string_view &line)
    {
        const std::size_t backslash = std::min(line.find('\\'), line.size());
        copy(line, backslash);
        if (startsWithCommand(line, s_code)) {
            copy(line, s_code.size());
            if (!line.starts_with('{'))
                m_text += "{c}";
            m_inCode = true;
            m_indentation = s_unknown;
        } else if (startsWithCommand(line, s_endCode)) {
            copy(line, s_endCode.size());
            m_inCode = false;
        } else {
            copy(line, std::min<std::size_t>(2, line.size())); // a doubled backslash hides what follows
        }
    }

    void copy(std::string_view &line, std::size_t length)
    {
        m_text += line.substr(0, length);
        line.remove_prefix(length);
    }

    static bool startsWithCommand(std::string_view line, std::string_view command)
    {
        return line.starts_with(command) && !continuesName(line.substr(command.size()));
    }

    static constexpr std::string_view s_code = "\\code";
    static constexpr std::string_view s_endCode = "\\endcode";

    std::string m_text;
    bool m_inCode = false;
    std::size_t m_indentation = s_unknown; // of the first line of the code block
};

std::string withName(std::string text, std::string_view name)
{
    constexpr std::string_view place = "\\this";
    std::string_view markup = text;
    if (markup.find(place) == std::string_view::npos)
        return text;
    std::string result;
    for (std::size_t at = markup.find(place); at != std::string_view::npos; at = markup.find(place)) {
        result.append(markup.substr(0, at)).append(name);
        markup.remove_prefix(at + place.size());
    }
    return result.append(markup);
}

} // namespace

std::vector<std::string_view> innerLines(std::string_view comment)
{
    std::vector<std::string_view> lines;
    for (std::size_t begin = comment.find('\n'); begin != std::string_view::npos;) {
        const std::size_t end = comment.find('\n', begin + 1);
        if (end != std::string_view::npos)
            lines.push_back(comment.substr(begin + 1, end - begin - 1));
        begin = end;
    }
    return lines;
}

void removeDecoration(std::vector<std::string_view> &lines)
{
    const auto first =
        std::ranges::find_if(lines, [](std::string_view line) { return leadingBlanks(line) < line.size(); });
    const std::size_t width = first == lines.end() ? 0 : asterisks(*first);
    for (std::string_view &line : lines)
        line = withoutDecoration(line, width);
}

bool hasInnerText(std::u16string_view comment)
{
    std::optional<std::size_t> width; // of the decoration, once the first line that is not blank has been read
    std::size_t begin = comment.find(u'\n');
    for (std::size_t end = 0; begin != std::u16string_view::npos; begin = end) {
        end = comment.find(u'\n', begin + 1);
        if (end == std::u16string_view::npos)
            return false;
        std::u16string_view line = comment.substr(begin + 1, end - begin - 1);
        if (leadingBlanks(line) == line.size())
            continue;
        if (!width)
            width = asterisks(line);
        line = withoutDecoration(line, *width);
        if (line.find_first_not_of(u" \t\r\v\f") != std::u16string_view::npos)
            return true;
    }
    return false;
}

std::string overviewMarkup(std::string_view text)
{
    const std::size_t firstEnd = std::min(text.find('\n'), text.size());
    std::vector<std::string_view> lines;
    for (std::size_t begin = firstEnd; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin + 1), text.size());
        lines.push_back(text.substr(begin + 1, end - begin - 1));
        begin = end;
    }
    removeDecoration(lines);
    std::string markup(text.substr(0, firstEnd));
    for (const std::string_view line : lines)
        markup.append("\n").append(line);
    return markup;
}

std::string commentMarkup(std::string_view comment, std::string_view name)
{
    std::vector<std::string_view> lines = innerLines(comment);
    removeDecoration(lines);
    CodeBlockCopier copier;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (index > 0)
            copier.endLine();
        copier.copyLine(lines[index]);
    }
    return withName(copier.takeText(), name);
}

std::string_view leadingHeading(std::string_view markup)
{
    static constexpr std::string_view command = "\\h1 ";
    markup = trimmed(markup);
    if (!markup.starts_with(command))
        return {};
    return trimmed(markup.substr(command.size(), markup.find('\n') - command.size()));
}

} // namespace tavidoc
