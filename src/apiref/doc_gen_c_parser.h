#pragma once

#include "reading/source_line_reader.h"
#include "sourcebrowser/c_parser.h"

namespace tavidoc {

/// Runs the declaration parser over the header that a line reader delivers. What the parser
/// complains of is dropped without a word.
class DocGenSourceBrowserCParser : public SourceBrowserCParser
{
public:
    /// Borrows both.
    DocGenSourceBrowserCParser(SourceBrowserModel &model, SourceLineReader &reader);

    bool readLine(QString &line) override;

private:
    SourceLineReader &m_reader;
};

} // namespace tavidoc
