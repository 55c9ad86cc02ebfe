#include "codeedit/core_basic_parser.h"

#include "codeedit/characters.h"
#include "codeedit/comment_words.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"

#include <string_view>

namespace tavidoc {

namespace {

using std::u16string_view;

bool isSigil(char16_t c)
{
    return c == u'$' || c == u'%';
}

constexpr unsigned s_nameWithoutSigil = Characters::Letter | Characters::Digit;

/// One pass over a line.
class BasicPass
{
public:
    BasicPass(const char16_t *line, char16_t *out) : m_at(line), m_out(line, out) {}

    void run()
    {
        while (*m_at != 0)
            takeToken();
    }

private:
    void takeToken();
    void takeComment();
    void takeString();
    void takeNumber();
    [[nodiscard]] const char16_t *hexadecimalEnd() const;
    void takeWord();
    void takeConstant();
    void takeData();
    void takeBackslash();
    void takeNameTo(const char16_t *end);
    [[nodiscard]] bool isTableWord(const char16_t *end) const
    {
        return WordLists::basic.contains(u16string_view(m_at, end));
    }

    const char16_t *m_at;
    StyledLine m_out;
};

void BasicPass::takeToken()
{
    const char16_t c = *m_at;
    if (Characters::is(c, Characters::Letter)) {
        takeWord();
    } else if (Characters::is(c, Characters::Blank)) {
        m_at = Characters::skip(m_at, Characters::Blank);
        m_out.holdBlanksTo(m_at);
    } else if (c == u'\'') {
        takeComment();
    } else if (c == u'"') {
        takeString();
    } else if (Characters::is(c, Characters::Digit) || (c == u'.' && Characters::is(m_at[1], Characters::Digit))) {
        takeNumber();
    } else if (c == u'&' && hexadecimalEnd() != nullptr) {
        m_at = hexadecimalEnd();
        m_out.writeTo(m_at, CodeStyle::Literal);
    } else if (isSigil(c) && Characters::is(m_at[1], Characters::Upper)) {
        takeConstant();
    } else if (c == u'\\') {
        takeBackslash();
    } else {
        ++m_at; // operators and brackets have no colour
        m_out.writeTo(m_at, CodeStyle::Text);
    }
}

/// Takes the rest of the line as a remark.
void BasicPass::takeComment()
{
    CommentWords::Kind kind = CommentWords::Kind::Plain;
    m_at = CommentWords::style(m_out, m_at, CommentWords::Ending::None, kind);
}

/// Takes a string, which ends with the line at the latest. With a doubled quote it is two strings.
void BasicPass::takeString()
{
    do {
        ++m_at;
    } while (*m_at != 0 && *m_at != u'"');
    if (*m_at == u'"')
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Literal);
}

/// Takes a number. A word may follow without a space ("10PRINT", "1TO9").
void BasicPass::takeNumber()
{
    m_at = Characters::skip(m_at, Characters::Digit);
    if (*m_at == u'.')
        m_at = Characters::skip(m_at + 1, Characters::Digit);
    if (*m_at == u'E' || *m_at == u'e') {
        const char16_t *const exponent = m_at[1] == u'+' || m_at[1] == u'-' ? m_at + 2 : m_at + 1;
        if (Characters::is(*exponent, Characters::Digit))
            m_at = Characters::skip(exponent, Characters::Digit);
    }
    m_out.writeTo(m_at, CodeStyle::Literal);
}

/// The end of the hexadecimal number ("&H1F") that begins here; null when there is none.
const char16_t *BasicPass::hexadecimalEnd() const
{
    if (m_at[1] != u'H' && m_at[1] != u'h')
        return nullptr;
    const char16_t *end = m_at + 2;
    while (Characters::is(*end, Characters::Digit) || ((*end | 0x20) >= u'a' && (*end | 0x20) <= u'f'))
        ++end;
    return end == m_at + 2 || Characters::is(*end, s_nameWithoutSigil) ? nullptr : end;
}

/// Takes a word: the longest entry of the table, with its sigil or without, or a name.
void BasicPass::takeWord()
{
    const char16_t *const end = Characters::skip(m_at, s_nameWithoutSigil);
    const bool withSigil = isSigil(*end) && isTableWord(end + 1);
    if (!withSigil && !isTableWord(end))
        return takeNameTo(isSigil(*end) ? end + 1 : end);
    const u16string_view word(m_at, end);
    m_at = withSigil ? end + 1 : end;
    m_out.writeTo(m_at, CodeStyle::Keyword);
    if (word == u"REM")
        takeComment();
    else if (word == u"DATA")
        takeData();
}

/// Takes a name. Names of functions and procedures have a prefix; a parenthesis after a name is
/// no evidence of a call, since array elements have one too.
void BasicPass::takeNameTo(const char16_t *end)
{
    const u16string_view name(m_at, end);
    m_at = end;
    m_out.writeTo(m_at, name.starts_with(u"FN") || name.starts_with(u"PROC") ? CodeStyle::Function : CodeStyle::Text);
}

/// Takes a constant, which begins with its sigil.
void BasicPass::takeConstant()
{
    const char16_t *const end = Characters::skip(m_at + 1, s_nameWithoutSigil);
    if (isTableWord(end)) {
        m_at = end;
        return m_out.writeTo(m_at, CodeStyle::Keyword);
    }
    ++m_at; // an operator of some dialects
    m_out.writeTo(m_at, CodeStyle::Text);
}

/// Takes the items of a DATA statement: they are literals even without quotes.
void BasicPass::takeData()
{
    while (*m_at != 0 && *m_at != u':') {
        const char16_t *end = m_at;
        while (*end != 0 && *end != u',' && *end != u':' && *end != u'"')
            ++end;
        m_at = end;
        m_out.writeTo(m_at, CodeStyle::Literal);
        if (*m_at == u'"') {
            takeString();
        } else if (*m_at == u',') {
            ++m_at;
            m_out.writeTo(m_at, CodeStyle::Text);
        }
    }
}

/// Takes a backslash with the word or the dots after it.
void BasicPass::takeBackslash()
{
    m_at = Characters::skip(m_at + 1, s_nameWithoutSigil | Characters::Dot);
    m_out.writeTo(m_at, CodeStyle::Text);
}

} // namespace

void CodeEditCoreBASICParser::styleLine(const char16_t *line, char16_t *out, quint32 &)
{
    BasicPass(line, out).run();
}

} // namespace tavidoc
