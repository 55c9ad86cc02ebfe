#pragma once

#include "codeedit/characters.h"
#include "codeedit/comment_words.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"

#include <QtGlobal>

#include <string_view>

namespace tavidoc {

/// One pass of a lexer of the C family over a line: what these languages have in common.
/// Every take… function starts on the first character of what it takes, styles it and leaves
/// the pass behind it.
class FamilyPass
{
public:
    FamilyPass(const char16_t *line, char16_t *out, const Words &keywords)
        : m_at(line), m_out(line, out), m_keywords(keywords)
    {
    }

protected:
    /// What a line begins in.
    enum class Mode : quint32
    {
        Code,
        BlockComment,
        LineComment,    ///< joined to the line before by a backslash
        DoubleQuoted,   ///< likewise
        SingleQuoted,   ///< likewise
        RawString,      ///< C++
        Template,       ///< JavaScript
        JoinedSlash,    ///< C: the line before ended in a slash and a backslash
        JoinedAsterisk, ///< C: likewise in an asterisk, in a block comment
    };
    /// Whether a backslash at the end of a line comment makes the next line part of it.
    enum class LineJoining
    {
        None,
        ByBackslash,
    };

    static constexpr quint32 s_modeBits = 0xF;
    static constexpr quint32 s_commentShift = 4; // two bits: the kind of comment
    static constexpr quint32 s_firstFreeBit = 6; // the languages use the bits from here on

    using Comment = CommentWords::Kind;

    [[nodiscard]] char16_t peek(int ahead = 0) const { return m_at[ahead]; }
    [[nodiscard]] std::u16string_view word(const char16_t *begin) const
    {
        return {begin, static_cast<std::size_t>(m_at - begin)};
    }
    /// True when only white space follows \a at on the line.
    [[nodiscard]] static bool isLineEnd(const char16_t *at) { return *Characters::skip(at, Characters::Blank) == 0; }
    [[nodiscard]] bool atComment() const { return *m_at == u'/' && (m_at[1] == u'/' || m_at[1] == u'*'); }

    void takeBlanks();
    /// Takes a comment that begins here; the mode tells when it goes on in the next line.
    void takeComment(LineJoining joining);
    void takeBlockComment(const char16_t *from);
    /// Takes the rest of the line as a comment.
    void takeLineComment(LineJoining joining);
    /// Skips the inside of a literal up to its closing \a quote or the end of the line, and tells
    /// whether there is one; a backslash at the end of the line joins the next one to it.
    bool skipQuoted(char16_t quote);
    /// Takes the inside of a literal; the text in front belongs to it.
    void takeQuoted(char16_t quote)
    {
        skipQuoted(quote);
        m_out.writeTo(m_at, CodeStyle::Literal);
    }
    /// Takes a run of operators. A slash begins a run: it may begin something else.
    void takeOperators();
    /// Styles the name from \a begin on, at whose end the pass is: a keyword, a name that is called, or another
    /// name. The result is whether it is a keyword.
    bool writeName(const char16_t *begin);
    void takeBackslash();
    void takeStray();

    /// Goes on with a comment or literal that the line before left open.
    void resume();
    /// Forgets the code in the documentation of the lines before, unless this line goes on with it.
    void resumeDocumentation();

    const char16_t *m_at;
    StyledLine m_out;
    const Words &m_keywords;
    Mode m_mode = Mode::Code;
    Comment m_comment = Comment::Plain;
};

} // namespace tavidoc
