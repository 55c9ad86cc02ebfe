#pragma once

#include "reading/conditions.h"
#include "reading/macro_context.h"
#include "reading/source_line_reader.h"
#include "reading/source_map.h"

#include <QByteArray>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavidoc {

/// An include of a file that cannot be read. It reads as an empty line.
struct MissingInclude
{
    std::size_t offset; ///< of that line in the text
    std::string file;   ///< as the include names it; UTF-8
};

/// A line that is not in the text although its author may have wanted it there.
struct SwallowedLine
{
    enum class Reason
    {
        Comment,   ///< it begins with "%"
        Directive, ///< it begins with "@", but does what no directive does: nothing
    };

    Reason reason;
    std::size_t offset; ///< in the text, of the line after it
    QString file;       ///< as it was named
    int line;           ///< counted from 1
    std::string text;   ///< UTF-8, white space simplified
};

/// A markup document, ready for the translator.
struct SourceDocument
{
    /// The lines that were kept, joined by "\n". UTF-8.
    [[nodiscard]] std::string_view text() const { return isJoined ? std::string_view(joined) : kept; }

    QByteArray file;       ///< contains the text when it is one stretch of the input file,
    std::string_view kept; ///< which is this view into it
    std::string joined;    ///< contains the text otherwise
    bool isJoined = false;
    SourceMap map;
    std::vector<MissingInclude> missingIncludes; ///< in order
    std::vector<SwallowedLine> swallowedLines;   ///< in order; only if they were asked for
};

/// Reads a markup source with the files that it includes: drops comments, evaluates conditional
/// blocks and collects definitions.
class SourceReader
{
public:
    /// \a macros may be null: then no line is expanded. It is borrowed.
    SourceReader(MacroContext *macros, std::string_view outputFormat);

    /// Makes the document list its swallowed lines.
    void listSwallowedLines() { m_listsSwallowed = true; }

    /// Reads \a path. A file that cannot be read is empty. Throws HException when an include
    /// provably never ends.
    [[nodiscard]] SourceDocument read(const Path &path);

private:
    /// Identifies a file: its device and inode numbers. Zeros for a file that cannot be read.
    using FileIdentity = std::pair<quint64, quint64>;

    /// A file while it is being read.
    struct OpenSource
    {
        SourceLineReader reader;
        FileIdentity identity;
        int file; // its number in the map
    };

    /// All open readings of one file.
    struct Readings
    {
        QByteArray text;                // shared by all of them
        std::vector<int> enteredStacks; // identities of the conditions when each began
    };

    /// Consecutive lines of a file that have not been appended to the text yet.
    struct Run
    {
        const char *begin = nullptr;
        const char *end = nullptr; // of the last line, without its line end
        int file = 0;
        int line = 0; // the number of the first line, counted from 1
    };

    void enter(const Path &path);
    [[nodiscard]] bool isEndless(const Readings &readings) const;
    void leave();
    void readLine(std::string_view line);
    void directive(std::string_view line);
    void define(const std::string &line);
    void noteSwallowed(SwallowedLine::Reason reason, std::string_view line);
    void textLine(std::string_view line);
    [[nodiscard]] std::string expandedLine(std::string_view line);
    bool include(std::string_view line);
    void keepInPlace(std::string_view line);
    void keepCopy(std::string_view line);
    void joinRun();
    [[nodiscard]] std::size_t nextLineOffset() const;
    void beginJoinedLine(int file, int line);

    MacroContext *m_macros;
    Conditions m_conditions;
    MacroDefinitions m_definitions;
    std::vector<OpenSource> m_open; // innermost last
    std::map<FileIdentity, Readings> m_readings;
    SourceDocument m_document;
    Run m_run;
    bool m_listsSwallowed = false;
};

} // namespace tavidoc
