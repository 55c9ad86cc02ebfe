#pragma once

#include "codeedit/standard_parser.h"

#include <vector>

namespace tavidoc {

/// The lexer of JavaScript. What is open at the end of a line beyond the state word, the lexer
/// keeps; a listing that begins with state 0 starts anew.
class CodeEditJavaScriptParser : public CodeEditStandardParser
{
public:
    CodeEditJavaScriptParser();
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;

    /// What an open bracket encloses.
    enum class Enclosed : quint8
    {
        Statements,         ///< a block, or the body of a class, a method or a declared function; the outermost level
        Object,             ///< an object, whose brace ends an operand
        FunctionExpression, ///< the body of a function that is an operand
        Substitution,       ///< an expression in a template
        Arguments,          ///< any parenthesis besides the two others, which come last
        Parameters,         ///< of a function that is an operand
        Condition,          ///< a parenthesis that a statement follows
    };

    struct Bracket
    {
        Enclosed enclosed;
        quint16 conditionals = 0; ///< how many "?" came without their ":" so far
    };

private:
    std::vector<Bracket> m_brackets; // open ones, innermost last, behind the outermost level
};

} // namespace tavidoc
