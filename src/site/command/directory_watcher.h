#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct inotify_event;

namespace tavidoc {

/// What a build depends on.
struct WatchedFiles
{
    std::vector<std::string> files;       ///< that were looked for, whether they exist or not
    std::vector<std::string> directories; ///< in which every file that comes or goes counts

    void add(const WatchedFiles &other);
};

/// Reports changes of files by watching their directories with inotify, so that editors which save by renaming are seen
/// and 10,000 files in a few directories need a few watches. (QFileSystemWatcher does not report when a file in a
/// watched directory is written in place.) Of a directory that does not exist the nearest one above it is watched.
/// Directories that the kernel does not watch, because its limit is reached, are looked at twice a second.
///
/// Waiting ends with InterruptedError when SIGINT or SIGTERM arrives.
class DirectoryWatcher
{
public:
    DirectoryWatcher();
    DirectoryWatcher(const DirectoryWatcher &) = delete;
    DirectoryWatcher &operator=(const DirectoryWatcher &) = delete;
    ~DirectoryWatcher();

    /// Watches \a watched from now on, and nothing else. True if that includes a directory that was not watched until
    /// now: something there may have changed before.
    bool watch(const WatchedFiles &watched);

    /// Waits until a watched file changed, and then until nothing changed for 50 ms. With \a any, every change in a
    /// watched directory counts.
    void waitForChange(bool any);

    /// Whether waitForChange() would not wait, or a watched file is being written now.
    [[nodiscard]] bool isChanging();

    /// How many directories are watched, and how many of them the kernel does not watch.
    [[nodiscard]] std::size_t count() const { return m_watches.size() + m_polled.size(); }
    [[nodiscard]] std::size_t polledCount() const { return m_polled.size(); }

private:
    /// What counts in a directory.
    struct Watch
    {
        std::set<std::string, std::less<>> names; ///< of files, or of directories that are missing
        bool isWhole = false;                     ///< every name
    };
    using Directories = std::map<std::string, Watch>; ///< by path

    static Directories directoriesOf(const WatchedFiles &watched);
    static void addParents(Directories &directories);
    [[nodiscard]] bool waitForEvent(std::int64_t until, bool any);
    void readEvents(bool any);
    void take(const inotify_event &event);
    [[nodiscard]] bool counts(const inotify_event &event, bool any) const;
    [[nodiscard]] std::uint64_t polledState() const;

    int m_inotify;                  ///< -1: none
    std::map<int, Watch> m_watches; ///< by the kernel's number
    Directories m_polled;           ///< that the kernel does not watch
    std::uint64_t m_polledState = 0;
    bool m_hasChanged = false;                            ///< since the last wait
    std::set<std::pair<int, std::string>> m_beingWritten; ///< by directory and name
};

} // namespace tavidoc
