#include "apiref/doc_gen_c_parser.h"

namespace tavidoc {

DocGenSourceBrowserCParser::DocGenSourceBrowserCParser(SourceBrowserModel &model, SourceLineReader &reader)
    : SourceBrowserCParser(&model), m_reader(reader)
{
}

bool DocGenSourceBrowserCParser::readLine(QString &line)
{
    return m_reader.readLine(line);
}

} // namespace tavidoc
