#include "site/command/arguments.h"

#include "base/nearest_name.h"

#include <algorithm>
#include <thread>
#include <vector>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t s_helpColumn = 26;

std::string quoted(const QString &text)
{
    return '"' + text.toStdString() + '"';
}

bool accepts(const Verb &verb, OptionId option)
{
    return option == OptionId::Help || option == OptionId::Version || std::ranges::count(verb.options, option) != 0;
}

/// The spellings of the options of \a verb, to look for a near one.
std::vector<std::string> spellings(const Verb &verb)
{
    std::vector<std::string> names;
    for (const Option &option : siteOptions()) {
        if (!accepts(verb, option.id))
            continue;
        names.push_back("--" + std::string(option.name));
        if (option.letter != 0)
            names.push_back(std::string("-") + option.letter);
    }
    return names;
}

[[noreturn]] void failUnknown(const Verb &verb, const QString &option)
{
    const std::vector<std::string> names = spellings(verb);
    const std::vector<std::string_view> views(names.begin(), names.end());
    throw UsageError{std::string(verb.name) + ": unknown option " + quoted(option) +
                     suggestion(option.toStdString(), views)};
}

template <typename Matches> const Option *findOption(const Verb &verb, Matches matches)
{
    const auto found = std::ranges::find_if(
        siteOptions(), [&](const Option &option) { return accepts(verb, option.id) && matches(option); });
    return found == siteOptions().end() ? nullptr : &*found;
}

std::string padded(std::string text)
{
    text.resize(std::max(text.size() + 1, s_helpColumn), ' ');
    return text;
}

std::string optionLine(const Option &option)
{
    std::string left = option.letter != 0 ? std::string("  -") + option.letter + ", --" : "      --";
    left.append(option.name);
    if (!option.value.empty())
        left.append(" ").append(option.value);
    return padded(left).append(option.help).append("\n");
}

} // namespace

std::span<const Option> siteOptions()
{
    using enum OptionId;
    static constexpr Option table[] = {
        {Output, 'o', "output", "PATH", "where to write"},
        {Jobs, 'j', "jobs", "N", "run N processes at once (default: the number of processors)"},
        {Strict, 0, "strict", "", "findings at warning level also give status 1"},
        {ExitZero, 0, "exit-zero", "", "findings give status 0"},
        {Progress, 0, "progress", "", "show progress even if standard error is not a terminal"},
        {Quiet, 'q', "quiet", "", "print findings and errors only"},
        {Cache, 0, "cache", "DIR", "where records are kept (default: the output with \".cache\" appended)"},
        {Folder, 0, "folder", "F", "the folder of the pages in the site (default: the top)"},
        {Depfile, 0, "depfile", "FILE", "write the files that were read as a rule for make"},
        {Target, 0, "target", "NAME", "the target of that rule (default: the output)"},
        {Partial, 'r', "partial", "", "write one record file that links and renders like all its inputs"},
        {Link, 0, "link", "DIR", "what \"link\" wrote"},
        {Help, 'h', "help", "", "print this help"},
        {Version, 0, "version", "", "print the version"},
    };
    static_assert(std::size(table) == static_cast<std::size_t>(Count));
    return table;
}

Arguments::Arguments(const Verb &verb, const QStringList &arguments) : m_verb(&verb)
{
    QStringList rest = arguments;
    while (!rest.isEmpty()) {
        const QString &first = rest.constFirst();
        if (first == "--"_L1) {
            m_operands.append(rest.mid(1));
            return;
        }
        if (first.startsWith("--"_L1))
            parseLong(rest);
        else if (first.size() > 1 && first.startsWith(u'-'))
            parseShort(rest);
        else
            m_operands.append(rest.takeFirst());
    }
}

void Arguments::parseLong(QStringList &rest)
{
    const QString argument = rest.takeFirst();
    const qsizetype equals = argument.indexOf(u'=');
    const QString spelling = argument.left(equals);
    const std::string name = spelling.mid(2).toStdString();
    const Option *const option = findOption(*m_verb, [&](const Option &row) { return row.name == name; });
    if (option == nullptr)
        failUnknown(*m_verb, spelling);
    set(*option, equals < 0 ? std::nullopt : std::optional(argument.mid(equals + 1)), rest);
}

void Arguments::parseShort(QStringList &rest)
{
    QString argument = rest.takeFirst();
    const char16_t letter = argument[1].unicode();
    const Option *const option =
        findOption(*m_verb, [&](const Option &row) { return row.letter != 0 && char16_t(row.letter) == letter; });
    if (option == nullptr)
        failUnknown(*m_verb, argument);
    if (argument.size() > 2 && option->value.empty()) { // several options in one argument
        rest.prepend(u'-' + argument.mid(2));
        argument.truncate(2);
    }
    set(*option, argument.size() > 2 ? std::optional(argument.mid(2)) : std::nullopt, rest);
}

void Arguments::set(const Option &option, const std::optional<QString> &attached, QStringList &rest)
{
    const std::string name = std::string(m_verb->name) + ": --" + std::string(option.name);
    std::optional<QString> &value = m_values[index(option.id)];
    if (option.value.empty()) {
        if (attached)
            throw UsageError{name + " does not take a value"};
        value = QString();
        return;
    }
    if (!attached && rest.isEmpty())
        throw UsageError{name + ": expected " + std::string(option.value)};
    value = attached ? *attached : rest.takeFirst();
    if (value->isEmpty())
        throw UsageError{name + ": expected " + std::string(option.value)};
}

QString Arguments::required(OptionId option) const
{
    const Option &row = siteOptions()[index(option)];
    if (has(option))
        return value(option);
    std::string message =
        std::string(m_verb->name) + ": expected --" + std::string(row.name) + " " + std::string(row.value);
    // The last of several operands without a suffix was probably meant as the output.
    if (option == OptionId::Output && m_operands.size() > 1 && !m_operands.constLast().contains(u'.'))
        message.append(", as in \"-o ").append(m_operands.constLast().toStdString()).append("\"");
    throw UsageError{message};
}

int Arguments::jobs() const
{
    constexpr int most = 1000;
    if (!has(OptionId::Jobs))
        return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, unsigned{most}));
    bool isNumber = false;
    const int jobs = value(OptionId::Jobs).toInt(&isNumber);
    if (!isNumber || jobs < 1 || jobs > most)
        throw UsageError{"invalid number of jobs " + quoted(value(OptionId::Jobs)) + ": expected 1 to 1000"};
    return jobs;
}

std::string programHelp()
{
    std::string text = "usage: tavidoc-site VERB [OPTION...] [FILE...]\n\n"
                       "Makes one site of many markup sources and C and C++ headers.\n\nverbs:\n";
    for (const Verb &verb : siteVerbs())
        text.append(padded("  " + std::string(verb.name))).append(verb.help).append("\n");
    text.append("\noptions:\n");
    for (const OptionId option : {OptionId::Help, OptionId::Version})
        text.append(optionLine(siteOptions()[static_cast<std::size_t>(option)]));
    return text.append("\n\"tavidoc-site VERB --help\" describes a verb.\n");
}

std::string verbHelp(const Verb &verb)
{
    std::string text = "usage: tavidoc-site " + std::string(verb.name) + " [OPTION...] " + std::string(verb.operands);
    text.append("\n\n").append(verb.help).append("\n\noptions:\n");
    for (const Option &option : siteOptions()) {
        if (accepts(verb, option.id))
            text.append(optionLine(option));
    }
    return text;
}

const Verb &verbNamed(const QString &name)
{
    const std::string wanted = name.toStdString();
    const auto found = std::ranges::find(siteVerbs(), wanted, &Verb::name);
    if (found != siteVerbs().end())
        return *found;
    if (wanted.starts_with('-')) {
        static constexpr std::string_view options[] = {"--help", "--version", "-h"};
        throw UsageError{"unknown option " + quoted(name) + suggestion(wanted, options)};
    }
    if (wanted.find_first_of("./") != std::string::npos)
        throw UsageError{"unknown verb " + quoted(name) +
                         ": expected a verb before the inputs, as in \"tavidoc-site build " + wanted + " -o DIR\""};
    std::vector<std::string_view> names;
    for (const Verb &verb : siteVerbs())
        names.push_back(verb.name);
    throw UsageError{"unknown verb " + quoted(name) + suggestion(wanted, names)};
}

} // namespace tavidoc
