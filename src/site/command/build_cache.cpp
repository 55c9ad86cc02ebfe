#include "site/command/build_cache.h"

#include "site/link/link_files.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

const QString s_stateFile = u"state"_s;
const QString s_records = u"records/"_s;
const QString s_link = u"link"_s;

/// The inputs of \a project, with what is known of them.
std::vector<CachedInput> inputsOf(const Project &project, std::vector<CachedInput> known)
{
    std::map<std::pair<std::string, std::string>, CachedInput> byName;
    for (CachedInput &input : known)
        byName.emplace(std::pair(input.input, input.folder), std::move(input));
    std::vector<CachedInput> inputs;
    for (const ProjectInput &input : project.inputs) {
        const auto found = byName.find({input.file, input.folder});
        if (found != byName.end())
            inputs.push_back(std::move(found->second));
        else
            inputs.push_back({input.file, input.folder, 0, {}, {}});
    }
    return inputs;
}

} // namespace

BuildCache::BuildCache(const QString &directory, const Project &project)
    : m_directory(QDir::current().absoluteFilePath(directory) + u'/'),
      m_state(readCacheState(m_directory + s_stateFile)), m_stamps(m_state.stamps)
{
    m_state.inputs = inputsOf(project, std::move(m_state.inputs));
    QDir().mkpath(m_directory + s_records);
}

void BuildCache::save()
{
    m_state.stamps = m_stamps.used();
    writeCacheState(m_directory + s_stateFile, m_state);
}

void BuildCache::removeOthers() const
{
    std::set<QString> names;
    for (const CachedInput &input : m_state.inputs)
        names.insert(recordFile(input));
    for (const QString &folder : {s_records, QString(), QString(s_link + u'/'), QString(s_link + u"/search/"_s)}) {
        for (const QString &name : QDir(m_directory + folder).entryList(QDir::Files)) {
            const QString file = m_directory + folder + name;
            if (name.endsWith(".tmp"_L1) || (folder == s_records && !names.contains(file)))
                QFile::remove(file);
        }
    }
}

QString BuildCache::recordFile(const CachedInput &input) const
{
    QString name = linkFileName(input.folder, input.input);
    name.replace(name.lastIndexOf(u'.'), name.size(), u".tdr"_s);
    return m_directory + s_records + name;
}

QString BuildCache::linkDirectory() const
{
    return m_directory + s_link;
}

bool BuildCache::isFresh(const CachedInput &input)
{
    return !input.files.empty() && QFile::exists(recordFile(input)) &&
           std::ranges::all_of(input.files, [this](const Dependency &file) {
               const FileStamp &stamp = stampOf(file.name);
               return stamp.found == file.found && stamp.hash == file.hash;
           });
}

void BuildCache::setFiles(CachedInput &input, const std::vector<RecordFile> &files, std::int64_t begin)
{
    input.files.clear();
    for (const RecordFile &file : files) {
        const FileStamp &stamp = stampOf(file.name);
        const bool isSafe = !stamp.found || (stamp.changed != 0 && stamp.changed < begin);
        input.files.push_back({file.name, file.found, isSafe ? stamp.hash : ~stamp.hash});
    }
}

bool BuildCache::isLinkFresh()
{
    const bool isThere = QFile::exists(linkDirectory() + u'/' + sharedLinkFileName());
    return isThere && std::ranges::all_of(m_state.linkedFiles, [this](const Dependency &file) {
               return stampOf(file.name).found == file.found;
           });
}

} // namespace tavidoc
