#pragma once

/*!!
 * \h1 macro_context.h
 *
 * Macros in sources. \tt{@def} gives a name a value; \tt{@(NAME)} is expanded by the macro context that the caller passes
 * to a run. The command line passes none.
 *
 * \code
 * SimpleMacroContext macros;
 * document.run(&macros, 1, input, directory, records, {}, {});
 * \endcode
 */

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// The definitions of "@def" lines: name to value, ordered by name.
using MacroDefinitions = std::map<std::string, std::string, std::less<>>;

/*!
 * \h1 \this
 * The value of a name that needs no definition ("Date", "TimeHour", "UnixTime", ...): the
 * current date or time. Nothing for other names.
 * \synopsis
 * \sa \xref{macro_context_h}{macro_context.h}
 * \ingroup Functions
 */
[[nodiscard]] std::optional<std::string> builtInMacro(std::string_view name);

/*!
 * \h1 \this
 * Expands macros in the lines of a source. The caller of a run owns it.
 * \sa \xref{macro_context_h}{macro_context.h}
 * \ingroup \this
 */
class MacroContext
{
public:
    virtual ~MacroContext() = default;

    /*!
     * \h1 MacroContext::\this
     * \a{line} with its macros expanded. \a{definitions} are those of the lines before it.
     * \synopsis
     * \sa \xref{MacroContext}
     * \ingroup MacroContext
     */
    virtual std::string expand(std::string_view line, const MacroDefinitions &definitions) = 0;

    /*!
     * \h1 MacroContext::\this
     * The character that introduces a macro. A source is expanded with "@".
     * \synopsis
     * \sa \xref{MacroContext}
     * \ingroup MacroContext
     */
    [[nodiscard]] char introducer() const { return m_introducer; }
    void setIntroducer(char introducer) { m_introducer = introducer; }

private:
    char m_introducer = '$';
};

/*!
 * \h1 \this
 * Replaces INTRODUCER(NAME) by the definition of NAME, else by the built-in value of that
 * name. An unknown name is left unchanged. Replacements are not expanded again.
 * \sa \xref{macro_context_h}{macro_context.h}
 * \ingroup \this
 */
class SimpleMacroContext : public MacroContext
{
public:
    std::string expand(std::string_view line, const MacroDefinitions &definitions) override;
};

} // namespace tavidoc
