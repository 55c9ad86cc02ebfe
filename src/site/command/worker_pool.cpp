#include "site/command/worker_pool.h"

#include "base/hexception.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavidoc {

namespace {

/// The signal that arrived; 0: none. Set by the handler, which watchInterrupts() installs.
volatile std::sig_atomic_t s_interrupt = 0;

void keepInterrupt(int signal)
{
    s_interrupt = signal;
}

constexpr char s_done = '+';
constexpr char s_failed = '-';

void writeAll(int pipe, const std::string &text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = ::write(pipe, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
            return; // the parent is gone
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
}

/// The first character of what a worker writes says whether it is done.
std::string outcome(const std::function<std::string(std::size_t)> &work, std::size_t index)
{
    try {
        return s_done + work(index);
    } catch (const HException &exception) {
        return s_failed + exception.message().toStdString();
    } catch (const std::bad_alloc &) {
        return std::string(1, s_failed) + "out of memory";
    }
}

[[noreturn]] void beWorker(int pipe, const std::function<std::string(std::size_t)> &work, std::size_t index)
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    writeAll(pipe, outcome(work, index));
    // Not exit(): what the parent has buffered or registered is not the worker's.
    ::_exit(0);
}

std::string crashText(int status)
{
    if (WIFSIGNALED(status))
        return "the process crashed: " + std::string(::strsignal(WTERMSIG(status)));
    return "the process ended with status " + std::to_string(WEXITSTATUS(status));
}

/// The processes that run.
class Pool
{
public:
    using Finished = std::function<void(std::size_t, const WorkerResult &)>;

    explicit Pool(const Finished &finished) : m_finished(finished) {}
    Pool(const Pool &) = delete;
    Pool &operator=(const Pool &) = delete;
    ~Pool() { endAll(); }

    [[nodiscard]] std::size_t size() const { return m_workers.size(); }
    void start(std::size_t index, const std::function<std::string(std::size_t)> &work);
    /// Waits until a worker writes or ends.
    void wait();

private:
    struct Worker
    {
        std::size_t index;
        pid_t process;
        int pipe;
        std::string text;
    };

    void finish(Worker worker);
    void endAll();

    const Finished &m_finished;
    std::vector<Worker> m_workers;
};

void Pool::start(std::size_t index, const std::function<std::string(std::size_t)> &work)
{
    int pipes[2] = {};
    if (::pipe(pipes) != 0)
        throw HException(QByteArray("cannot start a process: ") + std::strerror(errno));
    const pid_t process = ::fork();
    if (process == 0) {
        ::close(pipes[0]);
        beWorker(pipes[1], work, index);
    }
    ::close(pipes[1]);
    if (process < 0) {
        ::close(pipes[0]);
        throw HException(QByteArray("cannot start a process: ") + std::strerror(errno));
    }
    m_workers.push_back({index, process, pipes[0], {}});
}

void Pool::wait()
{
    std::vector<pollfd> pipes;
    for (const Worker &worker : m_workers)
        pipes.push_back({worker.pipe, POLLIN, 0});
    const int ready = ::poll(pipes.data(), pipes.size(), -1);
    checkInterrupt();
    if (ready < 0)
        return; // another signal
    // From the last to the first, because ended workers are removed.
    for (std::size_t at = pipes.size(); at-- != 0;) {
        if (pipes[at].revents == 0)
            continue;
        char buffer[65536];
        const ssize_t count = ::read(pipes[at].fd, buffer, sizeof buffer);
        if (count > 0)
            m_workers[at].text.append(buffer, static_cast<std::size_t>(count));
        if (count > 0 || (count < 0 && errno == EINTR))
            continue;
        Worker ended = std::move(m_workers[at]);
        m_workers.erase(m_workers.begin() + static_cast<std::ptrdiff_t>(at));
        finish(std::move(ended));
    }
}

void Pool::finish(Worker worker)
{
    ::close(worker.pipe);
    int status = 0;
    while (::waitpid(worker.process, &status, 0) < 0 && errno == EINTR) {
    }
    if (status != 0 || worker.text.empty())
        return m_finished(worker.index, {false, crashText(status)});
    m_finished(worker.index, {worker.text.front() == s_done, worker.text.substr(1)});
}

void Pool::endAll()
{
    for (const Worker &worker : m_workers)
        ::kill(worker.process, SIGTERM);
    for (const Worker &worker : m_workers) {
        ::close(worker.pipe);
        while (::waitpid(worker.process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    m_workers.clear();
}

} // namespace

void runWorkers(std::size_t count, int jobs, const std::function<std::string(std::size_t)> &work,
                const std::function<void(std::size_t, const WorkerResult &)> &finished)
{
    std::fflush(nullptr);
    Pool pool(finished);
    std::size_t next = 0;
    while (next < count || pool.size() != 0) {
        checkInterrupt();
        if (next < count && pool.size() < static_cast<std::size_t>(jobs))
            pool.start(next++, work);
        else
            pool.wait();
    }
}

void watchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = keepInterrupt;
    for (const int signal : {SIGINT, SIGTERM})
        ::sigaction(signal, &action, nullptr);
}

void checkInterrupt()
{
    if (s_interrupt != 0)
        throw InterruptedError{s_interrupt};
}

} // namespace tavidoc
