#pragma once

#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "markup/cross_references.h"
#include "markup/markup_cursor.h"
#include "pages/contents.h"
#include "pages/html_blocks.h"
#include "pages/icon_table.h"
#include "pages/pages.h"
#include "reading/report.h"

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// What a translator works on. All are borrowed and must outlive it.
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
};

/// Turns the text of one document, or of one comment of a header, into HTML: one pass over the
/// text. Wrong markup leaves a marker in the page and a message; it never ends the pass.
class Translator
{
public:
    /// Where a command may stand.
    enum class Place
    {
        Anywhere,
        Block,    ///< opens, closes or switches a block: not inside an argument or a synopsis
        Document, ///< besides, not in the comments of a header
    };

    /// A row of the command table. What \a first and \a second mean is the handler's business.
    struct Command
    {
        std::string_view name;
        Place place;
        void (Translator::*handler)(const Command &);
        std::string_view first = {};
        std::string_view second = {};
    };

    /// \a text is UTF-8.
    Translator(std::string_view text, const TranslatorSurroundings &surroundings);

    /// Translates the whole text and closes the block that is open at its end.
    void translate();

    /// All commands; none is named twice.
    [[nodiscard]] static std::span<const Command> commands();
    /// Null for an unknown name.
    [[nodiscard]] static const Command *findCommand(std::string_view name);

    /// The last `\brief` of the text as HTML; empty without one.
    [[nodiscard]] const std::string &brief() const { return m_brief; }
    /// The last `\ingroup` of the text; empty without one.
    [[nodiscard]] const std::string &group() const { return m_group; }

private:
    /// A stretch of text that is translated by the same loop as any other and that something
    /// follows: an argument, a synopsis, a line. A stack of them replaces recursion.
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
    void errorMarker(std::string_view message);
    void error(std::string_view message);
    void warning(std::string_view message);
    void missingDefinitions(std::initializer_list<std::string_view> files);
    void commandWarning(std::string_view message);
    [[nodiscard]] std::string aboutCommand(std::string_view message) const;
    void missingArgument();
    std::optional<std::string_view> braced();
    std::optional<std::string_view> lineOrBraced();
    std::optional<std::string_view> filledLine();

    // Inline
    void misplaced(const Command &command);
    void symbol(const Command &command);
    void style(const Command &command);
    void rawHtml(const Command &command);
    void wrapText(const Command &command);
    void image(const Command &command);
    void screen(const Command &command);
    void link(const Command &command);
    void lineNumber(const Command &command);
    void discardLine(const Command &command);
    void paragraphStyle(const Command &command);

    // Blocks
    void item(const Command &command);
    void skipAfterLabel();
    void term(const Command &command);
    void step(const Command &command);
    void parameter(const Command &command);
    void returns(const Command &command);
    void referenceSection(const Command &command);
    void synopsis(const Command &command);
    void endSynopsis();
    [[nodiscard]] std::size_t synopsisEnd() const;
    void namedHeading(const Command &command);
    void section(const Command &command);
    void overview(const Command &command);
    void copyLine(const Command &command);
    void briefText(const Command &command);
    void endBrief();
    void startSection(int levelBelowTop, std::string_view title);

    // Tables and matrices
    void table(const Command &command);
    void matrix(const Command &command);
    void endTable(const Command &command);
    void endMatrix(const Command &command);
    void endGrid(BlockMode mode);
    void warnOfOpenGrid();
    void tableBar(bool startsRow);
    void headingRow();
    void groupRow();
    void endGroupRow();
    void matrixBar(bool startsRow);
    [[nodiscard]] bool barStartsRow() const;

    // Listings and files
    void listing(const Command &command);
    void present(const Command &command);
    void copyFile(const Command &command);
    void show(const Command &command);
    void writeListing(std::string_view text, std::string_view language);

    // Pages and contents
    void title(const Command &command);
    void split(const Command &command);
    void here(const Command &command);
    void contents(const Command &command);
    void steerContents(std::string_view direction);
    void includeInContents(const Command &command);
    void rawContent(const Command &command);
    void beginGroup(const Command &command);
    void endGroup(const Command &command);
    void inGroup(const Command &command);
    void groupOrder(const Command &command);

    // Menus, keys, properties, icons
    void menu(const Command &command);
    void key(const Command &command);
    void tip(const Command &command);
    void choose(const Command &command);
    void property(const Command &command);
    void propertyPage(const Command &command);
    void icon(const Command &command);

    /// Which kind of row of a table or matrix is open.
    enum class Row
    {
        None,
        Heading,
        Data,
    };

    static constexpr std::string_view s_headingRowEnd = "</th></tr>\n";
    static constexpr std::string_view s_dataRowEnd = "</td></tr>\n";

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

    std::vector<Frame> m_frames; // innermost last
    std::size_t m_commandOffset = 0;
    std::string_view m_commandName;
    Row m_row = Row::None;
    std::size_t m_gridOffset = 0; // of the command that opened the table or matrix
    bool m_inSynopsis = false;
    bool m_saidNoPage = false;
    bool m_pageOpened = false;   // at this place or before
    bool m_withoutEntry = false; // the next page gets no contents entry
    std::size_t m_briefOffset = 0;
    std::string m_brief;
    std::string m_group;
};

} // namespace tavidoc
