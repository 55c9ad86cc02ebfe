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

/// A map from UTF-8 texts that is searched without making a copy of the key. It has no order:
/// nothing that is written may follow it.
template <class Value> using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

} // namespace tavidoc
