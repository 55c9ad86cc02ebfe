#pragma once

#include "codeedit/parser.h"

namespace tavidoc {

/// The lexer of assembler in the GNU and Arm styles. Words of its table are registers.
class CodeEditAssemblyParser : public CodeEditParser
{
public:
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;
};

} // namespace tavidoc
