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
    static constexpr std::array<std::string_view, 5> qualifiers = {"const", "noexcept", "volatile", "&", "&&"};
    CallName call;
    target = trimmed(target);
    for (bool hasQualifier = true; hasQualifier;) {
        hasQualifier = false;
        for (const std::string_view qualifier : qualifiers) {
            if (!target.ends_with(qualifier))
                continue;
            target = trimmedEnd(target.substr(0, target.size() - qualifier.size()));
            call.isConst = call.isConst || qualifier == "const";
            hasQualifier = true;
        }
    }
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

const RecordOverload *overloadOf(std::span<const RecordOverload> overloads, const CallName &call)
{
    const RecordOverload *found = nullptr;
    for (const RecordOverload &overload : overloads) {
        if (overload.types != call.arguments && overload.parameters != call.arguments)
            continue;
        if (overload.isConst == call.isConst)
            return &overload;
        if (!call.isConst && found == nullptr)
            found = &overload;
    }
    return found;
}

} // namespace tavidoc
