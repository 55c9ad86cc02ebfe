#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// What is known of a file.
struct FileStamp
{
    std::string name;
    bool found = false;       ///< a regular file that can be read
    std::int64_t changed = 0; ///< when its contents or attributes last changed, in ns; 0: unknown
    std::uint64_t size = 0;
    std::uint64_t hash = 0; ///< of its contents
};

/// The time that a file which is changed now would get, in ns.
[[nodiscard]] std::int64_t fileTimeNow();

/// The contents of files as hashes. A file whose time and size are as they were is not read again.
class FileStamps
{
public:
    /// \a known are the stamps of an earlier run.
    explicit FileStamps(const std::vector<FileStamp> &known);

    /// The stamp of the file \a name, which is looked at once in a run.
    const FileStamp &of(const std::string &name);

    /// Of what was asked for, by name. A file that changed in the moment in which it was read has no time, so that it
    /// is read again in the next run.
    [[nodiscard]] std::vector<FileStamp> used() const;

private:
    std::unordered_map<std::string, FileStamp> m_known;
    std::unordered_map<std::string, FileStamp> m_current;
};

} // namespace tavidoc
