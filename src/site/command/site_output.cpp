#include "site/command/site_output.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/site_path.h"
#include "site/record/sealed_file.h"

#include <QDir>

#include <cstdio>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace tavidoc {

namespace {

constexpr std::string_view s_stagingPrefix = ".tavidoc-site-";

[[noreturn]] void failToWrite(const std::string &path)
{
    throw HException("cannot write " + QByteArray::fromStdString(path));
}

/// The time and size of the file \a path; nothing of them when it is not a regular file.
WrittenFile lookedUp(const std::string &path)
{
    constexpr std::int64_t perSecond = 1'000'000'000;
    WrittenFile file;
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return file;
    file.modified = std::int64_t{status.st_mtim.tv_sec} * perSecond + status.st_mtim.tv_nsec;
    file.size = static_cast<std::uint64_t>(status.st_size);
    return file;
}

} // namespace

SiteOutput::SiteOutput(const QString &directory, const std::vector<WrittenFile> &known)
    : m_directory(QDir::current().absoluteFilePath(directory).toStdString() + '/'), m_process(::getpid())
{
    QDir().mkpath(QString::fromStdString(m_directory));
    m_staging = m_directory + std::string(s_stagingPrefix) + std::to_string(m_process) + '/';
    if (::mkdir(m_staging.c_str(), 0777) != 0)
        failToWrite(directory.toStdString());
    for (const WrittenFile &file : known) {
        const WrittenFile now = lookedUp(pathOf(file.address));
        if (now.modified != 0 && now.modified == file.modified && now.size == file.size)
            m_intact.emplace(file.address, &file);
    }
}

SiteOutput::~SiteOutput()
{
    std::error_code error;
    if (::getpid() == m_process)
        std::filesystem::remove_all(m_staging, error);
}

void SiteOutput::removeLeftovers(const QString &directory)
{
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(directory.toStdString(), error)) {
        if (isOwn(entry.path().filename().string()) && entry.is_directory(error))
            std::filesystem::remove_all(entry.path(), error);
    }
}

bool SiteOutput::isOwn(std::string_view name)
{
    return name.starts_with(s_stagingPrefix);
}

const WrittenFile *SiteOutput::intact(const std::string &address) const
{
    const auto found = m_intact.find(address);
    return found == m_intact.end() ? nullptr : found->second;
}

bool SiteOutput::isForeign(const std::string &address) const
{
    struct stat status = {};
    return intact(address) == nullptr && ::lstat(pathOf(address).c_str(), &status) == 0;
}

StagedFile SiteOutput::stage(const std::string &address, const QByteArray &bytes, const std::string &prefix)
{
    if (!isInside(address))
        throw HException("page outside of the site: " + QByteArray::fromStdString(address));
    const std::uint64_t hash = checksum(bytes);
    const auto size = static_cast<std::uint64_t>(bytes.size());
    if (const WrittenFile *const known = intact(address);
        known != nullptr && known->hash == hash && known->size == size)
        return {*known, {}};
    const std::string path = pathOf(address);
    StagedFile result;
    result.file = lookedUp(path);
    if (result.file.size != size || readRegularFile(QString::fromStdString(path)) != bytes) {
        prepareDirectory(path);
        result.staged = prefix + std::to_string(m_count++);
        const std::string staged = m_staging + result.staged;
        writeNewFile(QString::fromStdString(staged), bytes);
        result.file = lookedUp(staged);
    }
    result.file.address = address;
    result.file.hash = hash;
    return result;
}

void SiteOutput::prepareDirectory(const std::string &path)
{
    const std::string directory(directoryWithSlash(path));
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        failToWrite(path);
    if (m_directories.insert(directory).second && !QDir().mkpath(QString::fromStdString(directory)))
        failToWrite(path);
}

void SiteOutput::publish(const StagedFile &file) const
{
    const std::string path = pathOf(file.file.address);
    if (std::rename((m_staging + file.staged).c_str(), path.c_str()) != 0)
        failToWrite(path);
}

bool SiteOutput::remove(const std::string &address) const
{
    if (intact(address) == nullptr || ::unlink(pathOf(address).c_str()) != 0)
        return false;
    for (std::string_view directory = directoryWithSlash(address); !directory.empty();) {
        directory.remove_suffix(1);
        if (::rmdir(pathOf(directory).c_str()) != 0)
            break; // not empty
        directory = directoryWithSlash(directory);
    }
    return true;
}

std::string SiteOutput::pathOf(std::string_view address) const
{
    return m_directory + std::string(address);
}

void writeSite(const QString &directory, const std::function<void(const FileSink &sink)> &render)
{
    const std::vector<WrittenFile> known;
    SiteOutput output(directory, known);
    std::vector<StagedFile> files;
    render([&](const std::string &address, const QByteArray &bytes) {
        files.push_back(output.stage(address, bytes, "file-"));
    });
    for (const StagedFile &file : files) {
        if (!file.staged.empty())
            output.publish(file);
    }
}

} // namespace tavidoc
