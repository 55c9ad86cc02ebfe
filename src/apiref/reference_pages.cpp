#include "apiref/reference_pages.h"

#include "apiref/comment_findings.h"
#include "apiref/comment_markup.h"
#include "apiref/doc_gen_c_parser.h"
#include "apiref/reference_text.h"
#include "base/text_escape.h"
#include "base/white_space.h"
#include "markup/file_commands.h"
#include "markup/member_groups.h"
#include "markup/shared_tables.h"
#include "markup/translator.h"

#include <algorithm>
#include <set>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// How the type of a declaration is shown to readers.
constexpr unsigned s_shown =
    SourceBrowserObject::ReturnType | SourceBrowserObject::TightParenthesis | SourceBrowserObject::StripUnderscores;

/// The stem of the page of the declaration \a name; a file name cannot contain "/".
std::string stemOf(std::string_view name)
{
    std::string stem;
    for (const char c : name) {
        if (c == '/')
            stem += "slash";
        else
            stem += c;
    }
    return stem;
}

/// The qualified name, with dots, of the innermost scope that the comment of \a object sees.
std::string insideOf(const SourceBrowserObject &object)
{
    const auto *const container = dynamic_cast<const SourceBrowserContainer *>(&object);
    return qualifiedByDots((container != nullptr ? object.qualifiedName() : object.scope()).toStdString());
}

std::u16string_view utf16View(const QString &text)
{
    return {reinterpret_cast<const char16_t *>(text.utf16()), static_cast<std::size_t>(text.size())};
}

} // namespace

ReferencePages::ReferencePages(const Path &header, const Surroundings &surroundings)
    : m_header(header), m_surroundings(surroundings),
      m_facts(surroundings.listener != nullptr ? std::optional(DocumentFacts(*surroundings.listener)) : std::nullopt),
      m_lines(header), m_pages(m_blocks, surroundings.output, surroundings.split, m_facts ? &*m_facts : nullptr),
      m_icons(m_facts ? IconTable(m_facts->listener()) : IconTable(surroundings.outputDirectory))
{
    if (m_facts)
        m_facts->placeContents(surroundings.contents.lines().size(), {});
    m_pages.setHeader(header.fileName());
}

void ReferencePages::make(const QStringList &exclusions)
{
    const std::vector<SourceBrowserOverviewComment> overview = parse();
    select(exclusions);
    if (m_surroundings.names == ReferenceNames::Qualified)
        makeSharedPages();
    else
        std::ranges::for_each(m_documented, [this](const Documented &declaration) { makePage(declaration); });
    m_current = nullptr;
    m_pages.flush();
    if (!m_surroundings.split)
        return;
    makeHeaderPage(overview);
    if (m_facts)
        MemberGroups::tellUnknown(*m_facts);
    if (m_surroundings.output.takesContents())
        makeContentsFile();
}

/// Fills the model. The result is the header's overview.
std::vector<SourceBrowserOverviewComment> ReferencePages::parse()
{
    DocGenSourceBrowserCParser parser(m_model, m_lines);
    parser.setComplete(m_surroundings.names == ReferenceNames::Qualified);
    parser.parse(m_header.given());
    if (!lastFileCommand({m_lines.text().constData(), static_cast<std::size_t>(m_lines.text().size())}))
        m_surroundings.output.release();
    if (m_surroundings.names == ReferenceNames::Qualified) {
        m_source.emplace(m_lines.text(), m_model);
        m_source->attachTrailingComments();
    }
    if (m_facts) {
        m_facts->listener().file(m_header.given(), m_lines.wasRead());
        tellStrayComments(m_header.given(), parser.documentationLines(), m_model, m_facts->listener());
        const std::string_view text(m_lines.text().constData(), static_cast<std::size_t>(m_lines.text().size()));
        tellUndocumented(m_header.given(), text, m_model, m_source ? &*m_source : nullptr, m_facts->listener());
        tellForeignComments(m_header.given(), text, m_facts->listener());
    }
    return parser.overviewComments();
}

void ReferencePages::select(const QStringList &exclusions)
{
    const auto isDocumented = [&exclusions](const SourceBrowserObject &object) {
        return object.documentation().startsWith(u'!') && !exclusions.contains(object.name());
    };
    for (const SourceBrowserObject *object : m_model.chosen(isDocumented)) {
        std::string name = object->name().toStdString();
        if (!hasInnerText(utf16View(object->documentation()))) {
            warnOfEmptyComment(*object, name);
            continue;
        }
        const bool isQualified = m_surroundings.names == ReferenceNames::Qualified && !object->scope().isEmpty();
        std::string stem = stemOf(isQualified ? qualifiedByDots(object->qualifiedName().toStdString()) : name);
        m_stems.try_emplace(qualifiedByDots(name), stem);
        if (!object->scope().isEmpty())
            m_stems.try_emplace(qualifiedByDots(object->qualifiedName().toStdString()), stem);
        m_documented.push_back({object, std::move(name), std::move(stem), object->documentationLine()});
    }
}

void ReferencePages::makePage(const Documented &declaration)
{
    noteReplacedPage(declaration);
    openPage(declaration);
    const std::string brief = writeText(declaration);
    std::string description = brief.empty() ? firstSentence(m_blocks.firstParagraph()) : brief;
    if (m_facts && brief.empty())
        m_facts->setBrief(description);
    m_finished.insert_or_assign(declaration.stem, Finished{declaration.line, declaration.name, std::move(description),
                                                           m_facts ? m_facts->brief() : BriefFacts()});
}

/// Opens the page of \a declaration, with its leaf in the contents.
void ReferencePages::openPage(const Documented &declaration)
{
    m_surroundings.contents.addLeaf(declaration.stem);
    m_pages.open(declaration.stem);
    m_pages.setTitle(declaration.name);
    if (!m_facts)
        return;
    m_facts->placeContents(m_surroundings.contents.lines().size(), place(declaration.line));
    const SourceBrowserContainer *const container = declaration.object->container();
    const bool isMember = container != nullptr && (container->phylum() == SourceBrowserObject::Class ||
                                                   container->phylum() == SourceBrowserObject::Structure);
    m_facts->beginDeclaration(place(declaration.line), declarationKind(*declaration.object),
                              qualifiedByColons(*declaration.object), isMember);
}

/// Translates the comment of \a declaration into the page text. The result is its `\brief` as HTML.
std::string ReferencePages::writeText(const Documented &declaration)
{
    m_current = &declaration;
    const std::string comment = declaration.object->documentation().toStdString();
    if (m_facts) {
        tellUnusedText(comment, place(declaration.line), m_facts->listener());
        tellParameterMismatches(*declaration.object, comment, place(declaration.line), m_facts->listener());
        tellForeignCommands(comment, place(declaration.line), m_facts->listener());
    }
    std::string markup = commentMarkup(comment, declaration.name);
    if (!m_sharedHeading.empty() && leadingHeading(markup) == m_sharedHeading) {
        const std::size_t begin = markup.find('\\'); // blanks in its place keep the positions of messages right
        const std::size_t end = std::min(markup.find('\n', begin), markup.size());
        markup.replace(begin, end - begin, end - begin, ' ');
    }
    SourceMap map;
    map.beginStretch(0, map.addFile(m_header.given()), declaration.line + 1);
    return translate(markup, map);
}

/// Translates \a markup into the page text. The result is its `\brief` as HTML.
std::string ReferencePages::translate(std::string_view markup, SourceMap &map)
{
    static const TitleLists noTitles;
    Report report(markup, map, m_surroundings.sink, m_surroundings.missing);
    const CrossReferences references(noTitles, this);
    Translator translator(markup, {.blocks = m_blocks,
                                   .pages = m_pages,
                                   .contents = m_surroundings.contents,
                                   .references = references,
                                   .report = report,
                                   .actions = m_surroundings.actions,
                                   .properties = m_surroundings.properties,
                                   .icons = m_icons,
                                   .declarations = this,
                                   .outputFormat = m_surroundings.outputFormat,
                                   .baseHeadingLevel = m_surroundings.baseHeadingLevel,
                                   .facts = m_facts ? &*m_facts : nullptr});
    translator.translate();
    return translator.brief();
}

/// Warns when the page of \a declaration takes the place of another.
void ReferencePages::noteReplacedPage(const Documented &declaration)
{
    const auto before = m_finished.find(declaration.stem);
    if (before == m_finished.end())
        return;
    SharedTables::docObjects.erase(declaration.stem); // the group that the replaced page named
    std::string message = "the page of ";
    message.append(declaration.name).append(" replaces the one documented on line ");
    message.append(std::to_string(before->second.line));
    warn(declaration.line, message, "duplicate-page");
}

void ReferencePages::makeHeaderPage(const std::vector<SourceBrowserOverviewComment> &overview)
{
    std::string markup;
    SourceMap map;
    const int file = map.addFile(m_header.given());
    for (const SourceBrowserOverviewComment &comment : overview) {
        map.beginStretch(markup.size(), file, comment.firstLine);
        const std::string text = comment.text.toStdString();
        if (m_facts)
            tellForeignCommands(text, place(comment.firstLine), m_facts->listener());
        markup += overviewMarkup(text);
    }
    if (!markup.empty())
        markup += '\n';
    map.beginStretch(markup.size(), file, 1);
    markup += "\\section API Summary\n";
    translate(markup, map);
    const std::vector<MemberGroups::Group> groups = groupedPages();
    const std::vector<IndexRowPlace> rows = appendMultiHeadingTable(m_blocks.text(), summary(groups));
    if (m_surroundings.names == ReferenceNames::Qualified)
        appendUndocumented();
    const std::string title = "<" + m_header.fileName().toStdString() + ">";
    const std::string stem = m_header.baseName().toStdString() + "_h";
    if (m_facts) {
        tellSummary(groups, rows);
        tellHeaderPage(stem, title, place(overview.empty() ? 1 : overview.front().firstLine));
    }
    m_pages.output(stem, title);
}

/// The groups of the summary, each with the stems of its pages.
std::vector<MemberGroups::Group> ReferencePages::groupedPages() const
{
    std::vector<std::string> stems;
    std::set<std::string_view> known;
    for (auto declaration = m_documented.rbegin(); declaration != m_documented.rend(); ++declaration) {
        if (known.insert(declaration->stem).second) // the later of equal pages counts
            stems.push_back(declaration->stem);
    }
    std::ranges::reverse(stems);
    return MemberGroups::arrange(stems);
}

std::vector<IndexGroup> ReferencePages::summary(const std::vector<MemberGroups::Group> &groups) const
{
    std::vector<IndexGroup> table;
    for (const MemberGroups::Group &group : groups) {
        IndexGroup &rows = table.emplace_back();
        rows.caption = escapedText(group.name);
        for (const std::string &stem : group.pages) {
            const Finished &page = m_finished.find(stem)->second;
            rows.entries.push_back({escapedText(stem), escapedText(page.name), page.description});
        }
    }
    return table;
}

void ReferencePages::makeContentsFile()
{
    const std::string stem = m_header.baseName().toStdString();
    std::vector<std::string> lines = m_surroundings.contents.lines();
    std::ranges::sort(lines);
    std::string text = "<contents>\n<content url=\"" + escapedText(stem) + "_h.htm\">\n";
    for (std::size_t index = 0; index < lines.size(); ++index)
        text.append(index == 0 ? "" : "\n").append(lines[index]);
    text += "\n</content>\n</contents>";
    const std::string_view part = text;
    m_surroundings.output.add({stem + ".xml", QString(), {&part, 1}});
    if (m_facts)
        tellContents();
}

void ReferencePages::warn(int line, std::string_view message, std::string_view check) const
{
    m_surroundings.sink({.kind = Message::Kind::Warning,
                         .file = m_header.given().toStdString(),
                         .line = line,
                         .text = std::string(message),
                         .check = check});
}

/// Warns that the comment of \a object has no text, unless the reason is told instead.
void ReferencePages::warnOfEmptyComment(const SourceBrowserObject &object, const std::string &name)
{
    const int line = object.documentationLine();
    if (!m_facts || !tellUnusedText(object.documentation().toStdString(), place(line), m_facts->listener()))
        warn(line, "the comment of " + name + " has no text");
}

std::optional<std::string> ReferencePages::pageOf(std::string_view name) const
{
    const std::string wanted = qualifiedByDots(name);
    const bool looksFromInside = m_surroundings.names == ReferenceNames::Qualified && m_current != nullptr;
    if (const std::string *const stem = looksFromInside ? stemFrom(insideOf(*m_current->object), wanted) : nullptr)
        return *stem;
    const auto found = m_stems.find(wanted);
    return found == m_stems.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> ReferencePages::rendering(std::string_view name) const
{
    const QString wanted = QString::fromUtf8(name);
    const SourceBrowserObject *const object = m_model.find(wanted);
    if (object == nullptr)
        return std::nullopt;
    return m_source ? m_source->synopsis(*object) : object->description(s_shown).toStdString() + ";";
}

std::string ReferencePages::currentName() const
{
    return m_current == nullptr ? std::string() : m_current->name;
}

Declarations::Synopsis ReferencePages::currentSynopsis() const
{
    if (m_current == nullptr)
        return {};
    if (m_source)
        return {m_source->synopsis(*m_current->object), "c"};
    return {m_current->object->description(s_shown | SourceBrowserObject::ArgumentLines).toStdString() + ";"};
}

} // namespace tavidoc
