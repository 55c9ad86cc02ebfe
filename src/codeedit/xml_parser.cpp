#include "codeedit/xml_parser.h"

#include "codeedit/characters.h"
#include "codeedit/styled_line.h"

#include <string_view>

namespace tavidoc {

namespace {

using Mode = CodeEditXMLParser::Mode;
using std::u16string_view;

constexpr unsigned s_nameCharacters = Characters::Word | Characters::NameMark | Characters::Dot;

/// One pass over a line.
class XmlPass
{
public:
    XmlPass(const char16_t *line, char16_t *out, Mode mode, quint32 nesting)
        : m_at(line), m_out(line, out), m_mode(mode), m_nesting(nesting)
    {
    }

    void run()
    {
        while (*m_at != 0)
            (this->*takerOf(m_mode))();
    }

    [[nodiscard]] Mode mode() const { return m_mode; }
    [[nodiscard]] quint32 nesting() const { return m_nesting; }

private:
    using Taker = void (XmlPass::*)();
    static Taker takerOf(Mode mode);

    void takeText();
    void takeOpening();
    void takeDeclarationOpening();
    void takeComment();
    void takeEndTag();
    void takeTag();
    void takeAttributeName();
    template <char16_t Quote, Mode Next> void takeQuoted();
    void takeCharacterData();
    void takeInstruction();
    void takeDeclaration();
    void takeSubset();
    void takeSubsetDeclaration();
    void takeSubsetComment();
    void takeSubsetInstruction();
    void takeControlTo(u16string_view stops);
    void takeEntity();
    void take(std::size_t length, CodeStyle style, Mode next);
    void takeThrough(u16string_view ending, CodeStyle style, Mode next);
    [[nodiscard]] bool at(u16string_view text) const;

    const char16_t *m_at;
    StyledLine m_out;
    Mode m_mode;
    quint32 m_nesting;
};

XmlPass::Taker XmlPass::takerOf(Mode mode)
{
    // In the order of the modes. Mode 3 is unused.
    static constexpr Taker takers[] = {
        &XmlPass::takeText,
        &XmlPass::takeComment,
        &XmlPass::takeEndTag,
        &XmlPass::takeText,
        &XmlPass::takeTag,
        &XmlPass::takeQuoted<u'"', Mode::Tag>,
        &XmlPass::takeQuoted<u'\'', Mode::Tag>,
        &XmlPass::takeCharacterData,
        &XmlPass::takeInstruction,
        &XmlPass::takeDeclaration,
        &XmlPass::takeQuoted<u'"', Mode::Declaration>,
        &XmlPass::takeQuoted<u'\'', Mode::Declaration>,
        &XmlPass::takeSubset,
        &XmlPass::takeSubsetDeclaration,
        &XmlPass::takeQuoted<u'"', Mode::SubsetDeclaration>,
        &XmlPass::takeQuoted<u'\'', Mode::SubsetDeclaration>,
        &XmlPass::takeSubsetComment,
        &XmlPass::takeSubsetInstruction,
    };
    return takers[static_cast<std::size_t>(mode)];
}

bool XmlPass::at(u16string_view text) const
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (m_at[index] != text[index])
            return false;
    }
    return true;
}

/// Takes \a length characters; \a next is the mode after them.
void XmlPass::take(std::size_t length, CodeStyle style, Mode next)
{
    m_at += length;
    m_out.writeTo(m_at, style);
    m_mode = next;
}

/// Takes everything through \a ending; without it the rest of the line, and the mode stays.
void XmlPass::takeThrough(u16string_view ending, CodeStyle style, Mode next)
{
    while (*m_at != 0 && !at(ending))
        ++m_at;
    if (*m_at == 0)
        take(0, style, m_mode);
    else
        take(ending.size(), style, next);
}

void XmlPass::takeText()
{
    while (*m_at != 0 && *m_at != u'<' && *m_at != u'&')
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Text);
    if (*m_at == u'<')
        takeOpening();
    else if (*m_at == u'&')
        takeEntity();
}

/// Takes the opening of what a "<" begins.
void XmlPass::takeOpening()
{
    if (m_at[1] == u'/') {
        --m_nesting;
        m_at = Characters::skip(m_at + 2, s_nameCharacters);
        take(0, CodeStyle::Markup, Mode::EndTag);
    } else if (m_at[1] == u'?') {
        take(2, CodeStyle::Control, Mode::Instruction);
    } else if (m_at[1] == u'!') {
        takeDeclarationOpening();
    } else {
        ++m_nesting;
        take(1, CodeStyle::TagBracket, Mode::Tag);
        m_at = Characters::skip(m_at, s_nameCharacters);
        m_out.writeTo(m_at, CodeStyle::Markup);
    }
}

/// Takes the opening of what a "<!" begins.
void XmlPass::takeDeclarationOpening()
{
    if (at(u"<!--")) {
        ++m_nesting; // deliberate: a comment counts like a start tag
        take(4, CodeStyle::Comment, Mode::Comment);
    } else if (at(u"<![CDATA[")) {
        take(9, CodeStyle::Control, Mode::CharacterData);
    } else {
        take(2, CodeStyle::Control, Mode::Declaration);
    }
}

void XmlPass::takeComment()
{
    takeThrough(u"-->", CodeStyle::Comment, Mode::Text);
}

/// Takes the text between the name of an end tag and its ">".
void XmlPass::takeEndTag()
{
    while (*m_at != 0 && *m_at != u'>')
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Attribute);
    if (*m_at == u'>')
        take(1, CodeStyle::Markup, Mode::Text);
}

/// Takes one part of a start tag after its name.
void XmlPass::takeTag()
{
    const char16_t c = *m_at;
    if (Characters::is(c, s_nameCharacters) || c == u'\\')
        return takeAttributeName();
    if (c == u'"')
        return take(1, CodeStyle::Literal, Mode::DoubleQuoted);
    if (c == u'\'')
        return take(1, CodeStyle::Literal, Mode::SingleQuoted);
    if (c == u'>')
        return take(1, CodeStyle::TagBracket, Mode::Text);
    if (c == u'/' && m_at[1] == u'>')
        return take(2, CodeStyle::TagBracket, Mode::Text);
    if (c == u'<')
        return takeOpening(); // the previous tag was never closed
    take(1, CodeStyle::Punctuation, Mode::Tag);
}

/// Takes the name of an attribute, which may begin with a backslash, and an "=" directly after it.
void XmlPass::takeAttributeName()
{
    m_at = Characters::skip(m_at + 1, s_nameCharacters);
    if (*m_at == u'=')
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Attribute);
}

/// Takes a value through its closing quote.
template <char16_t Quote, Mode Next> void XmlPass::takeQuoted()
{
    while (*m_at != 0 && *m_at != Quote)
        ++m_at;
    if (*m_at == Quote)
        take(1, CodeStyle::Literal, Next);
    else
        m_out.writeTo(m_at, CodeStyle::Literal);
}

void XmlPass::takeCharacterData()
{
    while (*m_at != 0 && !at(u"]]>"))
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Text);
    if (*m_at != 0)
        take(3, CodeStyle::Control, Mode::Text);
}

void XmlPass::takeInstruction()
{
    takeThrough(u"?>", CodeStyle::Control, Mode::Text);
}

/// Takes the text before the next of the characters \a stops.
void XmlPass::takeControlTo(u16string_view stops)
{
    while (*m_at != 0 && stops.find(*m_at) == u16string_view::npos)
        ++m_at;
    m_out.writeTo(m_at, CodeStyle::Control);
}

/// Takes one part of a declaration.
void XmlPass::takeDeclaration()
{
    takeControlTo(u"[>\"'");
    if (*m_at == u'"' || *m_at == u'\'')
        take(1, CodeStyle::Literal, *m_at == u'"' ? Mode::DoubleQuotedInDeclaration : Mode::SingleQuotedInDeclaration);
    else if (*m_at != 0)
        take(1, CodeStyle::Control, *m_at == u'[' ? Mode::Subset : Mode::Text);
}

/// Takes one part of the internal subset of a DOCTYPE, which declarations and comments fill.
void XmlPass::takeSubset()
{
    takeControlTo(u"]<");
    if (*m_at == u']')
        return take(1, CodeStyle::Control, Mode::Declaration);
    if (at(u"<!--")) {
        ++m_nesting;
        return take(4, CodeStyle::Comment, Mode::SubsetComment);
    }
    if (*m_at == u'<')
        take(1, CodeStyle::Control, m_at[1] == u'?' ? Mode::SubsetInstruction : Mode::SubsetDeclaration);
}

/// Takes one part of a declaration in the internal subset.
void XmlPass::takeSubsetDeclaration()
{
    takeControlTo(u">\"'");
    if (*m_at == u'"' || *m_at == u'\'')
        take(1, CodeStyle::Literal, *m_at == u'"' ? Mode::DoubleQuotedInSubset : Mode::SingleQuotedInSubset);
    else if (*m_at == u'>')
        take(1, CodeStyle::Control, Mode::Subset);
}

void XmlPass::takeSubsetComment()
{
    takeThrough(u"-->", CodeStyle::Comment, Mode::Subset);
}

void XmlPass::takeSubsetInstruction()
{
    takeThrough(u"?>", CodeStyle::Control, Mode::Subset);
}

/// Takes an entity or character reference; any other "&" is text.
void XmlPass::takeEntity()
{
    const char16_t *end = m_at + 1;
    if (*end == u'#')
        ++end;
    end = Characters::skip(end, s_nameCharacters);
    const bool isEntity = *end == u';' && end > m_at + 1;
    m_at = isEntity ? end + 1 : m_at + 1;
    m_out.writeTo(m_at, isEntity ? CodeStyle::Control : CodeStyle::Text);
}

} // namespace

void CodeEditXMLParser::styleLine(const char16_t *line, char16_t *out, quint32 &state)
{
    XmlPass pass(line, out, m_mode, state);
    pass.run();
    m_mode = pass.mode();
    state = pass.nesting();
}

} // namespace tavidoc
