#include "driver/run.h"

#include "docgen/doc_gen.h"
#include "driver/output_file.h"

#include <QDir>

#include <cstdio>
#include <string>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// The directory that pages are written to, created with all missing parents. A failure to create
/// it is reported when a page is written.
QString preparedDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return QDir::currentPath();
    QDir().mkpath(directory);
    return directory;
}

void printProgress(const Settings &settings, std::string_view verb, const QString &name)
{
    if (!settings.verbose)
        return;
    const std::string line = std::string(verb) + name.toStdString() + '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
}

OutputRecords recordsOf(const Path &input, const QString &outputDirectory)
{
    OutputRecords records;
    DocGen generator;
    generator.run(nullptr, 1, input, outputDirectory, records, QString(), {});
    return records;
}

/// True when \a fileName ends with ".htm", in lower case.
bool isPage(const QString &fileName)
{
    return Path(fileName).suffix() == "htm"_L1;
}

} // namespace

void documentInputs(const Settings &settings)
{
    const QString outputDirectory = preparedDirectory(settings.outputDirectory);
    DocGen::searchDirectoriesOnce(true); // looking for them takes more system calls than everything else
    for (const QString &argument : settings.inputs) {
        const Path input(argument);
        printProgress(settings, "Processing ", input.text());
        const OutputRecords records = recordsOf(input, outputDirectory);
        for (const OutputRecord &record : records) {
            // Contents records are for users of the library; the program writes only pages.
            if (!isPage(record.fileName))
                continue;
            printProgress(settings, "Outputting ", record.fileName);
            writeOutputFile(record.fileName, record.text);
        }
    }
}

} // namespace tavidoc
