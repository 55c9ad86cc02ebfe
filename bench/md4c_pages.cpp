// Renders a CommonMark file page by page with md4c, as a reference for our own speed. A page begins
// after a line "<!-- page STEM -->" and is written, without a frame, to STEM.htm.

#include <md4c-html.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view s_pageBegin = "<!-- page ";
constexpr std::string_view s_pageBeginEnd = " -->\n";

/// The HTML of a page. Cheaper than a string, because md4c outputs a few bytes at a time.
struct Page
{
    std::vector<char> buffer = std::vector<char>(1 << 16);
    std::size_t size = 0;
};

/// Returns the bytes of the file \a name; empty if it cannot be read.
std::string fileText(const char *name)
{
    std::string text;
    const int file = open(name, O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0)
        return text;
    text.resize(static_cast<std::size_t>(status.st_size));
    std::size_t size = 0;
    ssize_t count = 0;
    while (size < text.size() && (count = read(file, text.data() + size, text.size() - size)) > 0)
        size += static_cast<std::size_t>(count);
    close(file);
    text.resize(size);
    return text;
}

/// Replaces the file \a name. Returns whether all of \a text was written.
bool writeFile(const std::string &name, std::string_view text)
{
    unlink(name.c_str());
    const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    const ssize_t count = write(file, text.data(), text.size());
    return close(file) == 0 && count == static_cast<ssize_t>(text.size());
}

void appendHtml(const MD_CHAR *html, MD_SIZE size, void *page)
{
    Page &whole = *static_cast<Page *>(page);
    if (whole.buffer.size() - whole.size < size)
        whole.buffer.resize(2 * whole.buffer.size() + size);
    std::memcpy(whole.buffer.data() + whole.size, html, size);
    whole.size += size;
}

/// Writes the pages of \a text to \a directory. Returns whether all were written.
bool writePages(std::string_view text, const std::string &directory)
{
    Page page;
    std::size_t begin = text.find(s_pageBegin);
    while (begin != std::string_view::npos) {
        const std::size_t stem = begin + s_pageBegin.size();
        const std::size_t stemEnd = text.find(s_pageBeginEnd, stem);
        if (stemEnd == std::string_view::npos)
            return false;
        begin = text.find(s_pageBegin, stemEnd);
        const std::string_view body = text.substr(0, begin).substr(stemEnd + s_pageBeginEnd.size());
        page.size = 0;
        if (md_html(body.data(), static_cast<MD_SIZE>(body.size()), appendHtml, &page, MD_DIALECT_GITHUB, 0) != 0)
            return false;
        if (!writeFile(directory + '/' + std::string(text.substr(stem, stemEnd - stem)) + ".htm",
                       {page.buffer.data(), page.size}))
            return false;
    }
    return true;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount != 3) {
        std::fputs("usage: md4c_pages FILE DIRECTORY\n", stderr);
        return 1;
    }
    mkdir(arguments[2], 0777);
    return writePages(fileText(arguments[1]), arguments[2]) ? 0 : 1;
}
