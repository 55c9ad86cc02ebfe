#include "site/command/findings.h"

#include "site/command/arguments.h"

#include <algorithm>
#include <cstdio>

namespace tavidoc {

namespace {

CheckLevel levelOf(const Finding &finding, const std::map<std::string, CheckLevel> &levels)
{
    const auto found = levels.find(finding.check);
    if (found != levels.end())
        return found->second;
    const std::optional<Check> check = checkNamed(finding.check);
    const CheckLevel level = check ? check->level : CheckLevel::Error;
    return finding.isRaised ? std::max(level, CheckLevel::Warning) : level;
}

std::string lineOf(const Finding &finding, CheckLevel level)
{
    std::string line = finding.file;
    if (finding.line != 0)
        line.append(":").append(std::to_string(finding.line));
    if (finding.column != 0)
        line.append(":").append(std::to_string(finding.column));
    line.append(level == CheckLevel::Error ? ": error: " : ": warning: ").append(finding.text);
    return line.append(" [").append(finding.check).append("]");
}

} // namespace

std::string counted(std::size_t count, const char *what, const char *plural)
{
    const std::string several = plural != nullptr ? plural : what + std::string("s");
    return std::to_string(count) + ' ' + (count == 1 ? what : several);
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
        const CheckLevel level = levelOf(finding, levels);
        if (level == CheckLevel::Off)
            continue;
        ++(level == CheckLevel::Error ? counts.errors : counts.warnings);
        printLine(lineOf(finding, level));
    }
    return counts;
}

std::vector<std::string> errorLines(const std::vector<Finding> &findings,
                                    const std::map<std::string, CheckLevel> &levels)
{
    std::vector<std::string> lines;
    for (const Finding &finding : findings) {
        if (levelOf(finding, levels) == CheckLevel::Error)
            lines.push_back(lineOf(finding, CheckLevel::Error));
    }
    return lines;
}

void printLine(std::string text)
{
    std::ranges::replace(text, '\n', ' ');
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stderr); // a name may contain a NUL
}

} // namespace tavidoc
