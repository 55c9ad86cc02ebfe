// What is made of a whole set at once: one page, and a project for Qt's help system.

#include "site/command/whole_set.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/site_output.h"
#include "site/command/steps.h"
#include "site/command/verbs.h"
#include "site/exchange/help_project.h"
#include "site/link/link_files.h"
#include "site/record/record_file.h"
#include "site/render/plain_pages.h"
#include "site/render/record_body.h"
#include "site/render/single_page.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <set>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// The directory of the files of the single page \a file: "manual_files" for "manual.htm".
QString filesDirectory(const QString &file)
{
    const qsizetype nameBegin = file.lastIndexOf(u'/') + 1;
    const qsizetype dot = file.lastIndexOf(u'.');
    return (dot > nameBegin ? file.left(dot) : file) + u"_files"_s;
}

/// Hands out \a files, each place once. The first file for it counts.
void copyTo(const FileSink &sink, const std::vector<CopiedFile> &files)
{
    std::set<std::string_view> done;
    for (const CopiedFile &file : files) {
        if (!done.insert(file.address).second)
            continue;
        const std::optional<QByteArray> bytes = readRegularFile(QString::fromStdString(file.source));
        if (!bytes)
            throw HException(QByteArray::fromStdString(file.source) + ": cannot be read");
        sink(file.address, *bytes);
    }
}

/// Writes the pictures and other files of a single page.
void writeFiles(const WholeSet &set, std::vector<CopiedFile> copied, const QString &directory)
{
    std::vector<std::pair<std::string, QByteArray>> icons;
    set.forEachHead([&](const Record &record, const RecordLinks &links) {
        for (const RecordIcon &icon : record.icons)
            icons.emplace_back(iconAddress(record, icon), QByteArray::fromStdString(icon.bytes));
        copied.insert(copied.end(), links.images.begin(), links.images.end());
    });
    if (icons.empty() && copied.empty())
        return;
    writeSite(directory, [&](const FileSink &sink) {
        for (const auto &[address, bytes] : icons)
            sink(address, bytes);
        copyTo(sink, copied);
    });
}

} // namespace

WholeSet::WholeSet(const Project &project, const QString &cache)
    : m_project(project), m_cache(cache, project),
      m_shared(readSharedLinks(m_cache.linkDirectory() + u'/' + sharedLinkFileName()))
{
}

void WholeSet::forEachHead(const HeadUse &use) const
{
    for (const ProjectInput &input : m_project.inputs) {
        for (const Record &record : readRecordHeads(m_cache.recordFile({input.file, input.folder, 0, {}, {}})))
            use(record, linksOf(record, m_cache.linkDirectory()));
    }
}

void WholeSet::forEachRecord(const RecordUse &use) const
{
    for (const ProjectInput &input : m_project.inputs) {
        const QString file = m_cache.recordFile({input.file, input.folder, 0, {}, {}});
        RecordSet records;
        try {
            records = readRecords(file);
        } catch (const HException &) {
            static_cast<void>(compileToFile(input.file, input.folder, file));
            records = readRecords(file);
        }
        for (const RecordWithBodies &record : records)
            use(record, linksOf(record.head, m_cache.linkDirectory()));
    }
}

void writeHelpProject(const WholeSet &set, const QString &file)
{
    const SiteSettings &settings = set.shared().settings;
    PlainPages pages;
    set.forEachHead([&](const Record &record, const RecordLinks &links) { pages.addNames(record, links); });
    std::set<std::string> names;
    writeSite(QFileInfo(file).path(), [&](const FileSink &sink) {
        const auto list = [&](const std::string &name, const QByteArray &bytes) {
            if (names.insert(name).second)
                sink(name, bytes);
        };
        std::vector<CopiedFile> copied = settings.assets;
        set.forEachRecord([&](const RecordWithBodies &record, const RecordLinks &links) {
            pages.write(record, links, list);
            const std::vector<CopiedFile> pictures = pages.copies(record.head, links, settings.assets);
            copied.insert(copied.end(), pictures.begin(), pictures.end());
        });
        pages.writeStyles(list);
        copyTo(list, copied);
    });
    updateWholeFile(file, helpProjectFile(set.shared(), pages.names(), names));
}

int singleVerb(const Arguments &arguments)
{
    const QString output = arguments.required(OptionId::Output);
    const QString directory = filesDirectory(output);
    return buildWithoutPages(arguments, arguments.operands(), [&](const WholeSet &set) {
        const QByteArray folder = QUrl::toPercentEncoding(QFileInfo(directory).fileName());
        const std::vector<CopiedFile> copied = copiedFilesOf(set.shared().settings);
        SinglePage page(set.shared(), folder.toStdString() + '/', copied);
        set.forEachRecord([&](const RecordWithBodies &record, const RecordLinks &links) { page.add(record, links); });
        writeFiles(set, copied, directory);
        updateWholeFile(output, page.file());
    });
}

} // namespace tavidoc
