#include "codeedit/family_pass.h"

using Characters::skip;

void FamilyPass::takeBlanks()
{
    m_at = skip(m_at, Characters::Blank);
    m_out.writeTo(m_at, CodeStyle::Text);
}

void FamilyPass::takeComment()
{
    const bool block = m_at[1] == u'*';
    const char16_t third = m_at[2];
    // "/**/" is empty, and "/***" and "////" draw lines.
    const bool documents = block ? third == u'!' || (third == u'*' && m_at[3] != u'/' && m_at[3] != u'*')
                                 : third == u'!' || (third == u'/' && m_at[3] != u'/');
    m_comment = documents ? Comment::Documentation : Comment::Plain;
    if (block)
        takeBlockComment(m_at + 2);
    else
        takeLineComment(true);
}

/// Takes a block comment; its end is looked for from \a end on.
void FamilyPass::takeBlockComment(const char16_t *end)
{
    while (*end != 0 && !(end[0] == u'*' && end[1] == u'/'))
        ++end;
    const bool closed = *end != 0;
    m_comment = CommentWords::style(m_out, end, m_comment);
    m_at = closed ? end + 2 : end;
    m_out.writeTo(m_at, CodeStyle::Comment);
    m_mode = closed ? Mode::Code : Mode::BlockComment;
}

void FamilyPass::takeLineComment(bool joins)
{
    const char16_t *last = m_at; // behind the last character that is not blank
    for (; *m_at != 0; ++m_at) {
        if (!Characters::is(*m_at, Characters::Blank))
            last = m_at + 1;
    }
    const bool joined = joins && last != m_out.from() && last[-1] == u'\\';
    m_comment = CommentWords::style(m_out, m_at, m_comment);
    m_mode = joined ? Mode::LineComment : Mode::Code;
}

void FamilyPass::takeQuoted(char16_t quote)
{
    m_mode = Mode::Code;
    for (; *m_at != 0 && *m_at != quote; ++m_at) {
        if (*m_at != u'\\')
            continue;
        if (isLineEnd(m_at + 1)) {
            m_mode = quote == u'"' ? Mode::DoubleQuoted : Mode::SingleQuoted;
            m_at = skip(m_at + 1, Characters::Blank);
            break;
        }
        ++m_at;
    }
    if (*m_at == quote)
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Literal);
}

void FamilyPass::takeOperators()
{
    do {
        ++m_at;
    } while (Characters::is(*m_at, Characters::Operator) && !atComment() &&
             !(*m_at == u'.' && Characters::is(m_at[1], Characters::Digit)));
    m_out.writeTo(m_at, CodeStyle::Operator);
}

void FamilyPass::takeWord()
{
    const char16_t *const begin = m_at;
    m_at = skip(m_at, Characters::WordStart | Characters::Digit);
    writeName(begin);
}

/// Styles the name from \a begin on, at whose end the pass is.
void FamilyPass::writeName(const char16_t *begin)
{
    if (m_keywords.contains(word(begin)))
        return m_out.writeTo(m_at, CodeStyle::Keyword);
    const bool called = *skip(m_at, Characters::Blank) == u'(';
    m_out.writeTo(m_at, called ? CodeStyle::Function : CodeStyle::Text);
}

/// Takes a backslash outside of literals: it joins lines, or marks a part that was left out
/// ("\vdots", "\..."), which stays in one run.
void FamilyPass::takeBackslash()
{
    ++m_at;
    if (isLineEnd(m_at))
        return m_out.writeTo(m_at, CodeStyle::LineJoin);
    if (Characters::is(*m_at, Characters::WordStart))
        m_at = skip(m_at, Characters::WordStart | Characters::Digit);
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

bool FamilyPass::resume()
{
    switch (m_mode) {
    case Mode::BlockComment:
        takeBlockComment(m_at);
        return true;
    case Mode::LineComment:
        takeLineComment(true);
        return true;
    case Mode::DoubleQuoted:
        takeQuoted(u'"');
        return true;
    case Mode::SingleQuoted:
        takeQuoted(u'\'');
        return true;
    default:
        return false;
    }
}
