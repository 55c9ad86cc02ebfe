#include "base/large_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <memory>

namespace tavidoc {

void preferHugePages(const void *memory, std::size_t size)
{
    if (!isLarge(size))
        return;
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void *begin = const_cast<void *>(memory);
    if (std::align(pageSize, pageSize, begin, size) != nullptr)
        ::madvise(begin, size - size % pageSize, MADV_HUGEPAGE); // only advice: failure does no harm
}

} // namespace tavidoc
