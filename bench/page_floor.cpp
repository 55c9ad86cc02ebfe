// Makes the system calls that a page for each of many declarations takes, and nothing else: the least time of any
// program that writes as many pages.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

/// Reads the file \a name. Returns its size; negative if it cannot be read.
ssize_t readWhole(const char *name)
{
    const int file = open(name, O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0)
        return -1;
    std::vector<char> text(static_cast<std::size_t>(status.st_size));
    const ssize_t size = read(file, text.data(), text.size());
    close(file);
    return size;
}

bool writePage(int directory, const std::string &name, std::string &text)
{
    const int file = openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const iovec part = {text.data(), text.size()};
    return file >= 0 && writev(file, &part, 1) == static_cast<ssize_t>(text.size()) && close(file) == 0;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount != 5) {
        std::fputs("usage: page_floor INPUT DIRECTORY PAGES BYTES\n", stderr);
        return 1;
    }
    const int directory = open(arguments[2], O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (readWhole(arguments[1]) < 0 || directory < 0)
        return 1;
    std::string text(std::strtoul(arguments[4], nullptr, 10), 'x');
    const int count = std::atoi(arguments[3]);
    for (int page = 0; page < count; ++page) {
        if (!writePage(directory, "device_set_" + std::to_string(page) + ".htm", text))
            return 1;
    }
    return 0;
}
