#include "codeedit/family_pass.h"

namespace tavidoc {

using Characters::skip;

void FamilyPass::takeBlanks()
{
    m_at = skip(m_at, Characters::Blank);
    m_out.holdBlanksTo(m_at);
}

void FamilyPass::takeComment(LineJoining joining)
{
    const bool block = m_at[1] == u'*';
    const char16_t third = m_at[2];
    // "/**/" is empty, and "/***" and "////" draw lines.
    const bool documents = block ? third == u'!' || (third == u'*' && m_at[3] != u'/' && m_at[3] != u'*')
                                 : third == u'!' || (third == u'/' && m_at[3] != u'/');
    const bool goesOn = documents && !block && m_comment == Comment::DocumentationCode;
    if (!goesOn)
        m_comment = documents ? Comment::Documentation : Comment::Plain;
    if (block)
        return takeBlockComment(m_at + 2);
    if (goesOn) {
        m_at += 3;
        m_out.writeTo(m_at, CodeStyle::Comment);
    }
    takeLineComment(joining);
}

/// Takes a block comment; the search for its end begins at \a from.
void FamilyPass::takeBlockComment(const char16_t *from)
{
    m_at = CommentWords::style(m_out, from, CommentWords::Ending::Mark, m_comment);
    m_mode = *m_at == 0 ? Mode::BlockComment : Mode::Code;
    if (*m_at != 0) {
        m_at += 2;
        m_comment = Comment::Plain;
        m_out.writeTo(m_at, CodeStyle::Comment);
    }
}

void FamilyPass::takeLineComment(LineJoining joining)
{
    const char16_t *const begin = m_at;
    m_at = CommentWords::style(m_out, m_at, CommentWords::Ending::None, m_comment);
    const char16_t *last = m_at;
    while (last != begin && Characters::is(last[-1], Characters::Blank))
        --last;
    const bool joined = joining == LineJoining::ByBackslash && last != begin && last[-1] == u'\\';
    m_mode = joined ? Mode::LineComment : Mode::Code;
}

bool FamilyPass::skipQuoted(char16_t quote)
{
    m_mode = Mode::Code;
    for (; *m_at != 0 && *m_at != quote; ++m_at) {
        if (*m_at != u'\\')
            continue;
        if (isLineEnd(m_at + 1)) {
            m_mode = quote == u'"' ? Mode::DoubleQuoted : Mode::SingleQuoted;
            m_at = skip(m_at + 1, Characters::Blank);
            return false;
        }
        ++m_at;
    }
    if (*m_at == 0)
        return false;
    ++m_at;
    return true;
}

void FamilyPass::takeOperators()
{
    do {
        ++m_at;
    } while (Characters::is(*m_at, Characters::Operator) && *m_at != u'/' &&
             !(*m_at == u'.' && Characters::is(m_at[1], Characters::Digit)));
    m_out.writeTo(m_at, CodeStyle::Operator);
}

bool FamilyPass::writeName(const char16_t *begin)
{
    if (m_keywords.contains(word(begin))) {
        m_out.writeTo(m_at, CodeStyle::Keyword);
        return true;
    }
    const bool called = *skip(m_at, Characters::Blank) == u'(';
    m_out.writeTo(m_at, called ? CodeStyle::Function : CodeStyle::Text);
    return false;
}

/// Takes a backslash outside of literals: it joins lines, or is text with the word or the three dots
/// after it.
void FamilyPass::takeBackslash()
{
    ++m_at;
    if (isLineEnd(m_at))
        return m_out.writeTo(m_at, CodeStyle::LineJoin);
    if (Characters::is(*m_at, Characters::WordStart))
        m_at = skip(m_at, Characters::Word);
    else if (m_at[0] == u'.' && m_at[1] == u'.' && m_at[2] == u'.')
        m_at += 3;
    else
        return m_out.writeTo(m_at, CodeStyle::Stray);
    m_out.writeTo(m_at, CodeStyle::Text);
}

void FamilyPass::takeStray()
{
    ++m_at;
    m_out.writeTo(m_at, CodeStyle::Stray);
}

void FamilyPass::resume()
{
    switch (m_mode) {
    case Mode::BlockComment:
        return takeBlockComment(m_at);
    case Mode::LineComment:
        return takeLineComment(LineJoining::ByBackslash);
    case Mode::DoubleQuoted:
        return takeQuoted(u'"');
    case Mode::SingleQuoted:
        return takeQuoted(u'\'');
    default:
        resumeDocumentation();
    }
}

void FamilyPass::resumeDocumentation()
{
    if (m_comment == Comment::Plain)
        return;
    const char16_t *const begin = skip(m_at, Characters::Blank);
    if (begin[0] != u'/' || begin[1] != u'/')
        m_comment = Comment::Plain;
}

} // namespace tavidoc
