#include "base/large_room.h"

#include <sys/mman.h>
#include <unistd.h>

#include <memory>

namespace tavidoc {

void expectLargeRoom(const void *room, std::size_t size)
{
    if (!isLargeRoom(size))
        return;
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void *begin = const_cast<void *>(room);
    if (std::align(pageSize, pageSize, begin, size) != nullptr)
        ::madvise(begin, size - size % pageSize, MADV_HUGEPAGE); // a hint: it changes nothing when it fails
}

} // namespace tavidoc
