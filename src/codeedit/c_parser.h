#pragma once

#include "codeedit/standard_parser.h"

namespace tavidoc {

/// The lexer of C and C++.
class CodeEditCParser : public CodeEditStandardParser
{
public:
    CodeEditCParser();
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;

private:
    /// The words are the same for all lexers of this class: filled by the first.
    static const WordTable &sharedKeywords();
};

} // namespace tavidoc
