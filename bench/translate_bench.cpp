// Times the library within one process: without start-up and without writing the pages.

#include "docgen/doc_gen.h"
#include "reading/source_reader.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include <string>
#include <string_view>

using namespace tavidoc;

namespace {

constexpr std::size_t s_constructBytes = 1'000'000;

struct Construct
{
    const char *name;
    std::string_view text; ///< repeated up to s_constructBytes
    std::string_view opening = {};
    std::string_view closing = {};
};

constexpr Construct s_constructs[] = {
    {"prose", "Words of a paragraph that goes on over lines of a usual length, one after the other,\n"
              "without any markup in them.\n\n"},
    {"styles", "Some \\b{bold} words, \\i{slanted} ones and \\tt{names} of things, nested \\b{\\i{too}}.\n\n"},
    {"items", "\\item Open the file.\n\\item Read what it says.\n\\item Close it.\n\n"},
    {"rows", "| \\tt{name} | kind | what it is good for\n", "\\table{1in,1in,*}\n", "\\endtable\n"},
    {"listing", "    if (count < limit && !isDone)\n        print(\"%d\\n\", count);\n", "\\code{plain}\n",
     "\\endcode\n"},
    {"links", "See \\xref{Target} and \\xref{target}{the other one}.\n"},
    {"sections", "\\section A part of the page\n\nText.\n\n"},
    {"pages", "\\split{page}\n\\title A page\n\nText.\n\n"},
};

void translateFile(benchmark::State &state, const QString &name)
{
    for (auto _ : state) {
        OutputRecords records;
        DocGen().run(nullptr, 1, Path(name), QStringLiteral("out"), records, {}, {});
        benchmark::DoNotOptimize(records);
    }
    state.SetBytesProcessed(state.iterations() * QFile(name).size());
}

void readDocument(benchmark::State &state)
{
    const QString name = QStringLiteral(GENERATED_DOCUMENT);
    for (auto _ : state)
        benchmark::DoNotOptimize(SourceReader(nullptr, {}).read(Path(name)));
    state.SetBytesProcessed(state.iterations() * QFile(name).size());
}

void translateDocument(benchmark::State &state)
{
    translateFile(state, QStringLiteral(GENERATED_DOCUMENT));
}

void translateConstruct(benchmark::State &state)
{
    const Construct &construct = s_constructs[state.range(0)];
    state.SetLabel(construct.name);
    std::string text = "\\split{target}\n\\title Target\n\n";
    text += construct.opening;
    while (text.size() < s_constructBytes)
        text += construct.text;
    text += construct.closing;

    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("construct.dg")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), qint64(text.size())) != qint64(text.size())) {
        state.SkipWithError("cannot write the source");
        return;
    }
    file.close();
    translateFile(state, file.fileName());
}

BENCHMARK(readDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(translateDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(translateConstruct)->DenseRange(0, std::size(s_constructs) - 1)->Unit(benchmark::kMillisecond);

} // namespace
