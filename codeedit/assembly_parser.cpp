#include "codeedit/assembly_parser.h"

#include "codeedit/characters.h"
#include "codeedit/comment_words.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"
#include "codeedit/word_table.h"

namespace {

constexpr quint32 s_inComment = 1; // the state while a block comment is open

const WordTable &registers()
{
    static const WordTable table(WordLists::registers());
    return table;
}

constexpr unsigned s_wordCharacters = Characters::Word | Characters::Dot;

/// One pass over a line.
class AssemblyPass
{
public:
    AssemblyPass(const char16_t *line, char16_t *out, bool inComment)
        : m_at(line), m_out(line, out), m_inComment(inComment)
    {
    }

    /// Styles the line; the result is whether a block comment goes on in the next.
    bool run()
    {
        if (m_inComment)
            takeBlockComment(m_at);
        while (*m_at != 0)
            takeToken();
        return m_inComment;
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
    void takeDirective();
    void takeBackslash();
    void takeOther();

    const char16_t *m_at;
    StyledLine m_out;
    CommentWords::Kind m_comment = CommentWords::Kind::Plain;
    bool m_inComment;
    bool m_statementStart = true; // a label, mnemonic or directive may come
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

/// True at a comment: ";" and "//" anywhere, "@" and "#" before a blank or the line's end.
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

/// Takes a block comment; its end is looked for from \a from on.
void AssemblyPass::takeBlockComment(const char16_t *from)
{
    m_at = CommentWords::style(m_out, from, CommentWords::Ending::Mark, m_comment);
    m_inComment = *m_at == 0;
    m_at = m_inComment ? m_at : m_at + 2;
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

/// The style of the word from \a begin on: a register, a directive, a mnemonic or another name.
CodeStyle AssemblyPass::styleOfWord(const char16_t *begin) const
{
    if (registers().contains({begin, static_cast<std::size_t>(m_at - begin)}))
        return CodeStyle::Register;
    if (!m_statementStart)
        return CodeStyle::Text;
    return *begin == u'.' ? CodeStyle::Control : CodeStyle::Keyword;
}

/// Takes a number with the mark of an immediate one, or a local label, which is a number before a colon.
void AssemblyPass::takeNumber()
{
    m_at = Characters::skip(m_at + 1, s_wordCharacters);
    if (m_statementStart && *m_at == u':')
        return m_out.writeTo(++m_at, CodeStyle::Function);
    m_out.writeTo(m_at, CodeStyle::Literal);
    m_statementStart = false;
}

/// Takes a string, or a character, which needs no closing quote. Both end with the line.
void AssemblyPass::takeQuoted()
{
    const char16_t quote = *m_at++;
    const bool isCharacter = quote == u'\'' && m_at[0] != 0 && !Characters::is(m_at[1], s_wordCharacters);
    if (isCharacter) {
        ++m_at;
    } else if (quote == u'\'' && m_at[0] == u'\\') {
        m_at = Characters::skip(m_at + 1, s_wordCharacters); // an escape, or the mark of a left-out part
    } else {
        while (*m_at != 0 && *m_at != quote)
            m_at += m_at[0] == u'\\' && m_at[1] != 0 ? 2 : 1;
    }
    if (*m_at == quote)
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Literal);
    m_statementStart = false;
}

/// Takes a directive of the C preprocessor, of which assembler sources make use.
void AssemblyPass::takeDirective()
{
    m_at = Characters::skip(m_at + 1, s_wordCharacters);
    m_out.writeTo(m_at, CodeStyle::Control);
    m_statementStart = false;
}

/// Takes a backslash with its word or stops: a macro's parameter, or a part that was left out.
void AssemblyPass::takeBackslash()
{
    m_at = Characters::skip(m_at + 1, s_wordCharacters);
    m_out.writeTo(m_at, CodeStyle::Text);
    m_statementStart = false;
}

/// Takes a character of no other token. Before a word "%" and "@" belong to it ("%rax", "@function").
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
    state = AssemblyPass(line, out, state == s_inComment).run() ? s_inComment : 0;
}
