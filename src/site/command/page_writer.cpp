#include "site/command/page_writer.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/build.h"
#include "site/command/worker_pool.h"
#include "site/link/link_fields.h"
#include "site/record/field_reader.h"
#include "site/record/record_file.h"
#include "site/record/sealed_file.h"

#include <algorithm>
#include <set>

namespace tavidoc {

namespace {

template <typename... Values> std::uint64_t keyOf(const Values &...values)
{
    FieldWriter fields;
    (fields("", values), ...);
    return checksum(fields.takeBytes()) | 1; // never 0
}

} // namespace

PageWriter::PageWriter(const QString &output, const SiteSettings &settings, BuildCache &cache, int jobs)
    : m_settings(settings), m_cache(cache), m_state(cache.state()), m_jobs(jobs), m_before(m_state.written),
      m_output(output, m_before)
{
    m_parts.push_back(m_state.shared);
    for (const CachedInput &input : m_state.inputs)
        m_parts.push_back(input.part);
    m_parts.push_back(m_state.copies);
    findOwners();
}

bool PageWriter::isComplete() const
{
    return !m_before.empty() && std::ranges::all_of(m_before, [this](const WrittenFile &file) {
        return m_output.intact(file.address) != nullptr;
    });
}

void PageWriter::findOwners()
{
    m_owners.clear();
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        for (const PartFile &file : m_parts[part].files)
            m_owners.try_emplace(file.address, part);
    }
}

bool PageWriter::isUpToDate(std::size_t part, std::uint64_t key) const
{
    return m_parts[part].key == key && std::ranges::all_of(m_parts[part].files, [&](const PartFile &file) {
               if (m_owners.at(file.address) != part || m_staged.contains({part, file.address}))
                   return true;
               const WrittenFile *const written = m_output.intact(file.address);
               return written != nullptr && written->hash == file.hash;
           });
}

void PageWriter::render(const std::optional<LinkedSite> &site)
{
    // The second time for files of parts that did not change, whose place another part had until now.
    for (int pass = 0; site && pass < 2; ++pass) {
        const std::uint64_t settings = keyOf(site->shared.settings);
        std::vector<Stale> stale;
        for (std::size_t part = 0; part <= m_state.inputs.size(); ++part) {
            const std::uint64_t key =
                part == 0 ? keyOf(site->sharedHash, site->searchFiles)
                          : keyOf(settings, m_state.inputs[part - 1].recordHash, site->recordHashes[part - 1]);
            if (!isUpToDate(part, key))
                stale.push_back({part, key});
        }
        renderParts(stale, *site);
        findOwners();
    }
    copyFiles();
    findOwners();
    if (m_settings.isWatched)
        replaceRemovedPages();
}

void PageWriter::renderParts(const std::vector<Stale> &stale, const LinkedSite &site)
{
    constexpr std::size_t perJob = 4; // parts differ in size
    const std::size_t count = std::min(stale.size(), perJob * static_cast<std::size_t>(m_jobs));
    const auto begin = [&](std::size_t worker) { return worker * stale.size() / count; };
    const std::string round = std::to_string(m_rounds++) + '-';
    const auto work = [&](std::size_t worker) {
        FieldWriter fields;
        for (std::size_t at = begin(worker); at < begin(worker + 1); ++at)
            fields("files", rendered(stale[at].part, site, round + std::to_string(worker) + '-'));
        return fields.takeBytes().toStdString();
    };
    std::vector<std::string> failures(count);
    runWorkers(count, m_jobs, work, [&](std::size_t worker, const WorkerResult &result) {
        if (!result.isDone) {
            failures[worker] = result.text;
            return;
        }
        FieldReader fields({result.text.data(), static_cast<qsizetype>(result.text.size())}, QString());
        for (std::size_t at = begin(worker); at < begin(worker + 1); ++at) {
            std::vector<StagedFile> files;
            fields("files", files);
            keep(stale[at], std::move(files));
        }
    });
    throwFailures(stale, failures);
}

void PageWriter::throwFailures(const std::vector<Stale> &stale, const std::vector<std::string> &failures) const
{
    BuildError error;
    for (const std::string &failure : failures) {
        if (!failure.empty())
            error.messages.push_back("error: " + failure);
    }
    if (error.messages.empty())
        return;
    DamagedRecords damaged;
    for (const Stale &part : stale) {
        if (part.part == 0)
            continue;
        try {
            static_cast<void>(readRecords(m_cache.recordFile(m_state.inputs[part.part - 1])));
        } catch (const HException &) {
            damaged.inputs.push_back(part.part - 1);
        }
    }
    if (!damaged.inputs.empty())
        throw DamagedRecords(std::move(damaged));
    throw BuildError(std::move(error));
}

std::vector<StagedFile> PageWriter::rendered(std::size_t part, const LinkedSite &site, const std::string &prefix)
{
    std::vector<StagedFile> files;
    const FileSink sink = [&](const std::string &address, const QByteArray &bytes) {
        files.push_back(m_output.stage(address, bytes, prefix));
    };
    if (part == 0)
        renderSharedFiles(m_cache.linkDirectory(), site.shared, sink);
    else
        renderRecordFile(m_cache.recordFile(m_state.inputs[part - 1]), m_cache.linkDirectory(), site.shared, sink);
    return files;
}

void PageWriter::keep(const Stale &stale, std::vector<StagedFile> &&files)
{
    CachedPart &part = m_parts[stale.part];
    part = {stale.key, {}};
    for (StagedFile &file : files) {
        part.files.push_back({file.file.address, file.file.hash});
        m_staged.try_emplace({stale.part, file.file.address}, std::move(file));
    }
}

void PageWriter::copyFiles()
{
    const std::size_t part = m_parts.size() - 1;
    CachedPart &copies = m_parts.back();
    copies.files.clear();
    for (const CopiedFile &copy : m_state.copied) {
        const FileStamp &stamp = m_cache.stampOf(copy.source);
        if (!stamp.found)
            throw HException(QByteArray::fromStdString(copy.source) + ": cannot be read");
        copies.files.push_back({copy.address, stamp.hash});
        if (m_owners.try_emplace(copy.address, part).first->second != part)
            continue;
        const WrittenFile *const written = m_output.intact(copy.address);
        if (written != nullptr && written->hash == stamp.hash)
            continue;
        const std::optional<QByteArray> bytes = readRegularFile(QString::fromStdString(copy.source));
        if (!bytes)
            throw HException(QByteArray::fromStdString(copy.source) + ": cannot be read");
        m_staged.try_emplace({part, copy.address}, m_output.stage(copy.address, *bytes, "copy-"));
    }
}

void PageWriter::replaceRemovedPages()
{
    m_notices.clear();
    for (const WrittenFile &file : m_before) {
        const std::string &address = file.address;
        if (address.ends_with(".htm") && !m_owners.contains(address) && !m_output.isForeign(address))
            m_notices.emplace(address, m_output.stage(address, removedPage(address, m_settings), "removed-"));
    }
}

PageWriter::Counts PageWriter::publish()
{
    std::vector<WrittenFile> written;
    std::vector<const StagedFile *> moved;
    for (const auto &[address, part] : m_owners) {
        const auto staged = m_staged.find({part, address});
        written.push_back(staged != m_staged.end() ? staged->second.file : *m_output.intact(address));
        if (staged != m_staged.end() && !staged->second.staged.empty())
            moved.push_back(&staged->second);
    }
    if (!moved.empty())
        announce(moved);
    Counts counts{written.size(), moved.size(), 0};
    for (const StagedFile *file : moved)
        m_output.publish(*file);
    for (const auto &[address, notice] : m_notices) {
        written.push_back(notice.file);
        if (notice.staged.empty())
            continue;
        m_output.publish(notice);
        ++counts.removed;
    }
    for (const WrittenFile &file : m_before) {
        if (!m_owners.contains(file.address) && !m_notices.contains(file.address))
            counts.removed += m_output.remove(file.address) ? 1 : 0;
    }
    m_state.written = std::move(written);
    m_state.shared = m_parts.front();
    m_state.copies = m_parts.back();
    for (std::size_t input = 0; input < m_state.inputs.size(); ++input)
        m_state.inputs[input].part = m_parts[input + 1];
    return counts;
}

void PageWriter::announce(const std::vector<const StagedFile *> &files)
{
    std::set<std::string_view> known;
    for (const WrittenFile &file : m_before)
        known.insert(file.address);
    for (const StagedFile *file : files) {
        if (!known.contains(file->file.address))
            m_state.written.push_back({file->file.address, 0, 0, 0});
    }
    m_state.siteKey = 0;
    m_cache.save();
}

} // namespace tavidoc
