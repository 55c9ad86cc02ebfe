#include "codeedit/javascript_parser.h"

#include "codeedit/family_pass.h"
#include "codeedit/word_lists.h"

#include <algorithm>

namespace {

using std::u16string_view;

/// The words after which an expression begins, so that a slash begins a regular expression.
constexpr u16string_view s_beforeExpression[] = {
    u"return", u"typeof", u"instanceof", u"in", u"of",   u"new",   u"delete",
    u"void",   u"throw",  u"case",       u"do", u"else", u"yield", u"await",
};

/// The words whose parentheses are followed by a statement.
constexpr u16string_view s_beforeCondition[] = {u"if", u"while", u"for", u"with"};

template <std::size_t Count> bool isOneOf(u16string_view word, const u16string_view (&words)[Count])
{
    return std::ranges::find(words, word) != std::end(words);
}

class JavaScriptPass : public FamilyPass
{
public:
    JavaScriptPass(const char16_t *line, char16_t *out, const WordTable &keywords, quint32 state,
                   CodeEditJavaScriptParser::Nesting &nesting)
        : FamilyPass(line, out, keywords), m_nesting(nesting), m_operandBefore((state & s_operandBit) != 0),
          m_conditionBefore((state & s_conditionBit) != 0), m_first((state & s_startedBit) == 0)
    {
        m_mode = static_cast<Mode>(state & s_modeBits);
        m_comment = static_cast<Comment>(state >> s_commentShift & 3);
    }

    /// Styles the line; the result is the state after it, which is never 0.
    quint32 run()
    {
        if (m_first && m_at[0] == u'#' && m_at[1] == u'!')
            takeLineComment(LineJoining::None); // names the interpreter
        else if (m_mode == Mode::Template)
            takeTemplate();
        else
            resume();
        while (*m_at != 0)
            takeToken();
        return static_cast<quint32>(m_mode) | static_cast<quint32>(m_comment) << s_commentShift |
               (operandBefore() ? s_operandBit : 0) | (conditionBefore() ? s_conditionBit : 0) | s_startedBit;
    }

private:
    static constexpr quint32 s_operandBit = 1U << s_firstFreeBit;
    static constexpr quint32 s_conditionBit = s_operandBit << 1;
    static constexpr quint32 s_startedBit = s_operandBit << 2;

    void takeToken();
    void takeName();
    void takeNumber();
    void takeLiteral();
    void takeSlash();
    [[nodiscard]] const char16_t *regularExpressionEnd() const;
    void takeOperator();
    void takePunctuation();
    void takeClosingBrace();
    void takeTemplate();
    /// True when a slash here divides.
    [[nodiscard]] bool operandBefore() const
    {
        return m_word.empty() ? m_operandBefore : m_isMember || !isOneOf(m_word, s_beforeExpression);
    }
    /// True when a parenthesis here opens a condition, behind which a statement begins.
    [[nodiscard]] bool conditionBefore() const
    {
        return m_word.empty() ? m_conditionBefore : !m_isMember && isOneOf(m_word, s_beforeCondition);
    }
    /// Remembers that the last token was no word, and whether it ends an operand.
    void follow(bool operand)
    {
        m_word = {};
        m_operandBefore = operand;
        m_conditionBefore = false;
        m_afterDot = false;
    }

    CodeEditJavaScriptParser::Nesting &m_nesting;
    u16string_view m_word;   // the last token, if it is a word of this line
    bool m_isMember = false; // that word stands behind a dot: in "x.return / 2" it is a name
    bool m_operandBefore;    // of a last token that is no word
    bool m_conditionBefore;  // likewise
    bool m_afterDot = false;
    bool m_noRegularExpression = false; // an open one was found on this line
    bool m_first;
};

void JavaScriptPass::takeToken()
{
    const char16_t c = *m_at;
    if (Characters::is(c, Characters::Blank))
        takeBlanks();
    else if (Characters::is(c, Characters::WordStart) || (c == u'#' && Characters::is(m_at[1], Characters::WordStart)))
        takeName();
    else if (Characters::is(c, Characters::Punctuation))
        takePunctuation();
    else if (Characters::is(c, Characters::Digit) || (c == u'.' && Characters::is(m_at[1], Characters::Digit)))
        takeNumber();
    else if (c == u'"' || c == u'\'' || c == u'`')
        takeLiteral();
    else if (c == u'/')
        takeSlash();
    else if (Characters::is(c, Characters::Operator))
        takeOperator();
    else if (c == u'\\')
        takeBackslash();
    else
        takeStray();
}

void JavaScriptPass::takeName()
{
    const char16_t *const begin = m_at;
    // The first character may be the "#" of a private name.
    m_at = Characters::skip(m_at + 1, Characters::Word);
    writeName(begin);
    m_isMember = m_afterDot;
    m_word = word(begin);
    m_afterDot = false;
}

/// Takes a number with its separators and suffix. Only a decimal number has a point, and one: a
/// second one leads to a member.
void JavaScriptPass::takeNumber()
{
    const bool decimal = m_at[0] != u'0' || !Characters::is(m_at[1], Characters::WordStart);
    for (bool point = !decimal; *m_at != 0; ++m_at) {
        const bool exponent = decimal && (*m_at | 0x20) == u'e';
        if (exponent && (m_at[1] == u'+' || m_at[1] == u'-'))
            ++m_at;
        else if (*m_at == u'.' && !point)
            point = true;
        else if (!Characters::isWord(*m_at))
            break;
    }
    m_out.writeTo(m_at, CodeStyle::Literal);
    follow(true);
}

void JavaScriptPass::takeLiteral()
{
    const char16_t quote = *m_at;
    ++m_at;
    if (quote == u'`')
        return takeTemplate();
    takeQuoted(quote);
    follow(true);
}

void JavaScriptPass::takeSlash()
{
    if (atComment())
        return takeComment(LineJoining::None);
    if (operandBefore() || m_noRegularExpression)
        return takeOperator();
    const char16_t *const end = regularExpressionEnd();
    m_noRegularExpression = end == nullptr; // do not look through the rest of the line again
    if (end == nullptr)
        return takeOperator();
    m_at = end;
    m_out.writeTo(m_at, CodeStyle::Literal);
    follow(true);
}

/// The end of the regular expression, flags included, that begins here; null when the line has
/// no end of one.
const char16_t *JavaScriptPass::regularExpressionEnd() const
{
    bool inClass = false;
    const char16_t *at = m_at + 1;
    for (; *at != 0 && (inClass || *at != u'/'); ++at) {
        if (*at == u'\\' && at[1] != 0)
            ++at;
        else if (*at == u'[')
            inClass = true;
        else if (*at == u']')
            inClass = false;
    }
    return *at == 0 ? nullptr : Characters::skip(at + 1, Characters::Word);
}

void JavaScriptPass::takeOperator()
{
    const bool increment = (m_at[0] == u'+' || m_at[0] == u'-') && m_at[1] == m_at[0];
    const bool operand = increment && operandBefore(); // "i++ / 2" divides, "++ /x/" does not
    takeOperators();
    follow(operand);
    m_afterDot = m_at[-1] == u'.';
}

void JavaScriptPass::takePunctuation()
{
    const char16_t c = *m_at;
    if (c == u'}')
        return takeClosingBrace();
    ++m_at;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    bool operand = c == u']';
    if (c == u'(') {
        m_nesting.parentheses.push_back(conditionBefore());
    } else if (c == u')') {
        operand = m_nesting.parentheses.empty() || !m_nesting.parentheses.back();
        if (!m_nesting.parentheses.empty())
            m_nesting.parentheses.pop_back();
    } else if (c == u'{' && !m_nesting.templates.empty()) {
        ++m_nesting.templates.back();
    }
    follow(operand);
}

/// Takes a closing brace; that of a substitution leads back into its template.
void JavaScriptPass::takeClosingBrace()
{
    ++m_at;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    follow(true);
    if (m_nesting.templates.empty())
        return;
    if (m_nesting.templates.back() > 0) {
        --m_nesting.templates.back();
        return;
    }
    m_nesting.templates.pop_back();
    takeTemplate();
}

/// Takes the characters of a template up to its end, to a substitution or to the end of the line.
void JavaScriptPass::takeTemplate()
{
    m_mode = Mode::Template;
    while (*m_at != 0 && *m_at != u'`' && !(m_at[0] == u'$' && m_at[1] == u'{'))
        m_at += m_at[0] == u'\\' && m_at[1] != 0 ? 2 : 1;
    if (*m_at == 0)
        return m_out.writeTo(m_at, CodeStyle::Literal);
    m_mode = Mode::Code;
    follow(*m_at == u'`');
    if (*m_at == u'`')
        return m_out.writeTo(++m_at, CodeStyle::Literal);
    m_out.writeTo(m_at, CodeStyle::Literal);
    m_at += 2;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    m_nesting.templates.push_back(0);
}

} // namespace

CodeEditJavaScriptParser::CodeEditJavaScriptParser() : CodeEditStandardParser(sharedKeywords()) {}

const WordTable &CodeEditJavaScriptParser::sharedKeywords()
{
    static const WordTable keywords(WordLists::javaScript());
    return keywords;
}

void CodeEditJavaScriptParser::styleLine(const char16_t *line, char16_t *out, quint32 &state)
{
    if (state == 0)
        m_nesting = {};
    state = JavaScriptPass(line, out, keywords(), state, m_nesting).run();
}
