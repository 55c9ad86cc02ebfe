#include "mutant_switch.h"

#include <cstdlib>

#include <fcntl.h>
#include <sys/mman.h>

namespace {

constexpr std::size_t s_maximum = 65536; // mutants
unsigned char s_unshared[s_maximum];

/// Runs before static initialisation, which may reach mutants.
__attribute__((constructor(101))) void readMutant()
{
    if (const char *mutant = std::getenv("TAVIDOC_MUTANT"))
        tavidocActiveMutant = std::atoi(mutant);
    const char *path = std::getenv("TAVIDOC_MUTANTS_REACHED");
    const int file = path != nullptr ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0)
        return;
    void *shared = ::mmap(nullptr, s_maximum, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (shared != MAP_FAILED)
        tavidocReachedMutants = static_cast<unsigned char *>(shared);
}

} // namespace

int tavidocActiveMutant = -1;
unsigned char *tavidocReachedMutants = s_unshared;
