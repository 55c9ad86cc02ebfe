#pragma once

#include "base/text_map.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Keeps account of the elements of an HTML text that are open, so that what it leaves open can be closed. Elements
/// that need no end, or that end by themselves, do not count. Names are in small letters.
class OpenElements
{
public:
    /// The tag that begins the element \a name. \a closesItself: it ends with "/>", which counts within "svg" only.
    void open(std::string_view name, bool closesItself);
    /// The tag that ends the element \a name. False if there is nothing to end.
    bool close(std::string_view name);
    /// The tags that end what is open, innermost first.
    [[nodiscard]] std::string closingTags() const;

private:
    TextMap<std::vector<std::size_t>> m_open; ///< by name: the numbers of the elements that are open
    std::size_t m_count = 0;                  ///< of elements so far
};

} // namespace tavidoc
