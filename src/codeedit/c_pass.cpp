#include "codeedit/c_pass.h"

namespace tavidoc {

namespace {

using std::u16string_view;

constexpr int s_longestDelimiter = 16; // of a raw string, in characters

/// A prefix before a quotation mark.
struct LiteralPrefix
{
    u16string_view text;
    bool raw;
};

constexpr LiteralPrefix s_prefixes[] = {
    {u"L", false}, {u"u", false}, {u"U", false}, {u"u8", false}, {u"R", true},
    {u"LR", true}, {u"uR", true}, {u"UR", true}, {u"u8R", true},
};

constexpr auto s_prefixIndex = WordIndex<LiteralPrefix, &LiteralPrefix::text>::of<s_prefixes>();

bool isDelimiterCharacter(char16_t c)
{
    return c != 0 && c != u'(' && c != u')' && c != u'\\' && c != u'"' && !Characters::is(c, Characters::Blank);
}

/// The delimiter of a raw string as the state word keeps it: its length and a hash of its
/// characters.
class Delimiter
{
public:
    static constexpr quint32 s_bits = 23;

    /// The characters from \a at up to \a end as a delimiter.
    static quint32 of(const char16_t *at, const char16_t *end)
    {
        const auto length = static_cast<quint32>(end - at);
        quint32 hash = 17;
        for (; at != end; ++at)
            hash = hash * 131 + *at;
        return (hash ^ hash >> 16) % (1U << 18) | length << 18;
    }

    /// The end of the delimiter that begins at \a at.
    static const char16_t *end(const char16_t *at)
    {
        const char16_t *const last = at + s_longestDelimiter;
        while (at != last && isDelimiterCharacter(*at))
            ++at;
        return at;
    }
};

} // namespace

void CPass::takeToken()
{
    const char16_t c = *m_at;
    if (Characters::is(c, Characters::Blank))
        takeBlanks();
    else if (Characters::is(c, Characters::WordStart))
        takeWordOrLiteral();
    else if (Characters::is(c, Characters::Digit) || (c == u'.' && Characters::is(m_at[1], Characters::Digit)))
        takeNumber();
    else if (c == u'/')
        takeSlash();
    else if (c == u'"' || c == u'\'')
        takeLiteral();
    else if (Characters::is(c, Characters::Operator) || (c == u'#' && m_part != Part::Code))
        takeOperators();
    else if (Characters::is(c, Characters::Punctuation))
        m_out.writeTo(++m_at, CodeStyle::Punctuation);
    else if (c == u'\\')
        takeJoin();
    else
        takeStray();
}

/// Takes a backslash, which joins the next line to this one when it ends the line.
void CPass::takeJoin()
{
    m_joined = atJoin();
    takeBackslash();
}

/// Takes a comment or an operator.
void CPass::takeSlash()
{
    if (atComment())
        return takeComment(LineJoining::ByBackslash);
    takeOperators();
    if (m_at[-1] == u'/' && atJoin())
        m_mode = Mode::JoinedSlash;
}

void CPass::takeNumber()
{
    for (;; ++m_at) {
        const char16_t c = *m_at;
        const char16_t next = c == 0 ? u'\0' : m_at[1];
        if (c == u'\'' && Characters::isWord(next))
            continue; // a digit separator
        if (c != u'.' && !Characters::isWord(c))
            break;
        const bool exponent = c == u'e' || c == u'E' || c == u'p' || c == u'P';
        if (exponent && (next == u'+' || next == u'-'))
            ++m_at;
    }
    m_out.writeTo(m_at, CodeStyle::Literal);
}

void CPass::takeWordOrLiteral()
{
    const char16_t *const begin = m_at;
    m_at = Characters::skip(m_at, Characters::Word);
    if (*m_at == u'"' || *m_at == u'\'') {
        const LiteralPrefix *const prefix = s_prefixIndex.find(word(begin));
        if (prefix != nullptr && prefix->raw && *m_at == u'"')
            return takeRawString();
        if (prefix != nullptr && !prefix->raw)
            return takeLiteral();
        if (*m_at == u'\'' && m_part == Part::Message) {
            writeName(begin);
            return takeProse();
        }
    }
    writeName(begin);
    if (m_part == Part::Directive)
        takeHeaderTest(word(begin));
}

/// Takes a string or character literal at its opening quote; a prefix before the quote is not styled yet. After an
/// apostrophe that is never closed the rest of the line is stray, as it is for compilers.
void CPass::takeLiteral()
{
    const char16_t quote = *m_at;
    ++m_at;
    const bool closed = skipQuoted(quote);
    const bool literal = closed || quote == u'"' || m_mode != Mode::Code;
    m_out.writeTo(m_at, literal ? CodeStyle::Literal : CodeStyle::Stray);
    if (closed)
        takeSuffix();
}

/// Takes the user-defined suffix of a literal. Other words are separate, often macros.
void CPass::takeSuffix()
{
    const char16_t *const end = Characters::skip(m_at, Characters::Word);
    const u16string_view suffix(m_at, end);
    if (!suffix.starts_with(u'_') && suffix != u"s" && suffix != u"sv")
        return;
    m_at = end;
    m_out.writeTo(m_at, CodeStyle::Literal);
}

/// Takes a raw string at its quotation mark. Without a valid delimiter it is an ordinary string.
void CPass::takeRawString()
{
    const char16_t *const end = Delimiter::end(m_at + 1);
    if (*end != u'(')
        return takeLiteral();
    static_assert(Delimiter::s_bits <= s_delimiterBits);
    m_delimiter = Delimiter::of(m_at + 1, end);
    m_at = end + 1;
    takeRawStringRest();
}

void CPass::takeRawStringRest()
{
    m_mode = Mode::RawString;
    for (; *m_at != 0 && m_mode == Mode::RawString; ++m_at) {
        if (*m_at != u')')
            continue;
        const char16_t *const end = Delimiter::end(m_at + 1);
        if (*end != u'"' || Delimiter::of(m_at + 1, end) != m_delimiter)
            continue;
        m_at = end;
        m_mode = Mode::Code;
    }
    m_out.writeTo(m_at, CodeStyle::Literal);
    if (m_mode == Mode::Code)
        takeSuffix();
}

} // namespace tavidoc
