#include "apiref/comment_commands.h"
#include "apiref/comment_findings.h"

#include "base/nearest_name.h"
#include "base/white_space.h"
#include "markup/command_table.h"
#include "sourcebrowser/members.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

namespace {

constexpr std::size_t s_mostComparisons = 10'000; // of wrong names with missing ones

std::string inQuotes(std::string_view text)
{
    return std::string("\"").append(text).append("\"");
}

/// The names of the parameters of a declaration.
struct Parameters
{
    std::vector<std::string> names;
    bool hasOthers = false; ///< without names; comments may name them as they like
};

/// Names are shown without the underscores before them.
std::string shownName(std::string_view name)
{
    name.remove_prefix(name.size() > 2 && name.starts_with("__") ? 2 : 0);
    return std::string(name);
}

void addName(Parameters &parameters, std::string_view name)
{
    if (name.empty() || name.ends_with("..."))
        parameters.hasOthers = true;
    else
        parameters.names.push_back(shownName(name));
}

/// Calls \a take with each part of \a list between commas, trimmed.
template <typename Take> void forEachPart(std::string_view list, Take take)
{
    while (true) {
        const std::size_t comma = std::min(list.find(','), list.size());
        take(trimmed(list.substr(0, comma)));
        if (comma == list.size())
            return;
        list.remove_prefix(comma + 1);
    }
}

/// The parameters of the macro \a name, whose directive is \a text; nothing if it takes none.
std::optional<Parameters> macroParameters(std::string_view text, std::string_view name)
{
    const std::size_t open = text.find(name) + name.size();
    const std::size_t close = text.find(')', std::min(open, text.size()));
    if (text.find(name) == std::string_view::npos || text.substr(open, 1) != "(" || close == std::string_view::npos)
        return std::nullopt;
    Parameters parameters;
    const std::string_view list = trimmed(text.substr(open + 1, close - open - 1));
    if (!list.empty())
        forEachPart(list, [&](std::string_view part) { addName(parameters, part); });
    return parameters;
}

/// The parameters of \a object; nothing if it is not called.
std::optional<Parameters> parametersOf(const SourceBrowserObject &object)
{
    if (object.phylum() == SourceBrowserObject::Macro)
        return macroParameters(object.text().toStdString(), object.name().toStdString());
    const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
    if (method == nullptr)
        return std::nullopt;
    Parameters parameters;
    for (const SourceBrowserArgument &argument : method->arguments())
        addName(parameters, argument.name.toStdString());
    return parameters;
}

/// Whether \a object is a function without a result. Its type may have other words before "void".
bool isVoid(const SourceBrowserObject &object)
{
    const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
    if (method == nullptr || method->type().hasInsertion())
        return false;
    const QString &type = method->type().text;
    return type == u"void" || type.endsWith(u" void");
}

/// Compares what a comment describes with a declaration.
class ParameterCheck
{
public:
    ParameterCheck(const SourceBrowserObject &object, Parameters parameters, const DocumentPlace &place,
                   DocumentListener &listener)
        : m_object(object), m_parameters(std::move(parameters)), m_place(place), m_listener(listener)
    {
    }

    void run(std::string_view comment)
    {
        CommentCommands commands(comment);
        while (const std::optional<CommentCommand> command = commands.next()) {
            if (command->sign == '\\' && command->name == "param")
                describe(comment.substr(command->end), command->line);
            else if (isMisspelt(*command))
                m_isUnclear = true; // reported as an error in the markup
            else if (command->sign == '\\' && command->name == "return" && isVoid(m_object))
                tell(command->line, name() + " returns nothing: remove \"\\return\"");
        }
        tellDifferences();
    }

private:
    /// A name that a `\param` has and the declaration has not.
    struct WrongName
    {
        std::string name;
        std::int64_t line; // counted from 0, the first line of the comment
    };

    /// True for a command that does not exist and was probably meant as `\param`.
    static bool isMisspelt(const CommentCommand &command)
    {
        static constexpr std::string_view meant[] = {"param"};
        return command.sign == '\\' && CommandTable::find(command.name) == nullptr &&
               !nearestName(command.name, meant).empty();
    }

    /// Tells about names that do not fit. A wrong name and the argument that it was meant for are one finding.
    void tellDifferences()
    {
        std::vector<std::string_view> missing;
        for (const std::string &parameter : m_parameters.names) {
            if (!m_described.contains(parameter))
                missing.push_back(parameter);
        }
        const bool areMany = m_wrong.size() * missing.size() > s_mostComparisons;
        std::size_t others = 0; // wrong names that are not like a missing one
        for (const WrongName &wrong : m_wrong) {
            const bool isShort = wrong.name.size() < 3; // near to too many
            const std::string_view meant = isShort || areMany ? std::string_view() : nearestName(wrong.name, missing);
            if (!meant.empty())
                std::erase(missing, meant);
            others += meant.empty() ? 1 : 0;
            tell(wrong.line, name() + " has no argument " + inQuotes(wrong.name) +
                                 (meant.empty() ? expected() : "; did you mean " + inQuotes(meant) + "?"));
        }
        if (m_described.empty() || m_isUnclear || missing.size() <= others)
            return;
        for (const std::string_view parameter : missing)
            tell(0, "the argument " + inQuotes(parameter) + " of " + name() + " has no \"\\param\"");
    }

    /// The names of the arguments, after a message; empty if there are none.
    [[nodiscard]] std::string expected() const
    {
        std::string text;
        for (const std::string &parameter : m_parameters.names)
            text.append(text.empty() ? ": expected " : ", ").append(inQuotes(parameter));
        return text;
    }

    [[nodiscard]] std::string name() const { return inQuotes(m_object.name().toStdString()); }

    void tell(std::int64_t line, std::string text)
    {
        m_listener.finding({"param-mismatch", {m_place.file, m_place.line + line}, std::move(text)});
    }

    /// Reads the argument of a `\param`, with which \a rest begins. It may name several parameters.
    void describe(std::string_view rest, std::int64_t line)
    {
        const std::size_t end = rest.find('}');
        if (!rest.starts_with('{') || end == std::string_view::npos)
            return; // reported as an error in the markup
        const std::string_view names = rest.substr(1, end - 1);
        if (names.find_first_of("\\{") != std::string_view::npos) {
            m_isUnclear = true;
            return;
        }
        forEachPart(names, [&](std::string_view part) { describeName(part, line); });
    }

    void describeName(std::string_view name, std::int64_t line)
    {
        while (name.starts_with('*') || name.starts_with('&'))
            name.remove_prefix(1);
        name = name.substr(0, name.find('['));
        const std::string shown = shownName(name);
        m_described.insert(shown);
        if (m_parameters.hasOthers || std::ranges::find(m_parameters.names, shown) != m_parameters.names.end())
            return;
        m_wrong.push_back({std::string(name), line});
    }

    const SourceBrowserObject &m_object;
    Parameters m_parameters;
    const DocumentPlace &m_place;
    DocumentListener &m_listener;
    std::set<std::string> m_described;
    std::vector<WrongName> m_wrong;
    bool m_isUnclear = false; // what a `\param` names has styles of its own, or a `\param` is misspelt
};

} // namespace

void tellParameterMismatches(const SourceBrowserObject &object, std::string_view comment, const DocumentPlace &place,
                             DocumentListener &listener)
{
    if (std::optional<Parameters> parameters = parametersOf(object))
        ParameterCheck(object, std::move(*parameters), place, listener).run(comment);
}

} // namespace tavidoc
