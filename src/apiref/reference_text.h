#pragma once

#include "sourcebrowser/object.h"

#include <string>
#include <string_view>

namespace tavidoc {

/// \a name with "." for every "::".
[[nodiscard]] std::string qualifiedByDots(std::string_view name);

/// The qualified name of \a object with "::".
[[nodiscard]] std::string qualifiedByColons(const SourceBrowserObject &object);
/// The qualified name of \a name in \a scope, which is qualified with dots.
[[nodiscard]] std::string qualifiedByColons(const QString &scope, std::string_view name);

/// The first sentence of \a html without tags, on one line: up to a full stop before white
/// space, or all of it.
[[nodiscard]] std::string firstSentence(std::string_view html);

} // namespace tavidoc
