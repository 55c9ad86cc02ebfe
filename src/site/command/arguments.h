#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// The options of all verbs.
enum class OptionId
{
    Output,
    Jobs,
    Strict,
    ExitZero,
    Progress,
    Quiet,
    Cache,
    Folder,
    Depfile,
    Target,
    Partial,
    Link,
    Help,
    Version,
    Count, ///< the number of options
};

/// An option of the command line.
struct Option
{
    OptionId id;
    char letter;            ///< 0: none
    std::string_view name;  ///< without "--"
    std::string_view value; ///< what its value is, in the help; empty: it has none
    std::string_view help;
};

class Arguments;

/// A verb of the command line. \a options are those of its own; every verb has "--help" and "--version".
struct Verb
{
    std::string_view name;
    std::string_view operands; ///< in the help
    std::string_view help;     ///< a line
    std::span<const OptionId> options;
    /// Runs it and returns the exit status. May throw HException (status 1) and UsageError (status 2).
    int (*run)(const Arguments &arguments);
};

/// Wrong arguments; the message has neither the program's name nor a line end.
struct UsageError
{
    std::string message;
};

/// All options, by OptionId.
[[nodiscard]] std::span<const Option> siteOptions();
/// All verbs, in the order of the help.
[[nodiscard]] std::span<const Verb> siteVerbs();

/// The parsed arguments of a verb.
class Arguments
{
public:
    /// Parses what follows the verb. Options and operands may be mixed; "--" ends the options. Of an option that is
    /// given twice the last value counts. Throws UsageError.
    Arguments(const Verb &verb, const QStringList &arguments);

    [[nodiscard]] const QStringList &operands() const { return m_operands; }
    [[nodiscard]] bool has(OptionId option) const { return m_values[index(option)].has_value(); }
    /// Empty unless it is given.
    [[nodiscard]] QString value(OptionId option) const { return m_values[index(option)].value_or(QString()); }
    /// Throws UsageError unless it is given.
    [[nodiscard]] QString required(OptionId option) const;
    /// How many processes may run at once: the value of "--jobs", or the number of processors.
    [[nodiscard]] int jobs() const;

private:
    static std::size_t index(OptionId option) { return static_cast<std::size_t>(option); }
    /// Reads the option at the front of \a rest, and its value.
    void parseLong(QStringList &rest);
    void parseShort(QStringList &rest);
    void set(const Option &option, const std::optional<QString> &attached, QStringList &rest);

    const Verb *m_verb; ///< not owned
    QStringList m_operands;
    std::array<std::optional<QString>, static_cast<std::size_t>(OptionId::Count)> m_values;
};

/// The help on the program, with a line on each verb.
[[nodiscard]] std::string programHelp();
/// The help on \a verb, with a line on each of its options.
[[nodiscard]] std::string verbHelp(const Verb &verb);
/// The verb \a name. Throws UsageError, which names the nearest one.
[[nodiscard]] const Verb &verbNamed(const QString &name);

} // namespace tavidoc
