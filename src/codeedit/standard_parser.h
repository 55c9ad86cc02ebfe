#pragma once

#include "codeedit/parser.h"
#include "codeedit/word_table.h"

namespace tavidoc {

/// The base of the lexers of C-like languages, which differ in their keywords and in what their
/// passes over a line make of single characters.
class CodeEditStandardParser : public CodeEditParser
{
protected:
    /// \a keywords is borrowed and must outlive the lexer.
    explicit CodeEditStandardParser(const WordTable &keywords) : m_keywords(keywords) {}

    [[nodiscard]] const WordTable &keywords() const { return m_keywords; }

private:
    const WordTable &m_keywords;
};

} // namespace tavidoc
