#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// What "@def" lines have defined: name to value, ordered by name.
using MacroDefinitions = std::map<std::string, std::string, std::less<>>;

/// The value of a name that needs no definition ("Date", "TimeHour", "UnixTime", ...): the
/// current date or time. Nothing when \a name is none of them.
[[nodiscard]] std::optional<std::string> builtInMacro(std::string_view name);

/// Expands macros in the lines of a source. The caller of a run owns it.
class MacroContext
{
public:
    virtual ~MacroContext() = default;

    /// \a line with its macros expanded. \a definitions are those read so far.
    virtual std::string expand(std::string_view line, const MacroDefinitions &definitions) = 0;

    /// The character that introduces a macro. A source is expanded with "@".
    [[nodiscard]] char introducer() const { return m_introducer; }
    void setIntroducer(char introducer) { m_introducer = introducer; }

private:
    char m_introducer = '$';
};

/// Replaces INTRODUCER(NAME) by the definition of NAME, else by the built-in value of that
/// name. An unknown name is left as it stands. What a replacement brings in is not expanded.
class SimpleMacroContext : public MacroContext
{
public:
    std::string expand(std::string_view line, const MacroDefinitions &definitions) override;
};
