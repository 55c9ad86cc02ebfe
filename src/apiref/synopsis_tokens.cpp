#include "apiref/synopsis_tokens.h"

#include <algorithm>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

bool isWordUnit(char16_t unit)
{
    return unit == u'_' || unit == u'$' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
           (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isBlankUnit(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || QChar::isSpace(unit);
}

/// The word after "#" in \a directive.
QStringView directiveWord(QStringView directive)
{
    const QStringView rest = directive.sliced(1).trimmed();
    qsizetype end = 0;
    while (end < rest.size() && isWordUnit(rest[end].unicode()))
        ++end;
    return rest.first(end);
}

bool isPrefixOfLiteral(QStringView word)
{
    return word == u"L" || word == u"u" || word == u"U" || word == u"u8" || word == u"R" || word == u"LR" ||
           word == u"uR" || word == u"UR" || word == u"u8R";
}

char16_t closerOf(const SynopsisToken &opener)
{
    return opener.is(u'(') ? u')' : opener.is(u'[') ? u']' : u'}';
}

/// The open brackets while a header is read. Every branch of a conditional begins with those that were open before it,
/// and after it those at the end of its first branch are open.
class OpenBrackets
{
public:
    explicit OpenBrackets(std::vector<SynopsisToken> &tokens) : m_tokens(tokens) {}

    void open(std::size_t token)
    {
        m_nodes.push_back({static_cast<int>(token), m_top});
        m_top = static_cast<int>(m_nodes.size()) - 1;
    }

    /// Closes the bracket that \a token matches. A brace also ends brackets that were not closed.
    void close(std::size_t token)
    {
        constexpr int mostUnclosed = 32; // limits what a text of openers only costs
        const char16_t closer = m_tokens[token].text.front().unicode();
        int node = m_top;
        for (int unclosed = 0; node >= 0 && closerOf(opener(node)) != closer; ++unclosed) {
            if (closer != u'}' || opener(node).is(u'{') || unclosed == mostUnclosed)
                return;
            node = m_nodes[static_cast<std::size_t>(node)].outer;
        }
        if (node < 0)
            return;
        m_tokens[token].match = m_nodes[static_cast<std::size_t>(node)].token;
        if (opener(node).match < 0)
            opener(node).match = static_cast<int>(token);
        m_top = m_nodes[static_cast<std::size_t>(node)].outer;
    }

    /// Follows the conditional directive that \a word begins.
    void follow(QStringView word)
    {
        if (word.startsWith(u"if")) {
            m_conditionals.push_back({m_top});
        } else if (m_conditionals.empty()) {
            return;
        } else if (word.startsWith(u"el")) {
            Conditional &conditional = m_conditionals.back();
            if (!conditional.hasBranches)
                conditional.afterFirst = m_top;
            conditional.hasBranches = true;
            m_top = conditional.before;
        } else { // the end
            if (m_conditionals.back().hasBranches)
                m_top = m_conditionals.back().afterFirst;
            m_conditionals.pop_back();
        }
    }

private:
    struct Node
    {
        int token;
        int outer; ///< index of the node around it; -1 if there is none
    };
    struct Conditional
    {
        int before;
        int afterFirst = -1;
        bool hasBranches = false;
    };

    SynopsisToken &opener(int node)
    {
        return m_tokens[static_cast<std::size_t>(m_nodes[static_cast<std::size_t>(node)].token)];
    }

    std::vector<SynopsisToken> &m_tokens;
    std::vector<Node> m_nodes; ///< all that were opened, so that a state is one number
    std::vector<Conditional> m_conditionals;
    int m_top = -1;
};

} // namespace

bool SynopsisToken::isConditional() const
{
    if (kind != Directive)
        return false;
    const QStringView word = directiveWord(text);
    return word == u"if" || word == u"ifdef" || word == u"ifndef" || word == u"endif" || word.startsWith(u"el");
}

SynopsisTokens::SynopsisTokens(const QByteArray &text) : m_text(QString::fromUtf8(text))
{
    m_lines.push_back(0);
    for (qsizetype end = m_text.indexOf(u'\n'); end >= 0; end = m_text.indexOf(u'\n', end + 1))
        m_lines.push_back(end + 1);
    scan();
    linkBrackets();
}

void SynopsisTokens::scan()
{
    bool beginsLine = true;
    for (qsizetype begin = 0; begin < m_text.size();) {
        const char16_t unit = at(begin);
        qsizetype end = begin + 1;
        if (isBlankUnit(unit) || (unit == u'\\' && at(end) == u'\n')) {
            beginsLine |= unit == u'\n';
            begin = end;
            continue;
        }
        if (unit == u'/' && (at(end) == u'/' || at(end) == u'*')) {
            end = at(end) == u'/' ? afterLine(begin) : afterBlockComment(begin);
            m_comments.push_back({text(begin, end), begin, m_tokens.size()});
            begin = end;
            continue;
        }
        if (unit == u'#' && beginsLine)
            add(SynopsisToken::Directive, begin, end = afterDirective(begin));
        else if (isDigit(unit) || (unit == u'.' && isDigit(at(end))))
            add(SynopsisToken::Number, begin, end = afterNumber(begin));
        else if (unit == u'"' || unit == u'\'')
            add(SynopsisToken::Literal, begin, end = afterLiteral(begin));
        else if (isWordUnit(unit))
            end = afterWord(begin);
        else
            add(SynopsisToken::Punctuation, begin, end = afterPunctuation(begin));
        beginsLine = false;
        if (isWordUnit(unit) && !isDigit(unit)) {
            const QStringView word = text(begin, end);
            const bool isPrefix = (at(end) == u'"' || at(end) == u'\'') && isPrefixOfLiteral(word);
            const qsizetype quote = end;
            if (isPrefix)
                end = word.endsWith(u'R') && at(quote) == u'"' ? afterRawString(quote) : afterLiteral(quote);
            add(isPrefix ? SynopsisToken::Literal : SynopsisToken::Word, begin, end);
        }
        begin = end;
    }
}

void SynopsisTokens::add(SynopsisToken::Kind kind, qsizetype begin, qsizetype end)
{
    m_tokens.push_back({.text = text(begin, end), .offset = begin, .kind = kind});
}

qsizetype SynopsisTokens::afterLine(qsizetype at) const
{
    const qsizetype end = m_text.indexOf(u'\n', at);
    return end < 0 ? m_text.size() : end;
}

qsizetype SynopsisTokens::afterBlockComment(qsizetype at) const
{
    const qsizetype end = m_text.indexOf("*/"_L1, at + 2);
    return end < 0 ? m_text.size() : end + 2;
}

/// The end of the directive at \a at. A line that ends with a backslash and an open comment continue it.
qsizetype SynopsisTokens::afterDirective(qsizetype begin) const
{
    qsizetype end = begin;
    while (end < m_text.size() && at(end) != u'\n') {
        const char16_t unit = at(end);
        if (unit == u'\\') {
            ++end;
            while (at(end) != u'\n' && isBlankUnit(at(end)) && end < m_text.size())
                ++end;
            end += at(end) == u'\n';
        } else if (unit == u'/' && at(end + 1) == u'*') {
            end = afterBlockComment(end);
        } else if (unit == u'/' && at(end + 1) == u'/') {
            end = afterLine(end);
        } else if (unit == u'"') {
            end = afterLiteral(end);
        } else {
            ++end;
        }
    }
    return std::min(end, m_text.size());
}

/// The end of the literal whose quotation mark is at \a begin; it ends with its line unless that ends with a backslash.
qsizetype SynopsisTokens::afterLiteral(qsizetype begin) const
{
    qsizetype end = begin + 1;
    for (; end < m_text.size() && at(end) != u'\n'; ++end) {
        if (at(end) == at(begin))
            return end + 1;
        end += at(end) == u'\\';
    }
    return std::min(end, m_text.size());
}

qsizetype SynopsisTokens::afterRawString(qsizetype quote) const
{
    constexpr qsizetype longest = 17; // 16 units and the parenthesis
    const qsizetype opening = QStringView(m_text).sliced(quote).left(longest + 1).indexOf(u'(');
    if (opening < 0)
        return afterLiteral(quote);
    const QString closing = u')' + m_text.mid(quote + 1, opening - 1) + u'"';
    const qsizetype end = m_text.indexOf(closing, quote + opening);
    return end < 0 ? m_text.size() : end + closing.size();
}

qsizetype SynopsisTokens::afterWord(qsizetype begin) const
{
    qsizetype end = begin;
    while (end < m_text.size() && isWordUnit(at(end)))
        ++end;
    return end;
}

qsizetype SynopsisTokens::afterNumber(qsizetype begin) const
{
    qsizetype end = begin;
    while (end < m_text.size()) {
        const char16_t before = end > begin ? at(end - 1) : u'\0';
        const bool isSign = (at(end) == u'+' || at(end) == u'-') && (before == u'e' || before == u'E') &&
                            !(at(begin) == u'0' && (at(begin + 1) == u'x' || at(begin + 1) == u'X'));
        const bool separates = at(end) == u'\'' && isWordUnit(at(end + 1));
        if (!isWordUnit(at(end)) && at(end) != u'.' && !isSign && !separates)
            break;
        ++end;
    }
    return end;
}

/// The end of the operator at \a begin. Angle brackets stay single, since ">>" may close two lists.
qsizetype SynopsisTokens::afterPunctuation(qsizetype begin) const
{
    constexpr std::u16string_view operators[] = {u"...", u"::", u"->", u"&&", u"||", u"++", u"--", u"==", u"!=",
                                                 u"+=",  u"-=", u"*=", u"/=", u"%=", u"&=", u"|=", u"^=", u"##"};
    const QStringView rest = QStringView(m_text).sliced(begin);
    for (const std::u16string_view text : operators) {
        if (rest.startsWith(QStringView(text)))
            return begin + static_cast<qsizetype>(text.size());
    }
    return begin + 1;
}

void SynopsisTokens::linkBrackets()
{
    OpenBrackets brackets(m_tokens);
    for (std::size_t index = 0; index < m_tokens.size(); ++index) {
        const SynopsisToken &token = m_tokens[index];
        if (token.isConditional())
            brackets.follow(directiveWord(token.text));
        else if (token.is(u'(') || token.is(u'[') || token.is(u'{'))
            brackets.open(index);
        else if (token.is(u')') || token.is(u']') || token.is(u'}'))
            brackets.close(index);
    }
}

std::optional<std::size_t> SynopsisTokens::indexAt(SourceBrowserObject::Position position) const
{
    if (position.line < 0 || static_cast<std::size_t>(position.line) >= m_lines.size())
        return std::nullopt;
    const qsizetype offset = m_lines[static_cast<std::size_t>(position.line)] + position.column;
    const auto found = std::ranges::lower_bound(m_tokens, offset, {}, &SynopsisToken::offset);
    if (found == m_tokens.end() || found->offset != offset)
        return std::nullopt;
    return static_cast<std::size_t>(found - m_tokens.begin());
}

int SynopsisTokens::lineOf(qsizetype offset) const
{
    return static_cast<int>(std::ranges::upper_bound(m_lines, offset) - m_lines.begin());
}

} // namespace tavidoc
