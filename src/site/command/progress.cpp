#include "site/command/progress.h"

#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace tavidoc {

namespace {

/// The number of columns of the terminal.
std::size_t columns()
{
    constexpr std::size_t usual = 80;
    winsize size = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 ? size.ws_col : usual;
}

} // namespace

Progress::Progress(Mode mode)
    : m_isShown(mode == Mode::Always || (mode == Mode::OnTerminal && ::isatty(STDERR_FILENO) == 1))
{
}

void Progress::show(std::size_t done, std::size_t total, const std::string &name)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_isShown || now < m_next)
        return;
    constexpr std::chrono::milliseconds pause(50);
    m_next = now + pause;
    std::string line = '[' + std::to_string(done) + '/' + std::to_string(total) + "] " + name;
    for (char &character : line) {
        if (static_cast<unsigned char>(character) < ' ')
            character = ' ';
    }
    // One column stays free, so that the line does not wrap.
    line.resize(std::min(line.size(), columns() - 1));
    std::fprintf(stderr, "\r%s\033[K", line.c_str());
    std::fflush(stderr);
    m_hasLine = true;
}

void Progress::clear()
{
    if (m_hasLine)
        std::fputs("\r\033[K", stderr);
    m_hasLine = false;
}

} // namespace tavidoc
