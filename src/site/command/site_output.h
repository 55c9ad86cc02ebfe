#pragma once

#include "site/command/cache_state.h"
#include "site/record/field_writer.h"
#include "site/render/render.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A file that is ready to go into the site.
struct StagedFile
{
    WrittenFile file;
    std::string staged; ///< its name in the staging directory; empty: the site has it already
};

void describe(auto &fields, OneOf<StagedFile> auto &staged)
{
    fields("address", staged.file.address);
    fields("hash", staged.file.hash);
    fields("modified", staged.file.modified);
    fields("size", staged.file.size);
    fields("staged", staged.staged);
}

/// The directory of a site. Files are first written to a staging directory in it, and moved to their places when all of
/// them are there, so that a build that fails leaves the site as it was.
class SiteOutput
{
public:
    /// Creates the directory \a directory, with all missing parents, and a staging directory for this process. \a known
    /// are the files that earlier builds wrote; it is borrowed.
    SiteOutput(const QString &directory, const std::vector<WrittenFile> &known);
    SiteOutput(const SiteOutput &) = delete;
    SiteOutput &operator=(const SiteOutput &) = delete;
    /// Removes the staging directory, unless this is another process than the one that made it.
    ~SiteOutput();

    /// Removes the staging directories that processes which were killed left in \a directory.
    static void removeLeftovers(const QString &directory);

    /// Whether \a name is that of a staging directory, or of another file of the program's own beside the pages.
    [[nodiscard]] static bool isOwn(std::string_view name);

    /// What an earlier build wrote to \a address; null when it is not there any more, or was changed.
    [[nodiscard]] const WrittenFile *intact(const std::string &address) const;

    /// Whether there is something else at \a address than what an earlier build wrote.
    [[nodiscard]] bool isForeign(const std::string &address) const;

    /// Stages \a bytes for \a address, unless the site has them there already. Throws HException for an address outside
    /// of the site and when the file cannot be written. Names of staged files begin with \a prefix, which no other
    /// process may use.
    StagedFile stage(const std::string &address, const QByteArray &bytes, const std::string &prefix);

    /// Moves a staged file to its place.
    void publish(const StagedFile &file) const;

    /// Removes the file at \a address, if it is as it was written, and the directories that become empty.
    [[nodiscard]] bool remove(const std::string &address) const;

private:
    /// Creates the directory for the file \a path, at which there may not be a directory.
    void prepareDirectory(const std::string &path);
    [[nodiscard]] std::string pathOf(std::string_view address) const;

    std::string m_directory; ///< absolute, with "/" at its end
    std::string m_staging;   ///< with "/" at its end
    int m_process;
    std::map<std::string, const WrittenFile *, std::less<>> m_intact;
    std::set<std::string> m_directories; ///< that exist
    std::size_t m_count = 0;             ///< of files that this process staged
};

/// Writes all files that \a render hands out to the directory \a directory, or none of them.
void writeSite(const QString &directory, const std::function<void(const FileSink &sink)> &render);

} // namespace tavidoc
