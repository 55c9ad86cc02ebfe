#include "site/command/steps.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/site_path.h"
#include "site/compile/compile.h"
#include "site/exchange/inventory_reader.h"
#include "site/link/link_fields.h"
#include "site/link/link_files.h"
#include "site/record/record_file.h"
#include "site/record/sealed_file.h"
#include "site/search/search_index.h"

#include <QDir>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// Writes the files of a link.
class LinkWriter
{
public:
    LinkWriter(const std::vector<Record> &records, QString directory)
        : m_records(records), m_directory(std::move(directory)),
          m_search([this](const std::string &name, std::string_view bytes) { writeSearch(name, bytes); })
    {
        if (!QDir().mkpath(path(s_search)))
            throw HException("cannot write " + path(s_search).toUtf8());
    }

    void writeRecord(std::size_t index, const RecordLinks &links)
    {
        m_site.recordHashes.push_back(write(linkFileName(links.folder, links.input), encodedLinks(links)));
        for (const PageLinks &page : links.pages)
            addToSearch(m_records[index].pages[page.page], page, m_records[index]);
        for (const CopiedFile &file : links.images)
            m_copied.emplace(file.address, file.source);
    }

    LinkedSite finish(LinkSummary summary)
    {
        m_search.finish();
        FieldWriter settings;
        settings("settings", summary.shared.settings);
        // All that the pages of a record need of what is shared: build programs look at the time of this file.
        write(u"settings"_s, QByteArray::number(checksum(settings.takeBytes()), 16) + '\n');
        m_site.sharedHash = write(sharedLinkFileName(), encodedLinks(summary.shared));
        m_site.shared = std::move(summary.shared);
        m_site.findings = std::move(summary.findings);
        for (const CopiedFile &file : copiedFilesOf(m_site.shared.settings))
            m_copied.emplace(file.address, file.source);
        for (const auto &[address, source] : m_copied)
            m_site.copied.push_back({source, address});
        std::ranges::sort(m_site.searchFiles, {}, &PartFile::address);
        removeOthers(QString(), u"*.lnk"_s);
        removeOthers(s_search, u"*.js"_s);
        return std::move(m_site);
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return m_directory + u'/' + name; }

    /// Writes the file \a name unless it is there, and returns the hash of its contents.
    std::uint64_t write(const QString &name, const QByteArray &bytes)
    {
        updateWholeFile(path(name), bytes);
        m_names.insert(name);
        return checksum(bytes);
    }

    void writeSearch(const std::string &name, std::string_view bytes)
    {
        const QString file = s_search + QString::fromStdString(name);
        const QByteArray contents(bytes.data(), static_cast<qsizetype>(bytes.size()));
        m_site.searchFiles.push_back({file.toStdString(), write(file, contents)});
    }

    void addToSearch(const RecordPage &page, const PageLinks &links, const Record &record)
    {
        const bool isDeclaration = !page.qualifiedName.empty();
        const std::string &document = page.documentTitle.empty() ? record.title : page.documentTitle;
        m_search.place(m_search.addText(page.terms, page.excerpt),
                       {.name = isDeclaration ? page.qualifiedName : links.title,
                        .kind = page.declaration.empty() ? "page" : page.declaration,
                        .address = links.address,
                        .where = document});
        for (const RecordMember &member : page.members) {
            const std::string address = links.address + '#' + member.anchor;
            m_search.place(m_search.addText(member.terms, member.excerpt),
                           {.name = member.qualifiedName, .kind = member.kind, .address = address, .where = document});
        }
    }

    /// Removes the files in the folder \a folder that match \a pattern and that this link did not write.
    void removeOthers(const QString &folder, const QString &pattern)
    {
        for (const QString &name : QDir(path(folder)).entryList({pattern}, QDir::Files)) {
            if (!m_names.contains(folder + name))
                QFile::remove(path(folder + name));
        }
    }

    static inline const QString s_search = u"search/"_s;

    const std::vector<Record> &m_records;
    QString m_directory;
    LinkedSite m_site;
    std::map<std::string, std::string> m_copied; ///< sources by address
    std::set<QString> m_names;                   ///< of the files that were written
    SearchIndex m_search;
};

/// Whether all indices in \a links, what linking made of a record, are in \a record.
bool fits(const RecordLinks &links, const Record &record)
{
    return std::ranges::all_of(links.pages, [&](const PageLinks &links_of_page) {
        if (links_of_page.page >= record.pages.size())
            return false;
        const RecordPage &page = record.pages[links_of_page.page];
        return std::ranges::all_of(links_of_page.links,
                                   [&](const auto &link) { return link.link < page.links.size(); }) &&
               std::ranges::all_of(links_of_page.images,
                                   [&](const auto &image) { return image.image < page.images.size(); }) &&
               std::ranges::all_of(links_of_page.names,
                                   [&](const auto &name) { return name.name < page.names.size(); });
    });
}

} // namespace

RecordLinks linksOf(const Record &record, const QString &linkDirectory)
{
    const QString file = linkDirectory + u'/' + linkFileName(record.folder, record.input);
    RecordLinks links = readRecordLinks(file);
    if (!fits(links, record))
        throw HException(file.toUtf8() + ": of another version of the record");
    return links;
}

CompiledInput compileToFile(const std::string &input, const std::string &folder, const QString &recordFile)
{
    RecordSet records;
    records.push_back(compiled(QString::fromStdString(input), QString::fromStdString(folder)));
    const QByteArray bytes = encodedRecords(records);
    updateWholeFile(recordFile, bytes);
    return {checksum(bytes), std::move(records.front().head.files)};
}

LinkedSite linkToDirectory(const std::vector<Record> &records, const SiteSettings &settings, const QString &directory)
{
    std::map<std::string, bool> lookedFor;
    const auto isReadable = [&](const std::string &file) {
        const auto [place, isNew] = lookedFor.try_emplace(file);
        if (isNew)
            place->second = isReadableFile(file);
        return place->second;
    };
    const ForeignNames foreign = readInventories(settings.inventories);
    LinkWriter writer(records, directory);
    const auto write = [&](std::size_t index, const RecordLinks &links) { writer.writeRecord(index, links); };
    LinkedSite site = writer.finish(link(records, settings, write, isReadable, foreign));
    for (const auto &[name, found] : lookedFor)
        site.lookedFor.push_back({name, found, 0});
    for (const SiteInventory &inventory : settings.inventories)
        site.lookedFor.push_back({inventory.file, true, 0});
    return site;
}

void renderRecordFile(const QString &recordFile, const QString &linkDirectory, const SharedLinks &shared,
                      const FileSink &sink)
{
    for (const RecordWithBodies &record : readRecords(recordFile))
        renderRecord(record, linksOf(record.head, linkDirectory), shared, sink);
}

std::vector<CopiedFile> picturesOf(const QString &recordFile, const QString &linkDirectory)
{
    std::vector<CopiedFile> pictures;
    for (const Record &record : readRecordHeads(recordFile)) {
        const RecordLinks links = linksOf(record, linkDirectory);
        pictures.insert(pictures.end(), links.images.begin(), links.images.end());
    }
    return pictures;
}

void renderSharedFiles(const QString &linkDirectory, const SharedLinks &shared, const FileSink &sink)
{
    renderShared(shared, sink);
    const QString search = u"search/"_s;
    for (const QString &name : QDir(linkDirectory + u'/' + search).entryList({u"*.js"_s}, QDir::Files, QDir::Name)) {
        const QString file = linkDirectory + u'/' + search + name;
        const std::optional<QByteArray> bytes = readRegularFile(file);
        if (!bytes)
            throw HException(file.toUtf8() + ": cannot be read");
        sink((search + name).toStdString(), *bytes);
    }
}

std::vector<CopiedFile> copiedFilesOf(const SiteSettings &settings)
{
    std::vector<CopiedFile> files = settings.assets;
    for (const CopiedFile *file : {&settings.logo, &settings.favicon, &settings.style}) {
        if (!file->source.empty())
            files.push_back(*file);
    }
    return files;
}

} // namespace tavidoc
