#pragma once

#include "reading/source_map.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Receives whole lines for the standard output, "\n" included.
using MessageSink = std::function<void(std::string_view)>;

/// Writes \a line to the standard output. A closed or full output loses it without a word.
void printMessage(std::string_view line);

/// What is to be said of the files that a document asks for in vain. Deliberately, the program
/// says nothing of them: an include that is not there is empty, and the definitions are optional.
struct MissingFiles
{
    MessageSink sink;                     ///< receives lines as for the standard output
    std::vector<std::string> definitions; ///< names of the definition files that are not there
};

/// Says what is wrong in a text, with the position of the source line.
class Report
{
public:
    /// \a text, \a map and \a missing are borrowed and must outlive the report; \a missing is null
    /// when nobody asks for missing files.
    Report(std::string_view text, SourceMap &map, const MessageSink &sink, MissingFiles *missing = nullptr)
        : m_text(text), m_map(map), m_sink(sink), m_missing(missing)
    {
    }

    /// "error: docgen: FILE:LINE: MESSAGE" for the character at \a offset of the text.
    void error(std::size_t offset, std::string_view message);
    /// "warning: docgen: FILE:LINE: MESSAGE".
    void warning(std::size_t offset, std::string_view message);
    /// \a text as it stands, line end included.
    void print(std::string_view text) { m_sink(text); }
    /// Gives the line at \a offset the number \a number in messages, and counts on from there.
    void renumber(std::size_t offset, int number) { m_map.renumber(m_text, offset, number); }

    /// The include at \a offset asks for \a file, which cannot be read.
    void missingInclude(std::size_t offset, std::string_view file);
    /// The command at \a offset found nothing where the definition file \a name would have been
    /// asked. Reported when that file is missing, once for all commands.
    void missingDefinition(std::size_t offset, std::string_view command, std::string_view name);

private:
    void say(const MessageSink &sink, std::string_view kind, std::size_t offset, std::string_view message);

    std::string_view m_text;
    SourceMap &m_map;
    const MessageSink &m_sink;
    MissingFiles *m_missing;
};

} // namespace tavidoc
