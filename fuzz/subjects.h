#pragma once

#include <span>
#include <string_view>

/// One entry point of the library, with the promises that it keeps for every input.
struct Subject
{
    std::string_view name;
    /// Runs the library on \a input. Ends the process if it breaks a promise.
    void (*check)(std::string_view input);
};

/// Returns all subjects. They share the process-wide tables of the library. Each check resets these tables,
/// so the order of checks does not matter.
[[nodiscard]] std::span<const Subject> subjects();
/// Returns null for an unknown name.
[[nodiscard]] const Subject *findSubject(std::string_view name);

void checkReader(std::string_view input);       ///< a markup source, up to the text for the translator
void checkMarkup(std::string_view input);       ///< a markup source to pages
void checkHeader(std::string_view input);       ///< a header to pages
void checkDeclarations(std::string_view input); ///< a header to tokens, events, the model, its renderings
void checkListing(std::string_view input);      ///< the first byte chooses the lexer, the rest is the listing
void checkDefinitions(std::string_view input);  ///< a file of menus, keys, messages and properties
void checkArguments(std::string_view input);    ///< each line is an argument of the command line
void checkRecord(std::string_view input);       ///< a record file, as it is and with a prefix that fits it
