#pragma once

#include "codeedit/parser.h"

namespace tavidoc {

/// The lexer of BASIC. Nothing carries over from line to line.
class CodeEditCoreBASICParser : public CodeEditParser
{
public:
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;
};

} // namespace tavidoc
