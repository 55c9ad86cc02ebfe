#include "driver/run.h"

#include "docgen/doc_gen.h"
#include "driver/output_files.h"

#include <QDir>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The directory that pages are written to, made with all missing parents. That it cannot be
/// made shows when a page is written.
QString preparedDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return QDir::currentPath();
    QDir().mkpath(directory);
    return directory;
}

void sayProcessing(const QString &name)
{
    printMessage("Processing " + name.toStdString() + "\n");
}

void sayOutputting(const QString &name)
{
    printMessage("Outputting " + name.toStdString() + "\n");
}

OutputRecords recordsOf(const Path &input, const QString &outputDirectory)
{
    OutputRecords records;
    DocGen generator;
    generator.run(nullptr, 1, input, outputDirectory, records, QString(), {});
    return records;
}

/// Contents records are made for callers of the library; the program writes pages only: the files
/// whose names end in ".htm", in just these letters.
std::vector<const OutputRecord *> pagesOf(const OutputRecords &records)
{
    std::vector<const OutputRecord *> pages;
    for (const OutputRecord &record : records) {
        if (Path(record.fileName).suffix() == "htm"_L1)
            pages.push_back(&record);
    }
    return pages;
}

} // namespace

void documentInputs(const Settings &settings)
{
    const QString outputDirectory = preparedDirectory(settings.outputDirectory);
    for (const QString &argument : settings.inputs) {
        const Path input(argument);
        if (settings.verbose)
            sayProcessing(input.text());
        const OutputRecords records = recordsOf(input, outputDirectory);
        if (settings.verbose)
            writeOutputFiles(pagesOf(records), sayOutputting);
        else
            writeOutputFiles(pagesOf(records));
    }
}
