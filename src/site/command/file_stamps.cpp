#include "site/command/file_stamps.h"

#include "base/whole_file.h"
#include "site/record/sealed_file.h"

#include <QString>

#include <algorithm>
#include <ctime>
#include <optional>

#include <sys/stat.h>

namespace tavidoc {

namespace {

std::int64_t nanoseconds(const timespec &time)
{
    constexpr std::int64_t perSecond = 1'000'000'000;
    return std::int64_t{time.tv_sec} * perSecond + time.tv_nsec;
}

} // namespace

std::int64_t fileTimeNow()
{
    timespec time = {};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &time); // the clock that the kernel stamps files with
    return nanoseconds(time);
}

FileStamps::FileStamps(const std::vector<FileStamp> &known)
{
    m_known.reserve(known.size());
    for (const FileStamp &stamp : known)
        m_known.emplace(stamp.name, stamp);
}

const FileStamp &FileStamps::of(const std::string &name)
{
    const auto [place, isNew] = m_current.try_emplace(name);
    FileStamp &stamp = place->second;
    if (!isNew)
        return stamp;
    stamp.name = name;
    struct stat status = {};
    if (::stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return stamp;
    stamp.changed = nanoseconds(status.st_ctim);
    stamp.size = static_cast<std::uint64_t>(status.st_size);
    const auto known = m_known.find(name);
    if (known != m_known.end() && known->second.found && known->second.changed == stamp.changed &&
        known->second.size == stamp.size) {
        stamp = known->second;
        return stamp;
    }
    const std::int64_t now = fileTimeNow();
    const std::optional<QByteArray> bytes = readRegularFile(QString::fromStdString(name));
    stamp.found = bytes.has_value();
    stamp.hash = bytes ? checksum(*bytes) : 0;
    if (stamp.changed >= now)
        stamp.changed = 0;
    return stamp;
}

std::vector<FileStamp> FileStamps::used() const
{
    std::vector<FileStamp> stamps;
    for (const auto &[name, stamp] : m_current)
        stamps.push_back(stamp);
    std::ranges::sort(stamps, {}, &FileStamp::name);
    return stamps;
}

} // namespace tavidoc
