#pragma once

#include "codeedit/characters.h"
#include "codeedit/comment_words.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"

#include <QtGlobal>

#include <string_view>

namespace tavidoc {

/// One pass of a lexer of the C family over a line: the parts that these languages share.
/// Every take… function starts on the first character of what it takes, styles it and leaves
/// the pass after its last character.
class FamilyPass
{
public:
    FamilyPass(const char16_t *line, char16_t *out, const Words &keywords)
        : m_at(line), m_out(line, out), m_keywords(keywords)
    {
    }

protected:
    /// What a line begins inside of.
    enum class Mode : quint32
    {
        Code,
        BlockComment,
        LineComment,    ///< joined to the previous line by a backslash
        DoubleQuoted,   ///< joined to the previous line by a backslash
        SingleQuoted,   ///< joined to the previous line by a backslash
        RawString,      ///< C++
        Template,       ///< JavaScript
        JoinedSlash,    ///< C: the previous line ended in a slash and a backslash
        JoinedAsterisk, ///< C: in a block comment, the previous line ended in an asterisk and a backslash
    };
    /// Whether a backslash at the end of a line comment continues it in the next line.
    enum class LineJoining
    {
        None,
        ByBackslash,
    };

    static constexpr quint32 s_modeBits = 0xF;
    static constexpr quint32 s_commentShift = 4; // two bits: the kind of comment
    static constexpr quint32 s_firstFreeBit = 6; // the languages use the bits from here on

    using Comment = CommentWords::Kind;

    [[nodiscard]] std::u16string_view word(const char16_t *begin) const { return {begin, m_at}; }
    /// True when only white space follows \a at on the line.
    [[nodiscard]] static bool isLineEnd(const char16_t *at) { return *Characters::skip(at, Characters::Blank) == 0; }
    [[nodiscard]] bool atComment() const { return *m_at == u'/' && (m_at[1] == u'/' || m_at[1] == u'*'); }

    void takeBlanks();
    /// Takes a comment that begins here; afterwards the mode says whether it continues in the next line.
    void takeComment(LineJoining joining);
    void takeBlockComment(const char16_t *from);
    /// Takes the rest of the line as a comment.
    void takeLineComment(LineJoining joining);
    /// Skips the text of a literal through its closing \a quote, or up to the end of the line if there is
    /// none, and returns whether there is one. A backslash at the end of the line joins the next line to it.
    bool skipQuoted(char16_t quote);
    /// Takes the rest of a literal, with the text before it that is not styled yet.
    void takeQuoted(char16_t quote)
    {
        skipQuoted(quote);
        m_out.writeTo(m_at, CodeStyle::Literal);
    }
    /// Takes a run of operators. A slash can only be the first, since a later one may begin a comment.
    void takeOperators();
    /// Styles the name from \a begin up to here: a keyword, a name that is called, or another name. Returns whether
    /// it is a keyword.
    bool writeName(const char16_t *begin);
    void takeBackslash();
    void takeStray();

    /// Continues a comment or literal that the previous line left open.
    void resume();
    /// Ends code in the documentation of the previous lines, unless this line continues the documentation.
    void resumeDocumentation();

    const char16_t *m_at;
    StyledLine m_out;
    const Words &m_keywords;
    Mode m_mode = Mode::Code;
    Comment m_comment = Comment::Plain;
};

} // namespace tavidoc
