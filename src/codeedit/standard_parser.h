#pragma once

#include "codeedit/parser.h"
#include "codeedit/word_lists.h"

namespace tavidoc {

/// The base of the lexers of C-like languages, which differ in their keywords and in how they
/// treat single characters.
class CodeEditStandardParser : public CodeEditParser
{
protected:
    /// \a keywords is borrowed and must outlive the lexer.
    explicit CodeEditStandardParser(const Words &keywords) : m_keywords(keywords) {}

    [[nodiscard]] const Words &keywords() const { return m_keywords; }

private:
    const Words &m_keywords;
};

} // namespace tavidoc
