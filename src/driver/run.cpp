#include "driver/run.h"

#include "docgen/doc_gen.h"
#include "driver/output_file.h"

#include <QDir>

namespace tavidoc {

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

void sayProgress(const Settings &settings, const char *verb, const QString &name)
{
    if (settings.verbose)
        printMessage(verb + name.toStdString() + "\n");
}

OutputRecords recordsOf(const Path &input, const QString &outputDirectory)
{
    OutputRecords records;
    DocGen generator;
    generator.run(nullptr, 1, input, outputDirectory, records, QString(), {});
    return records;
}

/// True when \a fileName ends in ".htm", in just these letters.
bool isPage(const QString &fileName)
{
    return Path(fileName).suffix() == "htm"_L1;
}

} // namespace

void documentInputs(const Settings &settings)
{
    const QString outputDirectory = preparedDirectory(settings.outputDirectory);
    for (const QString &argument : settings.inputs) {
        const Path input(argument);
        sayProgress(settings, "Processing ", input.text());
        const OutputRecords records = recordsOf(input, outputDirectory);
        for (const OutputRecord &record : records) {
            // Contents records are made for callers of the library; the program writes pages only.
            if (!isPage(record.fileName))
                continue;
            sayProgress(settings, "Outputting ", record.fileName);
            writeOutputFile(record.fileName, record.text);
        }
    }
}

} // namespace tavidoc
