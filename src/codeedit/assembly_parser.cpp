#include "codeedit/assembly_parser.h"

#include "codeedit/characters.h"
#include "codeedit/comment_words.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"

#include <algorithm>

namespace tavidoc {

namespace {

/// What a line begins inside of.
enum class Open : quint32
{
    Nothing,
    Comment,
    String,
};

constexpr unsigned s_wordCharacters = Characters::Word | Characters::Dot;

/// One pass over a line.
class AssemblyPass
{
public:
    AssemblyPass(const char16_t *line, char16_t *out, Open open)
        : m_at(line), m_out(line, out), m_open(open), m_statementStart(open != Open::String)
    {
    }

    /// Styles the line and returns what the next one begins inside of.
    Open run()
    {
        if (m_open == Open::Comment)
            takeBlockComment(m_at);
        else if (m_open == Open::String)
            takeString(u'"');
        while (*m_at != 0)
            takeToken();
        return m_open;
    }

private:
    void takeToken();
    [[nodiscard]] bool atLineComment() const;
    void takeLineComment();
    void takeBlockComment(const char16_t *from);
    void takeWord();
    [[nodiscard]] CodeStyle styleOfWord(const char16_t *begin) const;
    void takeNumber();
    void takeQuoted();
    void takeString(char16_t quote);
    void takeDirective();
    void takeBackslash();
    void takeOther();

    const char16_t *m_at;
    StyledLine m_out;
    CommentWords::Kind m_comment = CommentWords::Kind::Plain;
    Open m_open;
    bool m_statementStart; // a label, mnemonic or directive may come
};

void AssemblyPass::takeToken()
{
    const char16_t c = *m_at;
    if (Characters::is(c, Characters::Letter | Characters::Dot)) {
        takeWord();
    } else if (Characters::is(c, Characters::Blank)) {
        m_at = Characters::skip(m_at, Characters::Blank);
        m_out.holdBlanksTo(m_at);
    } else if (c == u'/' && m_at[1] == u'*') {
        takeBlockComment(m_at + 2);
    } else if (atLineComment()) {
        takeLineComment();
    } else if (c == u'#' && m_statementStart) {
        takeDirective();
    } else if (Characters::is(c, Characters::Digit) ||
               ((c == u'#' || c == u'$') && Characters::is(m_at[1], Characters::Digit))) {
        takeNumber();
    } else if (c == u'"' || c == u'\'') {
        takeQuoted();
    } else if (c == u'\\') {
        takeBackslash();
    } else {
        takeOther();
    }
}

/// True at a comment: ";" and "//" anywhere, "@" and "#" before white space or the end of the line.
bool AssemblyPass::atLineComment() const
{
    const char16_t c = m_at[0];
    if (c == u';' || (c == u'/' && m_at[1] == u'/'))
        return true;
    return (c == u'@' || c == u'#') && (m_at[1] == 0 || Characters::is(m_at[1], Characters::Blank));
}

void AssemblyPass::takeLineComment()
{
    m_at = CommentWords::style(m_out, m_at, CommentWords::Ending::None, m_comment);
}

/// Takes a block comment; the search for its end begins at \a from.
void AssemblyPass::takeBlockComment(const char16_t *from)
{
    m_at = CommentWords::style(m_out, from, CommentWords::Ending::Mark, m_comment);
    m_open = *m_at == 0 ? Open::Comment : Open::Nothing;
    m_at = *m_at == 0 ? m_at : m_at + 2;
    m_out.writeTo(m_at, CodeStyle::Comment);
}

void AssemblyPass::takeWord()
{
    const char16_t *const begin = m_at;
    m_at = Characters::skip(m_at, s_wordCharacters);
    const CodeStyle style = styleOfWord(begin);
    if (m_statementStart && *m_at == u':' && style != CodeStyle::Register)
        return m_out.writeTo(++m_at, CodeStyle::Function);
    m_out.writeTo(m_at, style);
    m_statementStart = false;
}

/// The style of the word from \a begin up to here: a register, a directive, a mnemonic or another name.
CodeStyle AssemblyPass::styleOfWord(const char16_t *begin) const
{
    if (WordLists::registers.contains(std::u16string_view(begin, m_at)))
        return CodeStyle::Register;
    if (!m_statementStart)
        return CodeStyle::Text;
    return *begin == u'.' ? CodeStyle::Control : CodeStyle::Keyword;
}

/// Takes a number with the mark of an immediate operand, or a local label, which is a number before a colon.
void AssemblyPass::takeNumber()
{
    const char16_t *const digits = Characters::is(*m_at, Characters::Digit) ? m_at : m_at + 1;
    m_at = Characters::skip(digits, s_wordCharacters);
    const bool exponent = (m_at[-1] | 0x20) == u'e' && (digits[1] | 0x20) != u'x' && (*m_at == u'+' || *m_at == u'-');
    if (exponent && Characters::is(m_at[1], Characters::Digit))
        m_at = Characters::skip(m_at + 1, s_wordCharacters);
    if (m_statementStart && *m_at == u':')
        return m_out.writeTo(++m_at, CodeStyle::Function);
    m_out.writeTo(m_at, CodeStyle::Literal);
    m_statementStart = false;
}

/// Takes a string, which ends with the line unless a backslash joins the next line, or a character, whose closing
/// quote is optional.
void AssemblyPass::takeQuoted()
{
    const char16_t quote = *m_at++;
    const bool isCharacter = quote == u'\'' && m_at[0] != 0 && !Characters::is(m_at[1], s_wordCharacters);
    m_statementStart = false;
    if (quote == u'\'' && m_at[0] == u'\\' && m_at[1] != 0) {
        // An escape: a backslash with the word after it, or with one other character.
        m_at = std::max(m_at + 2, Characters::skip(m_at + 1, s_wordCharacters));
    } else if (isCharacter) {
        ++m_at;
    } else {
        return takeString(quote);
    }
    if (*m_at == quote)
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Literal);
}

/// Takes the rest of a string through its closing \a quote.
void AssemblyPass::takeString(char16_t quote)
{
    m_open = Open::Nothing;
    for (; *m_at != 0 && *m_at != quote; ++m_at) {
        if (*m_at != u'\\')
            continue;
        if (m_at[1] != 0)
            ++m_at;
        else if (quote == u'"')
            m_open = Open::String;
    }
    if (*m_at == quote)
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Literal);
}

/// Takes a directive of the C preprocessor, which assembler sources may use.
void AssemblyPass::takeDirective()
{
    m_at = Characters::skip(m_at + 1, s_wordCharacters);
    m_out.writeTo(m_at, CodeStyle::Control);
    m_statementStart = false;
}

/// Takes a backslash with the word, the dots or the at sign after it, such as a parameter or the counter of a macro.
void AssemblyPass::takeBackslash()
{
    ++m_at;
    m_at = *m_at == u'@' ? m_at + 1 : Characters::skip(m_at, s_wordCharacters);
    m_out.writeTo(m_at, CodeStyle::Text);
    m_statementStart = false;
}

/// Takes any other character. Before a word, "%" and "@" are text like the word ("%rax", "@function").
void AssemblyPass::takeOther()
{
    const char16_t c = *m_at++;
    const bool isMark = (c == u'%' || c == u'@') && Characters::is(*m_at, Characters::Letter);
    const bool isOperator = Characters::is(c, Characters::Operator) || c == u'#' || c == u'@';
    m_out.writeTo(m_at, isOperator && !isMark ? CodeStyle::Operator : CodeStyle::Text);
    m_statementStart = false;
}

} // namespace

void CodeEditAssemblyParser::styleLine(const char16_t *line, char16_t *out, quint32 &state)
{
    state = static_cast<quint32>(AssemblyPass(line, out, static_cast<Open>(state)).run());
}

} // namespace tavidoc
