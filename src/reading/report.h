#pragma once

#include "reading/source_map.h"

#include <cstddef>
#include <functional>
#include <string_view>

namespace tavidoc {

/// Receives whole lines for the standard output, "\n" included.
using MessageSink = std::function<void(std::string_view)>;

/// Writes \a line to the standard output. A closed or full output loses it without a word.
void printMessage(std::string_view line);

/// Says what is wrong in a text, with the position of the source line.
class Report
{
public:
    /// \a text and \a map are borrowed and must outlive the report.
    Report(std::string_view text, SourceMap &map, const MessageSink &sink) : m_text(text), m_map(map), m_sink(sink) {}

    /// "error: docgen: FILE:LINE: MESSAGE" for the character at \a offset of the text.
    void error(std::size_t offset, std::string_view message);
    /// "warning: docgen: FILE:LINE: MESSAGE".
    void warning(std::size_t offset, std::string_view message);
    /// \a text as it stands, line end included.
    void print(std::string_view text) { m_sink(text); }
    /// Gives the line at \a offset the number \a number in messages, and counts on from there.
    void renumber(std::size_t offset, int number) { m_map.renumber(m_text, offset, number); }

private:
    void say(std::string_view kind, std::size_t offset, std::string_view message);

    std::string_view m_text;
    SourceMap &m_map;
    const MessageSink &m_sink;
};

} // namespace tavidoc
