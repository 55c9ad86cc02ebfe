#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavidoc {

struct TextHash
{
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// A map from UTF-8 texts that can be searched by a view. Its order is unspecified, so output must not depend on it.
template <class Value> using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

} // namespace tavidoc
