#pragma once

#include <cstddef>

namespace tavidoc {

/// Whether \a size bytes are so many that they get memory of their own.
[[nodiscard]] constexpr bool isLargeRoom(std::size_t size)
{
    return size >= 8'000'000; // four large pages
}

/// Tells the system that the \a size bytes at \a room, which was just allocated, will be filled. It then gives them in
/// large pages, if it has such: first touching each small page takes longer than writing HTML into it. What is not
/// touched still takes no memory. Small rooms are left alone.
void expectLargeRoom(const void *room, std::size_t size);

} // namespace tavidoc
