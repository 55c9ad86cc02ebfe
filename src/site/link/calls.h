#pragma once

#include "site/record/record.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a link to one overload of a function is: "Buffer::push(int)", "data() const &".
struct CallName
{
    /// What follows the arguments. The values are bits that can be combined.
    enum Qualifier : unsigned
    {
        Const = 1,
        Volatile = 2,
        LvalueReference = 4,
        RvalueReference = 8,
    };

    std::string_view name;
    std::string arguments; ///< tightened, with "," between them
    unsigned qualifiers = 0;
};

/// What a call means.
struct FoundOverload
{
    const RecordOverload *overload = nullptr; ///< null if there is none, or no only one
    bool isAmbiguous = false;                 ///< several fit that differ in qualifiers which the call does not name
};

/// \a target as the name of an overload; nothing if it does not end in arguments.
[[nodiscard]] std::optional<CallName> callNameOf(std::string_view target);

/// The one of \a overloads that \a call means, by the types of its arguments or the types with names, and by the
/// qualifiers: those with just these, else those that have more.
[[nodiscard]] FoundOverload overloadOf(std::span<const RecordOverload> overloads, const CallName &call);

/// \a overload of the function \a name, as a link may name it: "push(int,const char*) const".
[[nodiscard]] std::string shownCall(std::string_view name, const RecordOverload &overload);

} // namespace tavidoc
