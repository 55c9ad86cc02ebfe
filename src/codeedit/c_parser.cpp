#include "codeedit/c_parser.h"

#include "codeedit/c_pass.h"

namespace tavidoc {

CodeEditCParser::CodeEditCParser() : CodeEditStandardParser(WordLists::c) {}

void CodeEditCParser::styleLine(const char16_t *line, char16_t *out, quint32 &state)
{
    state = CPass(line, out, keywords(), state).run();
}

} // namespace tavidoc
