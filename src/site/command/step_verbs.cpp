// The verbs that do one step: compile, link, render and dump.

#include "base/hexception.h"
#include "base/make_rule.h"
#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/findings.h"
#include "site/command/project.h"
#include "site/command/site_output.h"
#include "site/command/steps.h"
#include "site/command/verbs.h"
#include "site/link/link_files.h"
#include "site/record/record_file.h"

#include <QDir>

#include <cstdio>
#include <optional>
#include <type_traits>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// The only operand of a verb.
QString singleOperand(const Arguments &arguments, const char *what)
{
    if (arguments.operands().size() != 1)
        throw UsageError{std::string("expected one ") + what};
    return arguments.operands().constFirst();
}

template <typename File> QStringList names(const std::vector<File> &files)
{
    QStringList list;
    for (const File &file : files) {
        if constexpr (std::is_same_v<File, CopiedFile>)
            list.append(QString::fromStdString(file.source));
        else
            list.append(QString::fromStdString(file.name));
    }
    return list;
}

/// Writes the dependency file that \a arguments ask for. It has at least one of \a files: CMake drops empty ones, and
/// then the command runs in every build.
void writeDepfile(const Arguments &arguments, const QStringList &files)
{
    if (!arguments.has(OptionId::Depfile))
        return;
    QStringList paths;
    for (const QString &file : files)
        paths.append(presentPath(QDir::cleanPath(QDir::current().absoluteFilePath(file))));
    paths.removeDuplicates();
    const QString target = arguments.value(arguments.has(OptionId::Target) ? OptionId::Target : OptionId::Output);
    updateWholeFile(arguments.value(OptionId::Depfile), makeRule(target, paths));
}

/// The project of "link", if there is one, and the record files.
struct LinkOperands
{
    Project project;
    QStringList records;
};

LinkOperands linkOperands(const Arguments &arguments)
{
    LinkOperands operands;
    std::optional<QString> projectFile;
    for (const QString &operand : arguments.operands()) {
        if (!isProjectFile(operand))
            operands.records.append(operand);
        else if (projectFile)
            throw UsageError{"link: expected one project file"};
        else
            projectFile = operand;
    }
    if (operands.records.isEmpty())
        throw UsageError{"link: expected records"};
    if (projectFile)
        operands.project = readProject(*projectFile);
    return operands;
}

/// A partial link: all records in one file.
int linkPartially(const Arguments &arguments)
{
    RecordSet all;
    for (const QString &file : arguments.operands()) {
        if (isProjectFile(file))
            throw UsageError{"link: a partial link has no project file"};
        for (RecordWithBodies &record : readRecords(file))
            all.push_back(std::move(record));
    }
    if (all.empty())
        throw UsageError{"link: expected records"};
    updateWholeFile(arguments.required(OptionId::Output), encodedRecords(all));
    return 0;
}

void copy(const std::vector<CopiedFile> &files, const FileSink &sink)
{
    for (const CopiedFile &file : files) {
        const std::optional<QByteArray> bytes = readRegularFile(QString::fromStdString(file.source));
        if (!bytes)
            throw HException(QByteArray::fromStdString(file.source) + ": cannot be read");
        sink(file.address, *bytes);
    }
}

} // namespace

int compileVerb(const Arguments &arguments)
{
    const QString input = singleOperand(arguments, "input");
    const QString output = arguments.required(OptionId::Output);
    const CompiledInput compiled =
        compileToFile(input.toStdString(), arguments.value(OptionId::Folder).toStdString(), output);
    writeDepfile(arguments, names(compiled.files));
    return 0;
}

int linkVerb(const Arguments &arguments)
{
    if (arguments.has(OptionId::Partial))
        return linkPartially(arguments);
    const QString directory = arguments.required(OptionId::Output);
    const LinkOperands operands = linkOperands(arguments);
    std::vector<Record> records;
    for (const QString &file : operands.records) {
        for (Record &record : readRecordHeads(file))
            records.push_back(std::move(record));
    }
    const LinkedSite site = linkToDirectory(records, operands.project.settings, directory);
    writeDepfile(arguments, operands.records + names(site.lookedFor));
    const FindingCounts counts = printFindings(site.findings, operands.project.settings.levels);
    if (!arguments.has(OptionId::Quiet))
        printLine(counted(records.size(), "record") + ": " + counts.text());
    return counts.status(arguments);
}

int renderVerb(const Arguments &arguments)
{
    const QString links = arguments.required(OptionId::Link);
    const QString directory = arguments.required(OptionId::Output);
    const QString sharedFile = links + u'/' + sharedLinkFileName();
    const SharedLinks shared = readSharedLinks(sharedFile);
    std::vector<CopiedFile> copied;
    writeSite(directory, [&](const FileSink &sink) {
        if (arguments.operands().isEmpty()) {
            renderSharedFiles(links, shared, sink);
            copied = copiedFilesOf(shared.settings);
        }
        for (const QString &file : arguments.operands()) {
            renderRecordFile(file, links, shared, sink);
            const std::vector<CopiedFile> pictures = picturesOf(file, links);
            copied.insert(copied.end(), pictures.begin(), pictures.end());
        }
        copy(copied, sink);
    });
    const QStringList read = arguments.operands().isEmpty() ? QStringList(sharedFile) : arguments.operands();
    writeDepfile(arguments, read + names(copied));
    return 0;
}

int dumpVerb(const Arguments &arguments)
{
    for (const RecordWithBodies &record : readRecords(singleOperand(arguments, "record"))) {
        const std::string text = dumpedRecord(record);
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
    if (std::fflush(stdout) != 0)
        throw HException("cannot write to the standard output");
    return 0;
}

} // namespace tavidoc
