#pragma once

#include <cstddef>

namespace tavidoc {

/// Whether \a size bytes are enough to be worth huge pages.
[[nodiscard]] constexpr bool isLarge(std::size_t size)
{
    return size >= 8'000'000; // four huge pages
}

/// Advises the system to back the \a size bytes at \a memory, which was just allocated and will be filled, with huge
/// pages: touching each small page for the first time takes longer than writing HTML into it. Memory that is never
/// touched stays unused. Does nothing for small sizes.
void preferHugePages(const void *memory, std::size_t size);

} // namespace tavidoc
