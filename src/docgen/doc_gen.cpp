#include "docgen/doc_gen.h"

#include "apiref/reference_pages.h"
#include "base/path.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "definitions/scheme_files.h"
#include "definitions/xml_pp.h"
#include "markup/file_commands.h"
#include "markup/member_groups.h"
#include "markup/page_titles.h"
#include "markup/shared_tables.h"
#include "markup/translator.h"
#include "pages/contents.h"
#include "pages/document_facts.h"
#include "reading/report.h"
#include "reading/source_reader.h"

#include <optional>
#include <set>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

XmlPP DocGen::m_xpp;
ActionNames DocGen::m_messageMap;
Properties DocGen::m_properties;

void DocGen::searchDirectoriesOnce(bool once)
{
    m_xpp.searchDirectoriesOnce(once);
}

DocGen::DocGen() : m_contents(std::make_unique<Contents>()) {}

DocGen::~DocGen() = default;

void DocGen::setMessageSink(MessageSink sink)
{
    m_sink = std::move(sink);
}

void DocGen::setMissingFileSink(MessageSink sink)
{
    m_missing = std::make_unique<MissingFiles>(MissingFiles{std::move(sink), {}});
}

void DocGen::run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
                 OutputRecords &records, const QString &outputFormat, const QStringList &exclusions)
{
    OutputRecorder recorder(records, outputDirectory);
    OutputQueue output(recorder);
    output.release(); // records of a run that fails stay in the caller's list
    makeFiles(macros, splitFlag, input, outputDirectory, output, outputFormat, exclusions);
}

void DocGen::run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
                 OutputSink &sink, const QString &outputFormat, const QStringList &exclusions)
{
    OutputQueue output(sink);
    makeFiles(macros, splitFlag, input, outputDirectory, output, outputFormat, exclusions);
    output.release();
}

void DocGen::makeFiles(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
                       OutputQueue &output, const QString &outputFormat, const QStringList &exclusions)
{
    m_output = &output;
    m_splitFlag = splitFlag;
    m_outputDirectory = outputDirectory;
    m_outputFormat = outputFormat;
    SharedTables::docObjects.clear();
    SharedTables::docGroups.clear();
    if (input.completeSuffix() == u"dg"_s)
        documentMarkup(macros, input);
    else if (input.completeSuffix() == u"h"_s)
        documentHeader(input, exclusions);
}

/// Loads the definitions beside \a input and reports those that are malformed.
void DocGen::loadDefinitions(const Path &input)
{
    for (const XmlError &error : loadSchemeFiles(input, m_xpp, m_messageMap, m_properties)) {
        m_sink({.kind = Message::Kind::Error,
                .file = error.file.toStdString(),
                .line = error.line,
                .text = error.reason.toStdString()});
    }
    if (m_listener != nullptr) {
        for (const SchemeFile &file : schemeFiles(input))
            m_listener->file(file.name, file.isPresent);
    }
    if (m_missing)
        m_missing->definitions = missingSchemeFiles(input, m_messageMap, m_properties);
}

namespace {

/// The text of the contents file: the lines of the tree inside their element.
std::string contentsText(const Contents &contents)
{
    std::string text = "<contents>\n";
    for (const std::string &line : contents.lines())
        text.append(line).append("\n");
    return text += "</contents>";
}

void tellFiles(const SourceDocument &document, DocumentListener &listener)
{
    std::set<std::string_view> missing;
    for (const MissingInclude &include : document.missingIncludes)
        missing.insert(include.file);
    for (const QString &name : document.map.fileNames())
        listener.file(name, !missing.contains(name.toStdString()));
}

/// The finding about a line that was dropped; nothing for a comment that is not in a listing.
std::optional<DocumentFinding> findingAbout(const SwallowedLine &line, const DocumentFacts &facts)
{
    const bool isComment = line.reason == SwallowedLine::Reason::Comment;
    if (isComment && !facts.isInListing(line.offset))
        return std::nullopt;
    std::string text = "the line \"" + line.text + "\" is dropped: lines that begin with \"";
    text.append(isComment ? "%\" are comments" : "@\" are directives");
    text += facts.isInListing(line.offset) ? "; use \\present for this listing" : "";
    return DocumentFinding{"swallowed-line", {line.file, line.line}, std::move(text)};
}

/// Tells what is known when the whole document has been translated.
void tellListener(const SourceDocument &document, const Contents &contents, DocumentFacts &facts)
{
    tellFiles(document, facts.listener());
    MemberGroups::tellUnknown(facts);
    for (const SwallowedLine &line : document.swallowedLines) {
        if (const std::optional<DocumentFinding> finding = findingAbout(line, facts))
            facts.listener().finding(*finding);
    }
    for (std::size_t index = 0; index < contents.lines().size(); ++index)
        facts.listener().contentsLine(contents.lines()[index], facts.contentsPlace(index));
}

} // namespace

void DocGen::documentMarkup(MacroContext *macros, const Path &input)
{
    const std::string format = m_outputFormat.toStdString();
    loadDefinitions(input);
    SourceReader reader(macros, format);
    std::optional<DocumentFacts> facts;
    if (m_listener != nullptr) {
        facts.emplace(*m_listener).placeContents(m_contents->lines().size(), {});
        reader.listSwallowedLines();
    }
    SourceDocument document = reader.read(input);
    Report report(document.text(), document.map, m_sink, m_missing.get());
    HtmlBlocks blocks(SharedTables::paraStyle);
    DocumentFacts *const told = facts ? &*facts : nullptr;
    Pages pages(blocks, *m_output, m_splitFlag != 0, told);
    if (const std::optional<std::size_t> last = lastFileCommand(document.text()))
        pages.releaseAfter(*last);
    else
        m_output->release();
    const TitleLists titles = titlesOf(document.text());
    if (const auto title = titles.titles.find(std::string_view()); title != titles.titles.end())
        pages.setDocumentTitle(title->second);
    const CrossReferences references(titles, nullptr);
    IconTable icons = m_listener != nullptr ? IconTable(*m_listener) : IconTable(m_outputDirectory);
    Translator translator(document.text(), {.blocks = blocks,
                                            .pages = pages,
                                            .contents = *m_contents,
                                            .references = references,
                                            .report = report,
                                            .actions = m_messageMap,
                                            .properties = m_properties,
                                            .icons = icons,
                                            .declarations = nullptr,
                                            .outputFormat = format,
                                            .baseHeadingLevel = m_baseHeadingLevel,
                                            .facts = told});
    translator.translate();
    for (const MissingInclude &include : document.missingIncludes)
        report.missingInclude(include.offset, include.file);
    m_contents->closeAll();
    pages.flush();
    if (facts)
        tellListener(document, *m_contents, *facts);
    if (!m_output->takesContents())
        return;
    const std::string contents = contentsText(*m_contents);
    const std::string_view part = contents;
    m_output->add({input.baseName().toStdString() + ".xml", QString(), {&part, 1}});
}

void DocGen::documentHeader(const Path &input, const QStringList &exclusions)
{
    loadDefinitions(input);
    ReferencePages pages(input, {.output = *m_output,
                                 .contents = *m_contents,
                                 .actions = m_messageMap,
                                 .properties = m_properties,
                                 .sink = m_sink,
                                 .missing = m_missing.get(),
                                 .listener = m_listener,
                                 .names = m_referenceNames,
                                 .outputDirectory = m_outputDirectory,
                                 .outputFormat = m_outputFormat.toStdString(),
                                 .split = m_splitFlag != 0,
                                 .baseHeadingLevel = m_baseHeadingLevel});
    pages.make(exclusions);
}

} // namespace tavidoc
