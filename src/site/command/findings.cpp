#include "site/command/findings.h"

#include "site/command/arguments.h"

#include <algorithm>
#include <cstdio>

namespace tavidoc {

namespace {

CheckLevel levelOf(const std::string &name, const std::map<std::string, CheckLevel> &levels)
{
    const auto found = levels.find(name);
    if (found != levels.end())
        return found->second;
    const std::optional<Check> check = checkNamed(name);
    return check ? check->level : CheckLevel::Error;
}

} // namespace

std::string counted(std::size_t count, const char *what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string FindingCounts::text() const
{
    if (errors == 0 && warnings == 0)
        return "no findings";
    return counted(errors, "error") + ", " + counted(warnings, "warning");
}

int FindingCounts::status(const Arguments &arguments) const
{
    if (arguments.has(OptionId::ExitZero))
        return 0;
    return errors != 0 || (warnings != 0 && arguments.has(OptionId::Strict)) ? 1 : 0;
}

FindingCounts printFindings(const std::vector<Finding> &findings, const std::map<std::string, CheckLevel> &levels)
{
    FindingCounts counts;
    for (const Finding &finding : findings) {
        const CheckLevel level = levelOf(finding.check, levels);
        if (level == CheckLevel::Off)
            continue;
        ++(level == CheckLevel::Error ? counts.errors : counts.warnings);
        std::string line = finding.file;
        if (finding.line != 0)
            line.append(":").append(std::to_string(finding.line));
        line.append(level == CheckLevel::Error ? ": error: " : ": warning: ").append(finding.text);
        printLine(line.append(" [").append(finding.check).append("]"));
    }
    return counts;
}

void printLine(std::string text)
{
    std::ranges::replace(text, '\n', ' ');
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stderr); // a name may contain a NUL
}

} // namespace tavidoc
