#include "site/link/calls.h"

#include "base/white_space.h"

#include <array>

namespace tavidoc {

namespace {

/// The offset of the parenthesis that opens what the last character of \a text closes; npos if there is none.
std::size_t openingParenthesis(std::string_view text)
{
    std::size_t depth = 0;
    for (std::size_t at = text.size(); at-- > 0;) {
        depth += text[at] == ')' ? 1 : 0;
        if (text[at] == '(' && --depth == 0)
            return at;
    }
    return std::string_view::npos;
}

struct QualifierWord
{
    std::string_view word;
    unsigned bit;
};

/// What may follow the arguments; "&&" comes before "&", which it ends with.
constexpr std::array<QualifierWord, 5> s_qualifiers = {{{"const", CallName::Const},
                                                        {"noexcept", 0},
                                                        {"volatile", CallName::Volatile},
                                                        {"&&", CallName::RvalueReference},
                                                        {"&", CallName::LvalueReference}}};

/// Removes the qualifiers at the end of \a text and returns them.
unsigned takeQualifiers(std::string_view &text)
{
    unsigned bits = 0;
    text = trimmed(text);
    for (bool hasQualifier = true; hasQualifier;) {
        hasQualifier = false;
        for (const auto &[word, bit] : s_qualifiers) {
            if (!text.ends_with(word))
                continue;
            text = trimmedEnd(text.substr(0, text.size() - word.size()));
            bits |= bit;
            hasQualifier = true;
        }
    }
    return bits;
}

unsigned qualifiersOf(const RecordOverload &overload)
{
    std::string_view text = overload.qualifiers;
    return takeQualifiers(text);
}

bool isOperatorName(std::string_view name)
{
    constexpr std::string_view word = "operator";
    if (!name.ends_with(word))
        return false;
    name.remove_suffix(word.size());
    return name.empty() || name.ends_with(':') || name.ends_with('.');
}

} // namespace

std::optional<CallName> callNameOf(std::string_view target)
{
    CallName call;
    call.qualifiers = takeQualifiers(target);
    const std::size_t open = target.ends_with(')') ? openingParenthesis(target) : std::string_view::npos;
    if (open == std::string_view::npos)
        return std::nullopt;
    call.name = trimmedEnd(target.substr(0, open));
    call.arguments = tightened(target.substr(open + 1, target.size() - open - 2));
    if (call.arguments == "void")
        call.arguments.clear();
    const bool isName = !call.name.empty() && !(isOperatorName(call.name) && call.arguments.empty());
    return isName ? std::optional(std::move(call)) : std::nullopt;
}

FoundOverload overloadOf(std::span<const RecordOverload> overloads, const CallName &call)
{
    FoundOverload found;
    unsigned qualifiers = 0; // of what was found
    for (const RecordOverload &overload : overloads) {
        if (overload.types != call.arguments && overload.parameters != call.arguments)
            continue;
        const unsigned own = qualifiersOf(overload);
        if (own == call.qualifiers)
            return {&overload, false};
        if ((own & call.qualifiers) != call.qualifiers)
            continue;
        found.isAmbiguous |= found.overload != nullptr && own != qualifiers;
        found.overload = found.overload == nullptr ? &overload : found.overload;
        qualifiers = own;
    }
    return found.isAmbiguous ? FoundOverload{nullptr, true} : found;
}

std::string shownCall(std::string_view name, const RecordOverload &overload)
{
    const std::size_t separator = name.rfind("::");
    std::string call(separator == std::string_view::npos ? name : name.substr(separator + 2));
    call.append("(").append(overload.types).append(")");
    return call.append(overload.qualifiers.empty() ? "" : " ").append(overload.qualifiers);
}

} // namespace tavidoc
