#include "reading/macro_context.h"

#include <QDateTime>

namespace tavidoc {

namespace {

struct TimeMacro
{
    std::string_view name;
    const char *format;
};

constexpr TimeMacro s_timeMacros[] = {
    {"Date", "d MMMM yyyy"}, {"DateYear", "yyyy"}, {"DateMonth", "MM"},  {"DateDay", "dd"},
    {"Time", "hh:mm:ss"},    {"TimeHour", "hh"},   {"TimeMinute", "mm"}, {"TimeSecond", "ss"},
};

/// Appends the value of \a name to \a text; false when it has none.
bool appendValue(std::string &text, std::string_view name, const MacroDefinitions &definitions)
{
    if (const auto definition = definitions.find(name); definition != definitions.end()) {
        text += definition->second;
        return true;
    }
    const std::optional<std::string> builtIn = builtInMacro(name);
    text += builtIn.value_or(std::string());
    return builtIn.has_value();
}

} // namespace

std::optional<std::string> builtInMacro(std::string_view name)
{
    const QDateTime now = QDateTime::currentDateTime();
    if (name == "UnixTime")
        return std::to_string(now.toSecsSinceEpoch());
    for (const TimeMacro &macro : s_timeMacros) {
        if (macro.name == name)
            return now.toString(QLatin1StringView(macro.format)).toStdString();
    }
    return std::nullopt;
}

std::string SimpleMacroContext::expand(std::string_view line, const MacroDefinitions &definitions)
{
    const char opening[] = {introducer(), '('};
    std::string expanded;
    std::size_t done = 0;
    for (;;) {
        const std::size_t begin = line.find(std::string_view(opening, 2), done);
        const std::size_t end = begin == std::string_view::npos ? begin : line.find(')', begin);
        if (end == std::string_view::npos)
            break;
        expanded += line.substr(done, begin - done);
        if (!appendValue(expanded, line.substr(begin + 2, end - begin - 2), definitions))
            expanded += line.substr(begin, end + 1 - begin);
        done = end + 1;
    }
    expanded += line.substr(done);
    return expanded;
}

} // namespace tavidoc
