#include "site/command/build.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/build_cache.h"
#include "site/command/directory_lock.h"
#include "site/command/page_writer.h"
#include "site/command/progress.h"
#include "site/command/version_list.h"
#include "site/command/watch_stamp.h"
#include "site/command/worker_pool.h"
#include "site/link/link_fields.h"
#include "site/record/field_reader.h"
#include "site/record/record_fields.h"
#include "site/record/record_file.h"
#include "site/record/sealed_file.h"

#include <QFile>

#include <algorithm>
#include <optional>

namespace tavidoc {

void describe(auto &fields, OneOf<CompiledInput> auto &input)
{
    fields("hash", input.hash);
    fields("files", input.files);
}

namespace {

class Build
{
public:
    explicit Build(const BuildRequest &request)
        : m_request(request), m_cache(request.cache, request.project), m_state(m_cache.state())
    {
    }

    BuildReport run()
    {
        try {
            makeSite();
        } catch (...) {
            m_cache.save(); // what was compiled so far
            throw;
        }
        m_cache.save();
        m_cache.removeOthers();
        m_report.findings = m_state.findings;
        m_report.inputs = m_state.inputs.size();
        if (m_request.project.settings.isWatched)
            listFiles();
        return std::move(m_report);
    }

private:
    void listFiles()
    {
        const auto add = [this](const std::vector<Dependency> &files) {
            for (const Dependency &file : files)
                m_report.lookedFor.push_back(file.name);
        };
        for (const CachedInput &input : m_state.inputs)
            add(input.files);
        add(m_state.linkedFiles);
        for (const CopiedFile &file : m_state.copied)
            m_report.lookedFor.push_back(file.source);
    }

    void makeSite()
    {
        compileStale();
        std::optional<PageWriter> pages;
        if (!m_request.output.isEmpty())
            pages.emplace(m_request.output, m_request.project.settings, m_cache, m_request.jobs);
        const bool isSiteStale = pages && (m_state.siteKey != linkKey() || !pages->isComplete());
        std::optional<LinkedSite> site;
        if (isSiteStale || m_state.linkKey != linkKey() || !m_cache.isLinkFresh())
            site = linkAll();
        if (!pages)
            return;
        render(*pages, site);
        if (m_request.isOutdated && m_request.isOutdated())
            throw OutdatedBuild();
        const PageWriter::Counts counts = pages->publish();
        m_state.siteKey = linkKey();
        m_report.files = counts.files;
        m_report.written = counts.written;
        m_report.removed = counts.removed;
    }

    /// A record whose bodies are damaged is made again.
    void render(PageWriter &pages, const std::optional<LinkedSite> &site)
    {
        try {
            pages.render(site);
        } catch (const DamagedRecords &damaged) {
            compile(damaged.inputs);
            pages.render(site);
        }
    }

    void compileStale()
    {
        std::vector<std::size_t> stale;
        for (std::size_t index = 0; index < m_state.inputs.size(); ++index) {
            if (!m_cache.isFresh(m_state.inputs[index]))
                stale.push_back(index);
        }
        compile(stale);
    }

    void compile(const std::vector<std::size_t> &inputs)
    {
        std::vector<std::optional<std::string>> failures(inputs.size());
        std::size_t done = 0;
        const std::int64_t begin = fileTimeNow();
        const auto work = [&](std::size_t at) {
            const CachedInput &input = m_state.inputs[inputs[at]];
            FieldWriter fields;
            fields("compiled", compileToFile(input.input, input.folder, m_cache.recordFile(input)));
            return fields.takeBytes().toStdString();
        };
        const auto finished = [&](std::size_t at, const WorkerResult &result) {
            CachedInput &input = m_state.inputs[inputs[at]];
            if (result.isDone)
                keep(input, result.text, begin);
            else
                failures[at] = m_request.project.inputs[inputs[at]].place() + ": error: " + result.text;
            m_request.progress.show(++done, inputs.size(), input.input);
        };
        runWorkers(inputs.size(), m_request.jobs, work, finished);
        m_request.progress.clear();
        m_report.compiled += inputs.size();
        throwFailures(failures);
    }

    /// Takes what a worker says about the record that it wrote.
    void keep(CachedInput &input, const std::string &text, std::int64_t begin)
    {
        CompiledInput compiled;
        FieldReader fields({text.data(), static_cast<qsizetype>(text.size())}, QString());
        fields("compiled", compiled);
        fields.finish();
        input.recordHash = compiled.hash;
        m_cache.setFiles(input, compiled.files, begin);
    }

    static void throwFailures(const std::vector<std::optional<std::string>> &failures)
    {
        BuildError error;
        for (const std::optional<std::string> &failure : failures) {
            if (failure)
                error.messages.push_back(*failure);
        }
        if (!error.messages.empty())
            throw BuildError(std::move(error));
    }

    /// A hash of everything that is linked.
    [[nodiscard]] std::uint64_t linkKey()
    {
        FieldWriter fields;
        fields("settings", m_request.project.settings);
        for (const CachedInput &input : m_state.inputs) {
            fields("input", input.input);
            fields("folder", input.folder);
            fields("recordHash", input.recordHash);
        }
        for (const SiteInventory &inventory : m_request.project.settings.inventories)
            fields("inventory", m_cache.stampOf(inventory.file).hash);
        return checksum(fields.takeBytes());
    }

    LinkedSite linkAll()
    {
        m_state.linkKey = 0;
        const std::vector<Record> records = heads();
        LinkedSite site = linkToDirectory(records, m_request.project.settings, m_cache.linkDirectory());
        m_state.linkKey = linkKey();
        m_state.linkedFiles = site.lookedFor;
        m_state.findings = site.findings;
        m_state.copied = site.copied;
        return site;
    }

    /// The heads of all records; a record that is damaged is made again.
    std::vector<Record> heads()
    {
        std::vector<std::size_t> damaged;
        std::vector<Record> records(m_state.inputs.size());
        for (std::size_t index = 0; index < records.size(); ++index) {
            if (!readHead(index, records[index]))
                damaged.push_back(index);
        }
        if (damaged.empty())
            return records;
        compile(damaged);
        for (const std::size_t index : damaged)
            records[index] = std::move(readRecordHeads(m_cache.recordFile(m_state.inputs[index])).front());
        return records;
    }

    bool readHead(std::size_t index, Record &record) const
    {
        checkInterrupt();
        const CachedInput &input = m_state.inputs[index];
        try {
            record = std::move(readRecordHeads(m_cache.recordFile(input)).front());
        } catch (const HException &) {
            return false;
        }
        return record.input == input.input && record.folder == input.folder;
    }

    const BuildRequest &m_request;
    BuildCache m_cache;
    CacheState &m_state;
    BuildReport m_report;
};

} // namespace

BuildReport build(const BuildRequest &request)
{
    const DirectoryLock cacheLock(request.cache);
    std::optional<DirectoryLock> outputLock;
    if (!request.output.isEmpty()) {
        outputLock.emplace(request.output);
        SiteOutput::removeLeftovers(request.output);
        if (!request.project.settings.isWatched)
            QFile::remove(watchStampFile(request.output));
    }
    BuildReport report = Build(request).run();
    if (outputLock)
        listVersion(request.project.settings, request.output);
    return report;
}

} // namespace tavidoc
