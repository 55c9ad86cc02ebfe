#pragma once

#include "site/command/cache_state.h"
#include "site/command/file_stamps.h"
#include "site/command/project.h"
#include "site/record/record.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace tavidoc {

/// The directory with records, links and the state of the last build.
class BuildCache
{
public:
    /// Reads the state in \a directory, which exists; what is damaged counts as missing. The inputs of the state become
    /// those of \a project, in its order.
    BuildCache(const QString &directory, const Project &project);

    [[nodiscard]] CacheState &state() { return m_state; }
    /// Writes the state. Throws HException.
    void save();
    /// Removes records of other inputs, and files that processes which were killed left.
    void removeOthers() const;

    [[nodiscard]] QString recordFile(const CachedInput &input) const;
    [[nodiscard]] QString linkDirectory() const;

    /// Whether the record of \a input is there and all files that compiling it looked for are as they were.
    [[nodiscard]] bool isFresh(const CachedInput &input);
    /// Notes what compiling \a input looked for. A file that changed after \a begin may be another one than was read, so
    /// the record will be made again.
    void setFiles(CachedInput &input, const std::vector<RecordFile> &files, std::int64_t begin);

    /// Whether the files that the last link looked for are still there or still missing, and its own files are there.
    [[nodiscard]] bool isLinkFresh();

    /// The stamp of a file.
    const FileStamp &stampOf(const std::string &name) { return m_stamps.of(name); }

private:
    QString m_directory; ///< absolute, with "/" at its end
    CacheState m_state;
    FileStamps m_stamps;
};

} // namespace tavidoc
