#pragma once

#include "reading/message.h"
#include "reading/source_map.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Where missing files are reported. Deliberately, the program itself does not report them: a missing
/// include is empty, and the definitions are optional.
struct MissingFiles
{
    MessageSink sink;
    std::vector<std::string> definitions; ///< names of the missing definition files
};

/// Reports what is wrong in a text, with the position in the source.
class Report
{
public:
    /// All are borrowed and must outlive the report; \a missing is null when missing files are not
    /// reported.
    Report(std::string_view text, SourceMap &map, const MessageSink &sink, MissingFiles *missing = nullptr)
        : m_text(text), m_map(map), m_sink(sink), m_missing(missing)
    {
    }

    /// The position is that of the character at \a offset of the text.
    /// \a check is the name of the check that found it, a literal; empty for the markup in general.
    void error(std::size_t offset, std::string_view message, std::string_view check = {});
    void warning(std::size_t offset, std::string_view message, std::string_view check = {});
    void errorWithoutPosition(std::string_view message, std::string_view check = {});
    /// Makes \a number the number of the line at \a offset in messages; the lines after it count on from there.
    void renumber(std::size_t offset, int number) { m_map.renumber(m_text, offset, number); }

    /// The position of the character at \a offset of the text.
    [[nodiscard]] SourcePosition position(std::size_t offset) { return m_map.position(m_text, offset); }

    /// The include at \a offset names \a file, which cannot be read.
    void missingInclude(std::size_t offset, std::string_view file);
    /// The command at \a offset found no definition, which would be in the definition file \a name.
    /// Reported only if that file is missing, and only for the first such command.
    void missingDefinition(std::size_t offset, std::string_view command, std::string_view name);

private:
    void send(const MessageSink &sink, Message::Kind kind, std::size_t offset, std::string_view text,
              std::string_view check);

    std::string_view m_text;
    SourceMap &m_map;
    const MessageSink &m_sink;
    MissingFiles *m_missing;
};

} // namespace tavidoc
