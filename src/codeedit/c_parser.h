#pragma once

#include "codeedit/standard_parser.h"

namespace tavidoc {

/// The lexer of C and C++.
class CodeEditCParser : public CodeEditStandardParser
{
public:
    CodeEditCParser();
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;
};

} // namespace tavidoc
