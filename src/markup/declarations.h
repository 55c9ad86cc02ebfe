#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

/// What the translator needs to know about the declarations of the header that is being documented.
class Declarations
{
public:
    /// The text of a synopsis, and the language as which it is coloured; plain if that is empty.
    struct Synopsis
    {
        std::string text;
        std::string_view language = {};
    };

    virtual ~Declarations() = default;

    /// The stem of the page of the declaration \a name, bare or qualified with "." or "::".
    /// Nothing when the header has no such page.
    [[nodiscard]] virtual std::optional<std::string> pageOf(std::string_view name) const = 0;
    /// The declaration \a name as the language has it, with the ";" that may end it. Nothing when the header does not have it.
    [[nodiscard]] virtual std::optional<std::string> rendering(std::string_view name) const = 0;
    /// The name of the declaration whose page is being made; empty on the header's own page.
    [[nodiscard]] virtual std::string currentName() const = 0;
    /// The prototype of the declaration whose page is being made, with its ";"; empty on the
    /// header's own page.
    [[nodiscard]] virtual Synopsis currentSynopsis() const = 0;
};

} // namespace tavidoc
