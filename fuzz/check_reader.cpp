// Checks the reading of markup sources, up to the text for the translator.

#include "base/hexception.h"
#include "base/source_text.h"
#include "fuzz/promise.h"
#include "fuzz/scratch.h"
#include "fuzz/subjects.h"
#include "markup/page_titles.h"
#include "reading/source_reader.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// Without macros, each line of the text equals the source line that its position names; an include reads
/// as an empty line.
void checkPositions(SourceDocument &document, const QString &file, std::string_view source)
{
    const std::vector<std::string_view> sourceLines = linesOf(source);
    const std::string_view text = document.text();
    for (const std::string_view line : linesOf(text)) {
        const auto offset = static_cast<std::size_t>(line.data() - text.data());
        const SourcePosition position = document.map.position(text, offset);
        if (position.file != file || text.empty())
            continue;
        promise(position.line >= 1 && position.line <= static_cast<int>(sourceLines.size()),
                "a position refers to a source line", line);
        const std::string_view sourceLine = sourceLines[static_cast<std::size_t>(position.line) - 1];
        promise(line == sourceLine || line.empty(), "a position refers to its own line", line);
    }
}

std::string titleText(const SourceDocument &document)
{
    const TitleLists lists = titlesOf(document.text());
    std::string text;
    for (const PageTitles *titles : {&lists.titles, &lists.targets}) {
        for (const auto &[name, title] : *titles)
            text.append(name).append("\t").append(title).append("\n");
    }
    return text;
}

} // namespace

void checkReader(std::string_view input)
{
    const QString file = Scratch::write(u"input.dg"_s, input);
    QByteArray source = decodedSource(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
    promise(QUtf8StringView(source).isValidUtf8(), "a decoded source is UTF-8", source.toStdString());
    normalizeLineEnds(source);
    try {
        SimpleMacroContext macros;
        const SourceDocument expanded = SourceReader(&macros, "print").read(Path(file));
        promise(macros.introducer() == '$', "the introducer is restored");
    } catch (const HException &) { // an endless include
    }
    try {
        SourceDocument document = SourceReader(nullptr, "html").read(Path(file));
        checkPositions(document, file, source.toStdString());
        const SourceDocument again = SourceReader(nullptr, "html").read(Path(file));
        promiseEqual(again.text(), document.text(), "the same source gives the same text");
        promiseEqual(titleText(again), titleText(document), "the same source gives the same titles");
    } catch (const HException &exception) {
        promise(exception.message().endsWith(" includes itself without end"), "only an endless include is an error");
    }
}
