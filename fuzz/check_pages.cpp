// Checks the translation of sources and headers to pages.

#include "base/hexception.h"
#include "docgen/doc_gen.h"
#include "fuzz/page_checks.h"
#include "fuzz/process_state.h"
#include "fuzz/promise.h"
#include "fuzz/scratch.h"
#include "fuzz/subjects.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// The output of one run of the generator.
struct Outcome
{
    OutputRecords records;
    std::string messages;
    bool endedEarly = false;
};

Outcome run(const QString &file, std::size_t variant)
{
    settleProcessState();
    Outcome outcome;
    DocGen generator;
    generator.setBaseHeadingLevel(variant % 3 == 2 ? 2 : 0);
    const MessageSink sink = [&outcome](const Message &message) {
        checkMessage(message);
        outcome.messages += formatted(message);
    };
    generator.setMessageSink(sink);
    if (variant % 2 == 0)
        generator.setMissingFileSink(sink);
    try {
        generator.run(nullptr, variant % 4 == 3 ? 0 : 1, Path(file), u"out"_s, outcome.records,
                      variant % 2 == 0 ? QString() : u"html"_s, {});
    } catch (const HException &exception) {
        promise(exception.message().endsWith(" includes itself without end"), "only an endless include ends a run",
                exception.message().toStdString());
        outcome.endedEarly = true;
    }
    return outcome;
}

/// Returns the whole output as one text.
std::string textOf(const Outcome &outcome)
{
    std::string text = outcome.messages;
    for (const OutputRecord &record : outcome.records)
        text.append(record.fileName.toStdString()).append("\n").append(record.text.toStdString()).append("\n");
    return text;
}

void checkOutcome(const Outcome &outcome, std::string_view input, bool isFramed)
{
    const auto holds = [input](std::string_view text) { return input.find(text) != std::string_view::npos; };
    // Running text may contain HTML.
    const bool holdsRawHtml = holds("span") || holds("&#x") || holds("\\copyin");
    const bool holdsRawContents = holds("\\contents") || holds("\\rawcontent");
    for (const OutputRecord &record : outcome.records) {
        promise(record.fileName.startsWith("out/"_L1), "files are in the output directory",
                record.fileName.toStdString());
        promise(!record.fileName.contains("/../"_L1), "files do not leave the output directory",
                record.fileName.toStdString());
        if (record.fileName.endsWith(".htm"_L1))
            checkPage(record.text.toStdString(), isFramed, holdsRawHtml);
        else if (!holdsRawContents)
            checkContents(record.text.toStdString());
    }
}

void checkFile(const QString &name, std::string_view input)
{
    const std::size_t variant = input.size() % 12; // of the options of a run
    Scratch::write(name, input);
    const Outcome outcome = run(name, variant);
    checkOutcome(outcome, input, variant % 4 != 3);
    if (input.size() % 5 == 0)
        promiseEqual(textOf(run(name, variant)), textOf(outcome), "the same input gives the same bytes");
}

} // namespace

void checkMarkup(std::string_view input)
{
    checkFile(u"input.dg"_s, input);
}

void checkHeader(std::string_view input)
{
    checkFile(u"input.h"_s, input);
}
