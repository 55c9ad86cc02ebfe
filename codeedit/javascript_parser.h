#pragma once

#include "codeedit/standard_parser.h"

#include <vector>

/// The lexer of JavaScript. What is open at the end of a line beyond the state word, templates in
/// templates and parentheses, the lexer keeps; a listing that begins with state 0 starts anew.
class CodeEditJavaScriptParser : public CodeEditStandardParser
{
public:
    CodeEditJavaScriptParser();
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;

    /// What is open in a listing, innermost last.
    struct Nesting
    {
        std::vector<quint32> templates; // for each open substitution of a template, its open braces
        std::vector<bool> parentheses;  // whether a statement follows the closing one
    };

private:
    static const WordTable &sharedKeywords();

    Nesting m_nesting;
};
