// The entry point of every fuzz target; FUZZ_SUBJECT names its subject.

#include "fuzz/promise.h"
#include "fuzz/subjects.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

/// Makes relative arguments absolute, because checks change the working directory.
extern "C" int LLVMFuzzerInitialize(int *count, char ***values)
{
    static std::vector<std::string> absolute;
    char *const directory = ::getcwd(nullptr, 0);
    absolute.reserve(static_cast<std::size_t>(*count));
    for (int index = 1; index < *count; ++index) {
        const std::string_view value = (*values)[index];
        if (value.starts_with('-') || value.starts_with('/'))
            continue;
        absolute.push_back(std::string(directory).append("/").append(value));
        (*values)[index] = absolute.back().data();
    }
    std::free(directory); // NOLINT(cppcoreguidelines-no-malloc)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    static const Subject *const subject = findSubject(FUZZ_SUBJECT);
    promise(subject != nullptr, "a target has a subject", FUZZ_SUBJECT);
    subject->check({reinterpret_cast<const char *>(bytes), size});
    return 0;
}
