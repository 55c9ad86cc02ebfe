#pragma once

#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "markup/command_table.h"
#include "markup/cross_references.h"
#include "markup/markup_cursor.h"
#include "markup/table_writer.h"
#include "pages/contents.h"
#include "pages/document_facts.h"
#include "pages/html_blocks.h"
#include "pages/icon_table.h"
#include "pages/pages.h"
#include "reading/report.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// What a translator works on. Everything is borrowed and must outlive it.
struct TranslatorSurroundings
{
    HtmlBlocks &blocks;
    Pages &pages;
    Contents &contents;
    const CrossReferences &references;
    Report &report;
    const ActionNames &actions;
    const Properties &properties;
    IconTable &icons;
    const Declarations *declarations; ///< null outside the comments of a header
    std::string_view outputFormat;
    int baseHeadingLevel; ///< of a document that is not split into pages; 0 for a top-level one
    DocumentFacts *facts; ///< null when nobody asks for them
};

/// Turns the text of one document, or of one comment of a header, into HTML in one pass. Wrong
/// markup leaves a marker in the page and a message; it never ends the pass.
class Translator
{
public:
    /// \a text is UTF-8.
    Translator(std::string_view text, const TranslatorSurroundings &surroundings);

    /// Translates the whole text and closes the block that is open at its end.
    void translate();

    /// The last `\brief` of the text as HTML; empty without one.
    [[nodiscard]] const std::string &brief() const { return m_brief; }

private:
    friend class CommandTable; // its rows point to the handlers

    /// A stretch of text that is translated by the same loop as any other text and then closed:
    /// an argument, a synopsis, a line. A stack of frames replaces recursion.
    struct Frame
    {
        std::size_t end;          // of the stretch
        std::size_t resume;       // where the text goes on after it
        std::string_view closing; // HTML
        void (Translator::*after)() = nullptr;
    };

    // The loop
    void copyText();
    [[nodiscard]] std::size_t plainTextEnd() const;
    [[nodiscard]] bool isPlainAfterAll(std::size_t offset, char c) const;
    [[nodiscard]] unsigned specialCharacters() const;
    void translateSpecial();
    void blankLine();
    void bar();
    void backslash();
    void escape(std::string_view name);
    void run(const Command &command);
    void openFrame(std::size_t end, std::size_t resume, std::string_view closing,
                   void (Translator::*after)() = nullptr);
    void closeFrame();
    void noteTextOnNoPage(std::size_t offset);

    // What handlers share
    void beginText();
    void write(std::string_view html);
    void writeEscaped(std::string_view text);
    void errorMarker(std::string_view message, std::string_view check = {});
    void error(std::string_view message, std::string_view check = {});
    void warning(std::string_view message, std::string_view check = {});
    void missingDefinitions(std::initializer_list<std::string_view> files);
    void commandWarning(std::string_view message);
    [[nodiscard]] std::string aboutCommand(std::string_view message) const;
    void missingArgument();
    std::optional<std::string_view> braced();
    std::optional<std::string_view> lineOrBraced();
    std::optional<std::string_view> filledLine();

    // What the facts are told, if somebody asks for them
    [[nodiscard]] DocumentPlace place(std::size_t offset);
    void noteHtml(std::string_view text, std::size_t offset);
    void noteLink(std::size_t begin, LinkedPage page, std::string_view target, bool hasCaption);
    void noteImage(std::size_t begin, std::string source, bool isIcon = false);
    void noteContents();

    // The handlers of commands, each group with the functions that only its handlers use
    using Handler = void(const Command &);
    using Ending = void(); // follows the text of a frame

    Handler symbol, style, rawHtml, wrapText, image, screen, link, choose, choosing;
    Handler misplaced, lineNumber, discardLine, paragraphStyle;

    Handler item, term, step, parameter, returns, referenceSection, synopsis, heading, section, subsection, overview;
    Handler copyLine, briefText;
    Ending skipAfterLabel, endSynopsis, endBrief;
    void writeSynopsis(const Declarations::Synopsis &synopsis);
    [[nodiscard]] std::size_t synopsisEnd() const;
    void startSection(int levelBelowTop, std::string_view title);

    Handler table, matrix, endTable, endMatrix;
    bool beginTable(BlockMode mode, std::size_t columnCount);
    void endTable(BlockMode mode);
    Ending endGroupRow;
    void noteSurplusCell(std::size_t offset);

    Handler codeListing, plainListing, present, copyFile, show;
    void listing(std::string_view defaultLanguage);
    void writeListing(std::string_view text, std::string_view language, std::string_view languageForReaders);

    Handler title, split, here, contents, includeInContents, rawContent, beginGroup, endGroup, inGroup, groupOrder;
    void steerContents(std::string_view direction);

    Handler menu, key, tip, property, propertyPage, icon;
    void instruct(std::string_view menuVerb, std::string_view keyVerb);

    MarkupCursor m_cursor;
    HtmlBlocks &m_blocks;
    Pages &m_pages;
    Contents &m_contents;
    const CrossReferences &m_references;
    Report &m_report;
    const ActionNames &m_actions;
    const Properties &m_properties;
    IconTable &m_icons;
    const Declarations *m_declarations;
    std::string_view m_outputFormat;
    int m_baseHeadingLevel;
    DocumentFacts *m_facts;

    TableWriter m_table;
    std::size_t m_tableOffset = 0; // of the command that opened the table or matrix
    std::size_t m_columnCount = 0; // of the table or matrix
    std::vector<Frame> m_frames;   // innermost last
    std::size_t m_commandOffset = 0;
    std::string_view m_commandName;
    bool m_inSynopsis = false;
    bool m_saidNoPage = false;
    bool m_pageOpened = false;   // here or before
    bool m_withoutEntry = false; // the next page gets no contents entry
    std::size_t m_briefOffset = 0;
    std::string m_brief;
};

} // namespace tavidoc
