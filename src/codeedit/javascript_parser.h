#pragma once

#include "codeedit/standard_parser.h"

#include <vector>

namespace tavidoc {

/// The lexer of JavaScript. Open brackets do not fit into the state word, so the lexer keeps them
/// itself; at state 0 it forgets them.
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
        Arguments,          ///< any parenthesis but the two that follow
        Parameters,         ///< the parameters of a function that is an operand
        Condition,          ///< a parenthesis that a statement follows
    };

    struct Bracket
    {
        Enclosed enclosed;
        quint16 conditionals = 0; ///< the number of "?" that still lack their ":"
    };

private:
    std::vector<Bracket> m_brackets; // the open ones, innermost last; the first is the outermost level
};

} // namespace tavidoc
