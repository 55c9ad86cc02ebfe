#include "apiref/comment_commands.h"
#include "apiref/comment_findings.h"

#include "base/white_space.h"
#include "markup/command_table.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_raising = 3; // commands in one comment

/// A command of another tool.
struct ForeignCommand
{
    enum class Takes : unsigned char
    {
        Text, ///< what follows
        Word, ///< the next word: here it is an argument in braces
        Mark, ///< nothing that is written here
    };

    std::string_view name;
    std::string_view instead; ///< without the backslash; empty: nothing
    Takes takes = Takes::Text;
};

/// By name.
constexpr ForeignCommand s_commands[] = {
    {"a", "a", ForeignCommand::Takes::Word},
    {"addtogroup", "ingroup"},
    {"attention", "note"},
    {"author", "", ForeignCommand::Takes::Mark},
    {"b", "b", ForeignCommand::Takes::Word},
    {"brief", "brief"},
    {"bug", "note"},
    {"c", "tt", ForeignCommand::Takes::Word},
    {"class", "", ForeignCommand::Takes::Mark},
    {"code", "code"},
    {"date", "", ForeignCommand::Takes::Mark},
    {"defgroup", "ingroup"},
    {"deprecated", "note"},
    {"details", "description"},
    {"e", "e", ForeignCommand::Takes::Word},
    {"em", "em", ForeignCommand::Takes::Word},
    {"endcode", "endcode"},
    {"endverbatim", "endpre"},
    {"enum", "", ForeignCommand::Takes::Mark},
    {"exception", "errors"},
    {"file", "", ForeignCommand::Takes::Mark},
    {"fn", "", ForeignCommand::Takes::Mark},
    {"ingroup", "ingroup"},
    {"li", "item"},
    {"link", "xref", ForeignCommand::Takes::Word},
    {"note", "note"},
    {"p", "tt", ForeignCommand::Takes::Word},
    {"par", "", ForeignCommand::Takes::Mark},
    {"param", "param", ForeignCommand::Takes::Word},
    {"post", "note"},
    {"pre", "note"},
    {"ref", "xref", ForeignCommand::Takes::Word},
    {"remark", "note"},
    {"remarks", "note"},
    {"result", "return"},
    {"return", "return"},
    {"returns", "return"},
    {"retval", "rv"},
    {"sa", "sa"},
    {"see", "sa"},
    {"since", "note"},
    {"struct", "", ForeignCommand::Takes::Mark},
    {"throw", "errors"},
    {"throws", "errors"},
    {"todo", "fixme"},
    {"tparam", "param", ForeignCommand::Takes::Word},
    {"verbatim", "pre"},
    {"version", "", ForeignCommand::Takes::Mark},
    {"warning", "note"},
};
static_assert(std::ranges::is_sorted(s_commands, {}, &ForeignCommand::name));

const ForeignCommand *foreignCommand(std::string_view name)
{
    const auto *const found = std::ranges::lower_bound(s_commands, name, {}, &ForeignCommand::name);
    return found != std::end(s_commands) && found->name == name ? found : nullptr;
}

/// Whether \a command, which the row \a row describes, is written as in another tool. \a rest is what follows it.
bool isForeign(const CommentCommand &command, const ForeignCommand &row, std::string_view rest)
{
    if (command.sign == '@' || CommandTable::find(command.name) == nullptr || command.name == "returns")
        return true;
    return rest.starts_with(':') || (row.takes == ForeignCommand::Takes::Word && !rest.starts_with('{'));
}

/// What follows a command before its word: a direction, "[in]", or a colon, and blanks.
std::string_view skipped(std::string_view rest)
{
    if (rest.starts_with('['))
        rest.remove_prefix(std::min(rest.find(']'), rest.size() - 1) + 1);
    rest.remove_prefix(rest.starts_with(':') ? 1 : 0);
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    return rest;
}

/// The word with which \a rest begins, without the punctuation after it.
std::string_view firstWord(std::string_view rest)
{
    std::string_view word = rest.substr(0, rest.find_first_of(" \t\r\n"));
    while (!word.empty() && std::string_view(".,;:!?").find(word.back()) != std::string_view::npos)
        word.remove_suffix(1);
    return word;
}

struct ForeignUse
{
    std::int64_t line; ///< counted from 0, the first line of the comment
    std::string text;  ///< of the finding
};

ForeignUse useOf(const CommentCommand &command, const ForeignCommand &row, std::string_view rest)
{
    const bool takesWord = row.takes == ForeignCommand::Takes::Word;
    const std::string_view word = takesWord ? firstWord(skipped(rest)) : std::string_view();
    std::string text = std::string("\"") + command.sign;
    text.append(command.name).append(takesWord && !word.empty() ? " " : "").append(word);
    text.append(takesWord || !rest.starts_with(':') ? "" : ":").append("\" is a command of another tool: ");
    if (row.instead.empty()) {
        text += "remove it";
    } else {
        text.append("write \"\\").append(row.instead);
        if (takesWord)
            text.append("{").append(word.empty() ? "..." : word).append("}");
        text += '"';
    }
    return {command.line, std::move(text)};
}

std::vector<ForeignUse> foreignUses(std::string_view comment)
{
    std::vector<ForeignUse> uses;
    CommentCommands commands(comment);
    while (const std::optional<CommentCommand> command = commands.next()) {
        const ForeignCommand *const row = foreignCommand(command->name);
        const std::string_view rest = comment.substr(command->end);
        if (row != nullptr && isForeign(*command, *row, rest))
            uses.push_back(useOf(*command, *row, rest));
    }
    return uses;
}

/// Finds the comments of a header that begin a line and are those of another tool, in one pass.
class ForeignComments
{
public:
    struct Comment
    {
        std::string_view opening; ///< "///", "//!" or "/**"
        std::string_view text;
        std::int64_t line; ///< counted from 1
    };

    explicit ForeignComments(std::string_view text) : m_rest(text) {}

    std::optional<Comment> next()
    {
        while (!m_rest.empty()) {
            const std::string_view line = lineAt(m_rest);
            const std::string_view opening = openingOf(line);
            const std::int64_t number = m_line;
            if (line.starts_with("/*")) {
                const std::string_view text = takeBlock(line);
                if (!opening.empty())
                    return Comment{opening, text, number};
            } else if (!opening.empty()) {
                return Comment{opening, takeLines(opening), number};
            } else {
                takeLine();
            }
        }
        return std::nullopt;
    }

private:
    /// The first line of \a text without the blanks before it.
    static std::string_view lineAt(std::string_view text)
    {
        const std::string_view line = text.substr(0, text.find('\n'));
        return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    }

    /// Rows of slashes or asterisks are ornaments, and "<" belongs to what is before the comment.
    static std::string_view openingOf(std::string_view line)
    {
        for (const std::string_view opening : {"///", "//!", "/**"}) {
            const std::string_view after = line.substr(std::min(opening.size(), line.size()), 1);
            if (line.starts_with(opening) && after != "<" && after != "/" && after != "*")
                return opening;
        }
        return {};
    }

    void takeLine()
    {
        const std::size_t end = m_rest.find('\n');
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        ++m_line;
    }

    /// Takes the lines of the block comment with which \a line begins, and returns its text.
    std::string_view takeBlock(std::string_view line)
    {
        const auto begin = static_cast<std::size_t>(line.data() - m_rest.data());
        const std::size_t end = std::min(m_rest.find("*/", begin + 2), m_rest.size());
        const std::string_view text = m_rest.substr(begin, end - begin);
        m_line += std::ranges::count(m_rest.substr(0, end), '\n');
        m_rest.remove_prefix(end);
        takeLine();
        return text;
    }

    /// Takes the lines that begin with \a opening.
    std::string_view takeLines(std::string_view opening)
    {
        const char *const begin = m_rest.data();
        while (!m_rest.empty() && lineAt(m_rest).starts_with(opening))
            takeLine();
        return {begin, static_cast<std::size_t>(m_rest.data() - begin)};
    }

    std::string_view m_rest;
    std::int64_t m_line = 1;
};

} // namespace

void tellForeignCommands(std::string_view comment, const DocumentPlace &place, DocumentListener &listener)
{
    std::vector<ForeignUse> uses = foreignUses(comment);
    for (ForeignUse &use : uses) {
        const DocumentPlace line = {place.file, place.line + use.line};
        listener.finding({"foreign-command", line, std::move(use.text), uses.size() >= s_raising});
    }
}

void tellForeignComments(const QString &file, std::string_view text, DocumentListener &listener)
{
    std::optional<ForeignComments::Comment> first;
    bool isRaised = false;
    ForeignComments comments(text);
    while (!isRaised) {
        const std::optional<ForeignComments::Comment> comment = comments.next();
        if (!comment)
            break;
        isRaised = foreignUses(comment->text).size() >= s_raising;
        if (!first || isRaised)
            first = comment;
    }
    if (first)
        listener.finding({"foreign-command",
                          {file, first->line},
                          "comments that begin with \"" + std::string(first->opening) +
                              "\" are not used: begin documentation comments with \"/*!\"",
                          isRaised});
}

} // namespace tavidoc
