#include "site/command/directory_watcher.h"

#include "site/command/site_output.h"
#include "site/command/site_path.h"
#include "site/command/worker_pool.h"
#include "site/record/field_writer.h"
#include "site/record/sealed_file.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <optional>

#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavidoc {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t s_settleTime = 50;   // ms without a change
constexpr std::int64_t s_longestWait = 500; // ms, while changes go on
constexpr std::int64_t s_pollTime = 500;    // ms
constexpr std::int64_t s_forever = -1;

constexpr std::uint32_t s_appearance = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t s_end = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED | IN_Q_OVERFLOW;
constexpr std::uint32_t s_events =
    s_appearance | IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

std::int64_t steadyTime()
{
    using namespace std::chrono;
    return duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

/// Keeps SIGINT and SIGTERM from being handled between a look at them and the wait that they shall end.
class BlockedInterrupts
{
public:
    BlockedInterrupts()
    {
        sigset_t blocked;
        ::sigemptyset(&blocked);
        for (const int signal : {SIGINT, SIGTERM})
            ::sigaddset(&blocked, signal);
        ::sigprocmask(SIG_BLOCK, &blocked, &m_before);
    }
    BlockedInterrupts(const BlockedInterrupts &) = delete;
    BlockedInterrupts &operator=(const BlockedInterrupts &) = delete;
    ~BlockedInterrupts() { ::sigprocmask(SIG_SETMASK, &m_before, nullptr); }

    [[nodiscard]] const sigset_t &before() const { return m_before; }

private:
    sigset_t m_before = {};
};

std::string directoryOfFile(const std::string &file)
{
    const std::string_view directory = directoryWithSlash(file);
    return directory.empty() ? "./" : std::string(directory);
}

/// The nearest directory at or above \a path that exists, and the name in it that is missing, if any.
std::pair<std::string, std::string> existingDirectory(const std::string &path)
{
    std::error_code error;
    fs::path directory = fs::absolute(path, error).lexically_normal();
    if (!directory.has_filename())
        directory = directory.parent_path();
    std::string missing;
    while (!fs::is_directory(directory, error) && directory.has_relative_path()) {
        missing = directory.filename();
        directory = directory.parent_path();
    }
    return {directory.string(), missing};
}

} // namespace

void WatchedFiles::add(const WatchedFiles &other)
{
    files.insert(files.end(), other.files.begin(), other.files.end());
    directories.insert(directories.end(), other.directories.begin(), other.directories.end());
}

DirectoryWatcher::DirectoryWatcher() : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

DirectoryWatcher::~DirectoryWatcher()
{
    if (m_inotify >= 0)
        ::close(m_inotify);
}

bool DirectoryWatcher::watch(const WatchedFiles &watched)
{
    std::map<int, Watch> watches;
    Directories polled;
    for (auto &[path, watch] : directoriesOf(watched)) {
        const int number = m_inotify < 0 ? -1 : ::inotify_add_watch(m_inotify, path.c_str(), s_events);
        // Several paths may lead to one directory.
        Watch &known = number < 0 ? polled[path] : watches[number];
        known.names.merge(watch.names);
        known.isWhole |= watch.isWhole;
    }
    const auto isOld = [](const auto &old) { return [&old](const auto &entry) { return old.contains(entry.first); }; };
    const bool hasNew =
        !std::ranges::all_of(watches, isOld(m_watches)) || !std::ranges::all_of(polled, isOld(m_polled));
    for (const auto &[number, watch] : m_watches) {
        if (!watches.contains(number))
            ::inotify_rm_watch(m_inotify, number);
    }
    m_watches = std::move(watches);
    m_polled = std::move(polled);
    m_polledState = hasNew ? polledState() : m_polledState;
    return hasNew;
}

DirectoryWatcher::Directories DirectoryWatcher::directoriesOf(const WatchedFiles &watched)
{
    std::map<std::string, Watch> asNamed;
    const auto addFile = [&asNamed](const std::string &file) {
        asNamed[directoryOfFile(file)].names.emplace(fileNameOf(file));
    };
    for (const std::string &file : watched.files) {
        addFile(file);
        struct stat status = {};
        std::error_code error;
        if (::lstat(file.c_str(), &status) == 0 && S_ISLNK(status.st_mode))
            addFile(fs::weakly_canonical(file, error).string());
    }
    for (const std::string &directory : watched.directories)
        asNamed[directory.empty() ? "./" : directory + '/'].isWhole = true;
    Directories directories;
    for (auto &[path, watch] : asNamed) {
        const auto [existing, missing] = existingDirectory(path);
        Watch &place = directories[existing];
        if (missing.empty()) {
            place.names.merge(watch.names);
            place.isWhole |= watch.isWhole;
        } else {
            place.names.insert(missing);
        }
    }
    addParents(directories);
    return directories;
}

/// Adds the directories above those below the working directory, since these may be renamed or removed as a whole.
void DirectoryWatcher::addParents(Directories &directories)
{
    std::error_code error;
    const std::string top = fs::current_path(error).string() + '/';
    std::vector<std::string> paths;
    for (const auto &[path, watch] : directories)
        paths.push_back(path);
    for (std::string &path : paths) {
        while (path.starts_with(top)) {
            const fs::path directory(path);
            path = directory.parent_path();
            if (!directories[path].names.insert(directory.filename()).second)
                break; // so are those above it
        }
    }
}

void DirectoryWatcher::waitForChange(bool any)
{
    m_beingWritten.clear(); // also what is written for hours
    while (!waitForEvent(s_forever, any)) {
    }
    const std::int64_t last = steadyTime() + s_longestWait;
    while (steadyTime() < last && (waitForEvent(steadyTime() + s_settleTime, any) || !m_beingWritten.empty())) {
    }
}

bool DirectoryWatcher::isChanging()
{
    readEvents(false);
    return m_hasChanged || !m_beingWritten.empty();
}

/// True as soon as something changed; false at the time \a until.
bool DirectoryWatcher::waitForEvent(std::int64_t until, bool any)
{
    for (;;) {
        const BlockedInterrupts blocked;
        checkInterrupt();
        readEvents(any);
        if (std::exchange(m_hasChanged, false))
            return true;
        std::int64_t left = until == s_forever ? s_forever : std::max<std::int64_t>(until - steadyTime(), 0);
        if (!m_polled.empty())
            left = left < 0 ? s_pollTime : std::min(left, s_pollTime);
        const timespec timeout = {left / 1000, left % 1000 * 1'000'000};
        pollfd descriptor = {m_inotify, POLLIN, 0}; // a negative one is ignored
        const int ready = ::ppoll(&descriptor, 1, left < 0 ? nullptr : &timeout, &blocked.before());
        if (!m_polled.empty() && ready == 0) {
            const std::uint64_t before = std::exchange(m_polledState, polledState());
            m_hasChanged |= before != m_polledState;
        }
        if (!m_hasChanged && ready == 0 && until != s_forever && steadyTime() >= until)
            return false;
    }
}

/// Reads all events that are there.
void DirectoryWatcher::readEvents(bool any)
{
    alignas(inotify_event) std::array<char, 65536> buffer;
    for (ssize_t size = 0; (size = ::read(m_inotify, buffer.data(), buffer.size())) > 0;) {
        for (const char *at = buffer.data(); at < buffer.data() + size;) {
            const auto *const event = reinterpret_cast<const inotify_event *>(at);
            if (counts(*event, any))
                take(*event);
            at += sizeof(inotify_event) + event->len;
        }
    }
}

/// A file that is being written has changed when it is closed: until then it may be empty, and its pages would vanish.
void DirectoryWatcher::take(const inotify_event &event)
{
    const std::pair<int, std::string> file = {event.wd, event.len == 0 ? "" : event.name};
    if ((event.mask & IN_MODIFY) != 0) {
        m_beingWritten.insert(file);
    } else {
        m_beingWritten.erase(file);
        m_hasChanged = true;
    }
}

bool DirectoryWatcher::counts(const inotify_event &event, bool any) const
{
    if ((event.mask & IN_Q_OVERFLOW) != 0)
        return true;
    const auto found = m_watches.find(event.wd);
    if (found == m_watches.end())
        return false; // the end of a watch that was given up
    if ((event.mask & s_end) != 0)
        return true;
    const std::string_view name = event.len == 0 ? std::string_view() : std::string_view(event.name);
    if (name.empty() || SiteOutput::isOwn(name))
        return false;
    const bool appears = (event.mask & s_appearance) != 0;
    return any || found->second.names.contains(name) || (found->second.isWhole && appears && !name.starts_with('.'));
}

/// A hash of the times and sizes of the files that the kernel does not watch.
std::uint64_t DirectoryWatcher::polledState() const
{
    FieldWriter fields;
    const auto add = [&fields](const std::string &path) {
        struct stat status = {};
        const bool isThere = ::stat(path.c_str(), &status) == 0;
        fields("", std::uint64_t{isThere ? status.st_ino : 0});
        fields("", std::int64_t{status.st_ctim.tv_sec});
        fields("", std::int64_t{status.st_ctim.tv_nsec});
        fields("", std::int64_t{status.st_size});
    };
    for (const auto &[path, watch] : m_polled) {
        if (watch.isWhole)
            add(path);
        for (const std::string &name : watch.names)
            add(std::string(path).append("/").append(name));
    }
    return checksum(fields.takeBytes());
}

} // namespace tavidoc
