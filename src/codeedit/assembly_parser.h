#pragma once

#include "codeedit/parser.h"

namespace tavidoc {

/// The lexer of assembler in the GNU and Arm styles. The words of its table are registers.
class CodeEditAssemblyParser : public CodeEditParser
{
public:
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;
};

} // namespace tavidoc
