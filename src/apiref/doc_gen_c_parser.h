#pragma once

#include "reading/source_line_reader.h"
#include "sourcebrowser/c_parser.h"

namespace tavidoc {

/// Parses the declarations of the header that a line reader delivers. The messages of the parser
/// are discarded.
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
