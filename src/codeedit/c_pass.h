#pragma once

#include "codeedit/family_pass.h"

namespace tavidoc {

/// One pass of the lexer of C and C++ over a line. Tokens are in c_pass.cpp, directives and joined lines in
/// c_pass_directives.cpp.
class CPass : public FamilyPass
{
public:
    CPass(const char16_t *line, char16_t *out, const Words &keywords, quint32 state)
        : FamilyPass(line, out, keywords), m_line(line), m_part(static_cast<Part>(state >> s_partShift & 7)),
          m_delimiter(state >> s_delimiterShift)
    {
        m_mode = static_cast<Mode>(state & s_modeBits);
        m_comment = static_cast<Comment>(state >> s_commentShift & 3);
    }

    /// Styles the line and returns the state after it.
    quint32 run()
    {
        resumeLine();
        while (*m_at != 0 && m_part < Part::Code)
            takeExpected();
        while (*m_at != 0)
            takeToken();
        if (m_mode == Mode::BlockComment)
            noteJoinedAsterisk();
        const Part part = m_joined || m_mode != Mode::Code ? m_part : Part::LineStart;
        return static_cast<quint32>(m_mode) | static_cast<quint32>(m_comment) << s_commentShift |
               static_cast<quint32>(part) << s_partShift |
               (m_mode == Mode::RawString ? m_delimiter << s_delimiterShift : 0);
    }

private:
    /// The position in a line, to which backslashes and comments may join further lines.
    enum class Part : quint32
    {
        LineStart,     ///< nothing but blanks and comments so far: a directive may come
        DirectiveName, ///< after the "#" that begins a directive
        HeaderName,    ///< after the name of a directive that includes a file
        Code,
        Directive, ///< the rest of a directive
        Message,   ///< the rest of a directive that shows a message
        Prose,     ///< the rest of a message after an apostrophe: it is not made of tokens
    };

    static constexpr quint32 s_partShift = s_firstFreeBit;
    static constexpr quint32 s_delimiterShift = s_firstFreeBit + 3;
    static constexpr quint32 s_delimiterBits = 32 - s_delimiterShift;

    void resumeLine();
    void resumeSlash();
    void resumeAsterisk();
    void noteJoinedAsterisk();
    void takeExpected();
    void takeToken();
    void takeDirectiveStart();
    void takeDirectiveName();
    void takeHeaderName();
    void takeHeaderTest(std::u16string_view name);
    void takeProse();
    void takeJoin();
    void takeSlash();
    void takeNumber();
    void takeWordOrLiteral();
    void takeLiteral();
    void takeSuffix();
    void takeRawString();
    void takeRawStringRest();
    [[nodiscard]] bool atJoin() const { return *m_at == u'\\' && isLineEnd(m_at + 1); }
    [[nodiscard]] const char16_t *lastBackslash() const;

    const char16_t *const m_line;
    Part m_part;
    bool m_joined = false; // the next line belongs to this one
    quint32 m_delimiter;
};

} // namespace tavidoc
