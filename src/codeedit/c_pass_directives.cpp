#include "codeedit/c_pass.h"

namespace tavidoc {

namespace {

using std::u16string_view;

/// The directives that are followed by a header name, those that are followed by a message, and the words of a
/// condition that are followed by a header name in parentheses.
constexpr u16string_view s_headerDirectives[] = {u"include", u"include_next", u"import", u"embed"};
constexpr u16string_view s_messageDirectives[] = {u"error", u"warning"};
constexpr u16string_view s_headerTests[] = {u"__has_include", u"__has_include_next", u"__has_embed"};

constexpr Words s_headerDirectiveIndex = Words::of<s_headerDirectives>();
constexpr Words s_messageDirectiveIndex = Words::of<s_messageDirectives>();
constexpr Words s_headerTestIndex = Words::of<s_headerTests>();

} // namespace

/// Continues what the previous line left open.
void CPass::resumeLine()
{
    if (m_mode == Mode::RawString)
        takeRawStringRest();
    else if (m_mode == Mode::JoinedSlash)
        resumeSlash();
    else if (m_mode == Mode::JoinedAsterisk)
        resumeAsterisk();
    else
        resume();
    if (m_part == Part::Prose)
        takeProse();
}

/// Takes the second character of the mark that begins a comment, when a joined line end separates the two.
void CPass::resumeSlash()
{
    m_mode = Mode::Code;
    m_comment = Comment::Plain;
    if (*m_at == u'/')
        takeLineComment(LineJoining::ByBackslash);
    else if (*m_at == u'*')
        takeBlockComment(m_at + 1);
}

/// Continues a block comment, which a slash here ends.
void CPass::resumeAsterisk()
{
    if (*m_at != u'/')
        return takeBlockComment(m_at);
    m_mode = Mode::Code;
    m_comment = Comment::Plain;
    m_out.writeTo(++m_at, CodeStyle::Comment);
}

/// The backslash that ends this line, at the end of which the pass is; null when there is none.
const char16_t *CPass::lastBackslash() const
{
    const char16_t *last = m_at;
    while (last != m_line && Characters::is(last[-1], Characters::Blank))
        --last;
    return last != m_line && last[-1] == u'\\' ? last - 1 : nullptr;
}

void CPass::noteJoinedAsterisk()
{
    const char16_t *const join = lastBackslash();
    if (join != nullptr && join != m_line && join[-1] == u'*')
        m_mode = Mode::JoinedAsterisk;
}

/// Takes a token where a directive, its name or a header name is expected.
void CPass::takeExpected()
{
    if (Characters::is(*m_at, Characters::Blank))
        return takeBlanks();
    if (atComment())
        return takeComment(LineJoining::ByBackslash);
    if (atJoin())
        return takeJoin();
    switch (m_part) {
    case Part::LineStart:
        return takeDirectiveStart();
    case Part::DirectiveName:
        return takeDirectiveName();
    default:
        takeHeaderName();
    }
}

/// Takes the "#" of a directive with the blanks after it, and its name. Anything else begins a line of tokens.
void CPass::takeDirectiveStart()
{
    if (*m_at != u'#') {
        m_part = Part::Code;
        return;
    }
    m_part = Part::DirectiveName;
    const char16_t *const name = Characters::skip(m_at + 1, Characters::Blank);
    if (!Characters::is(*name, Characters::WordStart)) {
        m_out.writeTo(++m_at, CodeStyle::Control);
        return;
    }
    m_at = name;
    takeDirectiveName();
}

/// Takes the name of a directive with the text before it that is not styled yet. A line marker has a number instead.
void CPass::takeDirectiveName()
{
    const char16_t *const begin = m_at;
    if (Characters::is(*m_at, Characters::WordStart)) {
        m_at = Characters::skip(m_at, Characters::Word);
        m_out.writeTo(m_at, CodeStyle::Control);
    }
    const u16string_view name = word(begin);
    const bool message = s_messageDirectiveIndex.contains(name);
    m_part = s_headerDirectiveIndex.contains(name) ? Part::HeaderName : message ? Part::Message : Part::Directive;
}

/// Takes a header name in angle brackets, if there is one; words in it are not keywords.
void CPass::takeHeaderName()
{
    m_part = Part::Directive;
    if (*m_at != u'<')
        return;
    const char16_t *end = m_at;
    while (*end != 0 && *end != u'>')
        ++end;
    if (*end == 0)
        return;
    m_at = end + 1;
    m_out.writeTo(m_at, CodeStyle::Control);
}

/// Takes the parenthesis and the header name after \a name, if \a name tests for a header.
void CPass::takeHeaderTest(u16string_view name)
{
    if (!s_headerTestIndex.contains(name))
        return;
    takeBlanks();
    if (*m_at != u'(')
        return;
    m_out.writeTo(++m_at, CodeStyle::Punctuation);
    takeBlanks();
    takeHeaderName();
}

/// Takes the rest of a message as prose, in which quotes and comment marks are ordinary characters.
void CPass::takeProse()
{
    m_part = Part::Prose;
    while (*m_at != 0)
        ++m_at;
    m_joined = lastBackslash() != nullptr;
    m_out.writeTo(m_at, CodeStyle::Text);
}

} // namespace tavidoc
