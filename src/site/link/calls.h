#pragma once

#include "site/record/record.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// What a link to one overload of a function is: "Buffer::push(int)", "data() const".
struct CallName
{
    std::string_view name;
    std::string arguments; ///< tightened, with "," between them
    bool isConst = false;
};

/// \a target as the name of an overload; nothing if it does not end in arguments.
[[nodiscard]] std::optional<CallName> callNameOf(std::string_view target);

/// The one of \a overloads that \a call means, by the types of its arguments or the types with names; null when there is
/// none. Without "const" it is preferably one without.
[[nodiscard]] const RecordOverload *overloadOf(std::span<const RecordOverload> overloads, const CallName &call);

} // namespace tavidoc
