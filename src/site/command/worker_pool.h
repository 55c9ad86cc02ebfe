#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace tavidoc {

/// What a worker did.
struct WorkerResult
{
    bool isDone = false; ///< false: it threw or crashed
    std::string text;    ///< what it returned, or the message of the error
};

/// Runs `work(0)` to `work(count - 1)`, each in a process of its own, at most \a jobs at once, and gives each result to
/// \a finished in this process as soon as it is there, in any order. A process is a copy of this one, so starting it
/// costs much less than starting a program; in turn this process may not have other threads. An HException from the work
/// is its result.
///
/// When SIGINT or SIGTERM arrives, the workers are ended and InterruptedError is thrown.
void runWorkers(std::size_t count, int jobs, const std::function<std::string(std::size_t)> &work,
                const std::function<void(std::size_t, const WorkerResult &)> &finished);

/// The command was interrupted by a signal.
struct InterruptedError
{
    int signal;
};

/// From now on SIGINT and SIGTERM end the process by InterruptedError.
void watchInterrupts();
/// Throws InterruptedError if one of the signals has arrived.
void checkInterrupt();

} // namespace tavidoc
