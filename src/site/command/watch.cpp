// The verb that builds again and again: watch.

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/build_summary.h"
#include "site/command/directory_watcher.h"
#include "site/command/findings.h"
#include "site/command/verbs.h"
#include "site/command/watch_stamp.h"
#include "site/command/worker_pool.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

std::int64_t timeNow()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

/// The absolute path of \a directory, with "/" at its end.
std::string absoluteDirectory(const std::string &directory)
{
    std::error_code error;
    return (std::filesystem::absolute(directory, error) / "").lexically_normal().string();
}

/// Builds a site whenever a file changes that it depends on.
class Watch
{
public:
    explicit Watch(const Arguments &arguments)
        : m_arguments(arguments), m_places(sitePlaces(arguments)), m_jobs(arguments.jobs())
    {
    }

    /// Returns only by InterruptedError, or when there is nothing that could be watched.
    [[noreturn]] void run()
    {
        buildSite();
        m_isFirst = false;
        for (bool isStarting = true;; isStarting = false) {
            // What changed before its directory was watched is found by building once more.
            while (m_watcher.watch(watchedFiles()))
                buildSite();
            printWatched(isStarting);
            m_watcher.waitForChange(m_hasFailed);
            if (!std::exchange(m_isPutOff, false))
                m_firstChange = timeNow();
            buildSite();
        }
    }

private:
    void buildSite()
    {
        try {
            Project project = projectOf(m_arguments.operands());
            project.settings.isWatched = true;
            m_ofProject = project.lookedFor;
            tavidoc::Progress progress(progressMode(m_arguments));
            const auto outdated = [this] { return isOutdated(); };
            succeed(project, build({project, m_places.cache, m_places.output, m_jobs, progress, outdated}));
        } catch (const OutdatedBuild &) {
            m_isPutOff = true;
            return;
        } catch (const ProjectError &error) {
            if (m_isFirst)
                throw;
            m_ofProject.add(error.lookedFor);
            fail(error.messages);
        } catch (const UsageError &error) {
            if (m_isFirst)
                throw;
            fail({"tavidoc-site: " + error.message});
        } catch (const BuildError &error) {
            fail(error.messages);
        } catch (const HException &exception) {
            fail({"error: " + exception.message().toStdString()});
        }
    }

    /// Whether something changed during a build: what it read may be incomplete. While changes go on, pages are written
    /// at least once a second.
    bool isOutdated()
    {
        constexpr std::int64_t longest = 1000; // ms
        return timeNow() - m_firstChange < longest && m_watcher.isChanging();
    }

    void succeed(const Project &project, const BuildReport &report)
    {
        m_ofBuild.files = report.lookedFor;
        const bool isChanged = report.written + report.removed != 0;
        if (m_isFirst || isChanged || report.compiled != 0 || m_hasFailed)
            printSummary(m_arguments, project, report, HasPages::Yes);
        m_hasFailed = false;
        writeStamp(errorLines(report.findings, project.settings.levels), isChanged);
    }

    /// The pages stay as they are, and show \a messages.
    void fail(const std::vector<std::string> &messages)
    {
        if (!m_hasFailed || m_stamp.messages != messages) {
            for (const std::string &message : messages)
                printLine(message);
        }
        m_hasFailed = true;
        writeStamp(messages, false);
    }

    /// When the pages changed, the time in the stamp is one at which all of them were there already.
    void writeStamp(const std::vector<std::string> &messages, bool isChanged)
    {
        if (isChanged || m_isFirst)
            m_stamp.changed = std::max(timeNow(), m_stamp.changed + 1);
        m_stamp.messages = messages;
        updateWholeFile(watchStampFile(m_places.output), QByteArray::fromStdString(watchStampText(m_stamp)));
    }

    /// What the last build that succeeded depends on, and what the project file depends on.
    [[nodiscard]] WatchedFiles watchedFiles() const
    {
        WatchedFiles watched = m_ofBuild;
        watched.add(m_ofProject);
        for (const QString &operand : m_arguments.operands())
            watched.files.push_back(operand.toStdString());
        if (m_arguments.operands().isEmpty())
            watched.files.emplace_back("site.toml");
        // A pattern may lead into the site. That is not watched, unless everything is in it.
        const std::string here = absoluteDirectory(".");
        for (const QString &place : {m_places.cache, m_places.output}) {
            const std::string own = absoluteDirectory(place.toStdString());
            if (!here.starts_with(own))
                std::erase_if(watched.directories, [&](const std::string &directory) {
                    return absoluteDirectory(directory).starts_with(own);
                });
        }
        return watched;
    }

    void printWatched(bool isStarting)
    {
        const std::size_t polled = m_watcher.polledCount();
        if (polled != 0 && !std::exchange(m_isPolling, true))
            printLine("warning: the system cannot watch " + counted(polled, "more directory", "more directories") +
                      ", so these are looked at twice a second; a larger fs.inotify.max_user_watches avoids that");
        if (isStarting && !m_arguments.has(OptionId::Quiet))
            printLine("watching " + counted(m_watcher.count(), "directory", "directories") + "; Ctrl+C ends");
    }

    const Arguments &m_arguments;
    SitePlaces m_places;
    int m_jobs;
    DirectoryWatcher m_watcher;
    WatchedFiles m_ofProject;
    WatchedFiles m_ofBuild;
    WatchStamp m_stamp;
    std::int64_t m_firstChange = 0; ///< the first one since pages were written
    bool m_isPutOff = false;        ///< the last build
    bool m_isFirst = true;
    bool m_hasFailed = false; ///< the last build
    bool m_isPolling = false;
};

} // namespace

int watchVerb(const Arguments &arguments)
{
    try {
        Watch(arguments).run();
    } catch (const InterruptedError &) {
        return 0; // that is how it ends
    }
}

} // namespace tavidoc
