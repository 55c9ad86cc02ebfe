#include "codeedit/javascript_parser.h"

#include "codeedit/family_pass.h"
#include "codeedit/regular_expression_ends.h"
#include "codeedit/word_lists.h"

namespace tavidoc {

namespace {

using std::u16string_view;
using Enclosed = CodeEditJavaScriptParser::Enclosed;
using Bracket = CodeEditJavaScriptParser::Bracket;

/// What the last token determines: whether a slash divides, and what a brace encloses.
enum class Before : quint32
{
    Statement,
    Expression, ///< an operand must follow
    Operator,   ///< an operand has ended
    Member,     ///< after a dot, where every word is a name
    Body,       ///< after the parameters of a function that is an operand
    ArrowBody,  ///< after "=>": like Body, but a slash does not divide
};

/// What follows the keywords that are not operands.
struct LeadingWord
{
    u16string_view word;
    Before before;
    Enclosed parenthesis = Enclosed::Arguments; // what a parenthesis directly after it encloses
};

constexpr LeadingWord s_leadingWords[] = {
    {u"return", Before::Expression},
    {u"typeof", Before::Expression},
    {u"instanceof", Before::Expression},
    {u"in", Before::Expression},
    {u"new", Before::Expression},
    {u"delete", Before::Expression},
    {u"void", Before::Expression},
    {u"throw", Before::Expression},
    {u"case", Before::Expression},
    {u"default", Before::Expression},
    {u"extends", Before::Expression},
    {u"do", Before::Statement},
    {u"else", Before::Statement},
    {u"try", Before::Statement},
    {u"finally", Before::Statement},
    {u"export", Before::Statement},
    {u"if", Before::Operator, Enclosed::Condition},
    {u"while", Before::Operator, Enclosed::Condition},
    {u"for", Before::Operator, Enclosed::Condition},
    {u"with", Before::Operator, Enclosed::Condition},
};

constexpr auto s_leadingWordIndex = WordIndex<LeadingWord, &LeadingWord::word>::of<s_leadingWords>();

/// True for the names that are followed by an operand; they are not keywords.
bool leadsToExpression(u16string_view name)
{
    return name == u"of" || name == u"yield" || name == u"await";
}

/// True when there is a "?" in the operators \a text that is not part of "??" or "?.".
bool opensConditional(u16string_view text)
{
    const std::size_t mark = text.find(u'?');
    return mark != u16string_view::npos &&
           (mark + 1 == text.size() || (text[mark + 1] != u'?' && text[mark + 1] != u'.'));
}

bool isParenthesis(Bracket bracket)
{
    return bracket.enclosed >= Enclosed::Arguments;
}

class JavaScriptPass : public FamilyPass
{
public:
    JavaScriptPass(const char16_t *line, char16_t *out, const Words &keywords, quint32 state,
                   std::vector<Bracket> &brackets)
        : FamilyPass(line, out, keywords), m_brackets(brackets),
          m_before(static_cast<Before>(state >> s_beforeShift & 7)),
          m_parenthesis(static_cast<Enclosed>(state >> s_parenthesisShift & 7)), m_line(line),
          m_first((state & s_startedBit) == 0)
    {
        m_mode = static_cast<Mode>(state & s_modeBits);
        m_comment = static_cast<Comment>(state >> s_commentShift & 3);
        if (m_first)
            follow(Before::Statement);
    }

    /// Styles the line and returns the state after it, which is never 0.
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
               static_cast<quint32>(m_before) << s_beforeShift |
               static_cast<quint32>(m_parenthesis) << s_parenthesisShift | s_startedBit;
    }

private:
    static constexpr quint32 s_beforeShift = s_firstFreeBit;
    static constexpr quint32 s_parenthesisShift = s_beforeShift + 3;
    static constexpr quint32 s_startedBit = 1U << (s_parenthesisShift + 3);

    void takeToken();
    void takeName();
    void followKeyword(u16string_view name);
    void takeNumber();
    void takeLiteral();
    void takeSlash();
    [[nodiscard]] const char16_t *regularExpressionEnd();
    void takeOperator();
    void followOperator(u16string_view text);
    [[nodiscard]] Before afterColon();
    void takePunctuation();
    void followClosingParenthesis();
    [[nodiscard]] Enclosed enclosedByBrace() const;
    void takeClosingBrace();
    void takeTemplate();
    /// True when a slash here divides.
    [[nodiscard]] bool operandBefore() const { return m_before == Before::Operator || m_before == Before::Body; }
    void open(Enclosed enclosed) { m_brackets.push_back({enclosed}); }
    /// Sets what the last token, which is not a word, determines.
    void follow(Before before)
    {
        m_before = before;
        m_parenthesis = Enclosed::Arguments;
    }

    std::vector<Bracket> &m_brackets;
    Before m_before;
    Enclosed m_parenthesis; // what a parenthesis would enclose here
    const char16_t *const m_line;
    RegularExpressionEnds m_regularExpressionEnds;
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
    const bool keyword = writeName(begin);
    if (m_before == Before::Member)
        m_before = Before::Operator;
    else if (keyword)
        followKeyword(word(begin));
    else
        m_before = leadsToExpression(word(begin)) ? Before::Expression : Before::Operator;
}

void JavaScriptPass::followKeyword(u16string_view name)
{
    if (name == u"function") {
        const bool operand = m_before == Before::Expression || m_before == Before::ArrowBody;
        m_parenthesis = operand ? Enclosed::Parameters : Enclosed::Arguments;
        m_before = Before::Operator;
        return;
    }
    const LeadingWord *const row = s_leadingWordIndex.find(name);
    m_before = row != nullptr ? row->before : Before::Operator;
    m_parenthesis = row != nullptr ? row->parenthesis : Enclosed::Arguments;
}

/// Takes a number with its separators and suffix. Only a decimal number has a point, and only one:
/// after a second one comes a member.
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
    follow(Before::Operator);
}

void JavaScriptPass::takeLiteral()
{
    const char16_t quote = *m_at;
    ++m_at;
    if (quote == u'`')
        return takeTemplate();
    takeQuoted(quote);
    follow(Before::Operator);
}

void JavaScriptPass::takeSlash()
{
    if (atComment())
        return takeComment(LineJoining::None);
    const char16_t *const end = operandBefore() ? nullptr : regularExpressionEnd();
    if (end == nullptr)
        return takeOperator();
    m_at = end;
    m_out.writeTo(m_at, CodeStyle::Literal);
    follow(Before::Operator);
}

/// The end of the regular expression, flags included, that begins here; null when it does not end in
/// this line.
const char16_t *JavaScriptPass::regularExpressionEnd()
{
    if (!m_regularExpressionEnds.mayHave(static_cast<std::size_t>(m_at - m_line)))
        return nullptr;
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
    if (*at != 0)
        return Characters::skip(at + 1, Characters::Word);
    m_regularExpressionEnds.find({m_line, static_cast<std::size_t>(at - m_line)});
    return nullptr;
}

void JavaScriptPass::takeOperator()
{
    const char16_t *const begin = m_at;
    takeOperators();
    followOperator(word(begin));
}

void JavaScriptPass::followOperator(u16string_view text)
{
    const char16_t last = text.back();
    if (text == u"*") { // also between "function" and the parameters
        m_before = Before::Expression;
        return;
    }
    if ((text == u"++" || text == u"--") && operandBefore())
        return follow(Before::Operator); // "i++ / 2" divides, "++ /x/" does not
    Before before = Before::Expression;
    if (last == u'.' && !text.ends_with(u".."))
        before = Before::Member;
    else if (text.ends_with(u"=>"))
        before = Before::ArrowBody;
    else if (text.front() == u':')
        before = afterColon();
    else if (opensConditional(text))
        ++m_brackets.back().conditionals;
    follow(before);
}

/// What follows a colon: the other half of a conditional, a value, or the statement after a label.
Before JavaScriptPass::afterColon()
{
    Bracket &bracket = m_brackets.back();
    if (bracket.conditionals > 0) {
        --bracket.conditionals;
        return Before::Expression;
    }
    return bracket.enclosed == Enclosed::Object ? Before::Expression : Before::Statement;
}

void JavaScriptPass::takePunctuation()
{
    const char16_t c = *m_at;
    if (c == u'}')
        return takeClosingBrace();
    ++m_at;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    if (c == u')')
        return followClosingParenthesis();
    Before before = Before::Expression;
    if (c == u'(') {
        open(m_parenthesis);
    } else if (c == u'{') {
        const Enclosed enclosed = enclosedByBrace();
        open(enclosed);
        before = enclosed == Enclosed::Object ? Before::Expression : Before::Statement;
    } else if (c == u';') {
        m_brackets.back().conditionals = 0;
        before = Before::Statement;
    } else if (c == u']') {
        before = Before::Operator;
    }
    follow(before);
}

/// What a brace that opens here encloses.
Enclosed JavaScriptPass::enclosedByBrace() const
{
    if (m_before == Before::Expression || m_before == Before::Member)
        return Enclosed::Object;
    return m_before == Before::Body ? Enclosed::FunctionExpression : Enclosed::Statements;
}

void JavaScriptPass::followClosingParenthesis()
{
    const Bracket bracket = m_brackets.back();
    if (!isParenthesis(bracket))
        return follow(Before::Operator);
    m_brackets.pop_back();
    if (bracket.enclosed == Enclosed::Condition)
        follow(Before::Statement);
    else
        follow(bracket.enclosed == Enclosed::Parameters ? Before::Body : Before::Operator);
}

/// Takes a closing brace; after that of a substitution its template continues. Parentheses that
/// are still open were never closed.
void JavaScriptPass::takeClosingBrace()
{
    ++m_at;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    while (isParenthesis(m_brackets.back()))
        m_brackets.pop_back();
    const Enclosed enclosed = m_brackets.back().enclosed;
    if (m_brackets.size() > 1)
        m_brackets.pop_back();
    follow(enclosed == Enclosed::Statements ? Before::Statement : Before::Operator);
    if (enclosed == Enclosed::Substitution)
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
    follow(*m_at == u'`' ? Before::Operator : Before::Expression);
    if (*m_at == u'`')
        return m_out.writeTo(++m_at, CodeStyle::Literal);
    m_out.writeTo(m_at, CodeStyle::Literal);
    m_at += 2;
    m_out.writeTo(m_at, CodeStyle::Punctuation);
    open(Enclosed::Substitution);
}

} // namespace

CodeEditJavaScriptParser::CodeEditJavaScriptParser() : CodeEditStandardParser(WordLists::javaScript) {}

void CodeEditJavaScriptParser::styleLine(const char16_t *line, char16_t *out, quint32 &state)
{
    if (state == 0)
        m_brackets.assign(1, {Enclosed::Statements});
    state = JavaScriptPass(line, out, keywords(), state, m_brackets).run();
}

} // namespace tavidoc
