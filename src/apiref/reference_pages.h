#pragma once

#include "apiref/reference_names.h"
#include "apiref/synopsis_source.h"
#include "base/path.h"
#include "base/text_map.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "markup/cross_references.h"
#include "markup/declarations.h"
#include "markup/member_groups.h"
#include "markup/shared_tables.h"
#include "pages/contents.h"
#include "pages/document_facts.h"
#include "pages/html_blocks.h"
#include "pages/html_pages.h"
#include "pages/icon_table.h"
#include "pages/output_queue.h"
#include "pages/pages.h"
#include "reading/report.h"
#include "reading/source_line_reader.h"
#include "sourcebrowser/c_scanner.h"
#include "sourcebrowser/model.h"

#include <QStringList>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Makes the API reference of one header: a page for every documented declaration, a page for
/// the header itself, and a contents file. A declaration is documented when its comment begins
/// with "!" and its name is not excluded.
///
/// With qualified names, overloads and other declarations of one qualified name share a page, on which each has a heading.
/// The page of a class, structure, union or namespace ends with tables of its documented members and its bases, and the
/// header's page with a list of the declarations that no comment documents.
class ReferencePages : private Declarations
{
public:
    /// What the reference is made with. All are borrowed and must outlive it.
    struct Surroundings
    {
        OutputQueue &output;
        Contents &contents; ///< of the run; lines of earlier headers stay in it
        const ActionNames &actions;
        const Properties &properties;
        const MessageSink &sink;
        MissingFiles *missing;      ///< null when missing files are not reported
        DocumentListener *listener; ///< null when nobody is told
        ReferenceNames names;
        QString outputDirectory; ///< of the icons
        std::string outputFormat;
        bool split; ///< also write a page and a contents file for the header, and frame all pages
        int baseHeadingLevel;
    };

    ReferencePages(const Path &header, const Surroundings &surroundings);

    /// Reads the header and appends the finished files. Declarations named in \a exclusions are
    /// not documented. A header that cannot be read is empty.
    void make(const QStringList &exclusions);

private:
    /// A declaration that gets a page.
    struct Documented
    {
        const SourceBrowserObject *object;
        std::string name;
        std::string stem; // of the page
        int line;         // on which the comment begins, counted from 1
        // Of pages that declarations share, known once the comment is translated:
        std::string description = {};            // HTML
        BriefFacts facts = {};                   // of the description, if somebody is told
        std::optional<std::size_t> heading = {}; // its offset in the page; nothing when the page has one declaration
    };

    /// The page of a declaration that has been made.
    struct Finished
    {
        int line; // of the comment, counted from 1
        std::string name;
        std::string description; // HTML
        BriefFacts facts;        // of the description, if somebody is told
    };

    [[nodiscard]] std::optional<std::string> pageOf(std::string_view name) const override;
    [[nodiscard]] std::optional<std::string> rendering(std::string_view name) const override;
    [[nodiscard]] std::string currentName() const override;
    [[nodiscard]] Synopsis currentSynopsis() const override;

    std::vector<SourceBrowserOverviewComment> parse();
    void select(const QStringList &exclusions);
    void makePage(const Documented &declaration);
    void makeSharedPages();
    void makeSharedPage(const std::vector<Documented *> &declarations);
    void writeSharedHeading(const Documented &first);
    bool writeShared(Documented &declaration);
    void appendMembers(const SourceBrowserContainer &container);
    void appendMember(const SourceBrowserContainer &container, const SourceBrowserObject &member);
    std::optional<DocumentMember> openRow(std::string_view kind, DocumentMember member);
    void appendLink(const Documented &member, std::string_view name);
    void appendBases(const SourceBrowserContainer &container);
    void appendEnumerators(const SourceBrowserEnum &enumeration);
    void appendText(const QString &comment, int line, std::optional<DocumentMember> row);
    void appendUndocumented();
    void openPage(const Documented &declaration);
    std::string writeText(const Documented &declaration);
    [[nodiscard]] const std::string *stemFrom(std::string scope, const std::string &name) const;
    std::string translate(std::string_view markup, SourceMap &map);
    void makeHeaderPage(const std::vector<SourceBrowserOverviewComment> &overview);
    void makeContentsFile();
    void noteReplacedPage(const Documented &declaration);
    [[nodiscard]] std::vector<MemberGroups::Group> groupedPages() const;
    [[nodiscard]] std::vector<IndexGroup> summary(const std::vector<MemberGroups::Group> &groups) const;
    void warn(int line, std::string_view message, std::string_view check = {}) const;
    void warnOfEmptyComment(const SourceBrowserObject &object, const std::string &name);
    void tellOverload(const SourceBrowserObject &object, std::optional<std::size_t> heading);
    void tellHeaderPage(const std::string &stem, const std::string &title, const DocumentPlace &place);
    void tellSummary(const std::vector<MemberGroups::Group> &groups, const std::vector<IndexRowPlace> &rows);
    void tellContents();
    [[nodiscard]] DocumentPlace place(int line) const { return {m_header.given(), line}; }

    Path m_header;
    Surroundings m_surroundings;
    std::optional<DocumentFacts> m_facts; // nothing when nobody is told
    SourceLineReader m_lines;             // the model has strings that share their memory
    SourceBrowserModel m_model;
    std::optional<SynopsisSource> m_source; // with qualified names
    HtmlBlocks m_blocks{SharedTables::paraStyle};
    Pages m_pages;
    IconTable m_icons;
    std::vector<Documented> m_documented;  // in the order of their pages
    const Documented *m_current = nullptr; // whose page is being made
    std::string m_sharedHeading;  // that comments of overloads begin with, in the page being made; written already
    TextMap<std::string> m_stems; // by bare and by qualified name
    std::unordered_map<const SourceBrowserObject *, const Documented *> m_byObject; // filled for shared pages
    std::set<std::string> m_rows;                                                   // qualified names, of the page
    std::set<std::string> m_rowIds;                                                 // of the page
    TextMap<Finished> m_finished;                                                   // by stem
};

} // namespace tavidoc
