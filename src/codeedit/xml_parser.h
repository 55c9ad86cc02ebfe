#pragma once

#include "codeedit/parser.h"

namespace tavidoc {

/// The lexer of XML. Deliberate: the mode is kept in the lexer, not in the state word, so it carries
/// over from line to line and from one listing to the next. The state word counts the nesting of
/// elements.
class CodeEditXMLParser : public CodeEditParser
{
public:
    void styleLine(const char16_t *line, char16_t *out, quint32 &state) override;

    /// What the text is inside of. The first four values are fixed.
    enum class Mode
    {
        Text = 0,
        Comment = 1,
        EndTag = 2,
        Tag = 4,
        DoubleQuoted,  ///< the value of an attribute
        SingleQuoted,  ///< the value of an attribute
        CharacterData, ///< "<![CDATA["
        Instruction,   ///< "<?"
        Declaration,   ///< "<!"
        DoubleQuotedInDeclaration,
        SingleQuotedInDeclaration,
        Subset,            ///< the brackets of a DOCTYPE
        SubsetDeclaration, ///< a declaration in them
        DoubleQuotedInSubset,
        SingleQuotedInSubset,
        SubsetComment,     ///< a comment in them
        SubsetInstruction, ///< "<?" in them
    };

private:
    Mode m_mode = Mode::Text;
};

} // namespace tavidoc
