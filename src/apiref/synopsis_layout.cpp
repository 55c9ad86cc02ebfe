#include "apiref/synopsis_layout.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tavidoc::SynopsisLayout {

using namespace Qt::StringLiterals;

namespace {

using Range = SynopsisTokens::Range;

constexpr qsizetype s_indentation = 4;

bool needsBlank(const SynopsisToken &before, const SynopsisToken &token)
{
    if (before.is(u'(') || before.is(u'[') || token.is(u')') || token.is(u']') || token.is(u',') || token.is(u';'))
        return false;
    return before.is(u',') || token.offset != before.end();
}

/// Appends \a tokens to \a text. A conditional begins a line and ends it.
void append(QString &text, Range tokens)
{
    const SynopsisToken *before = nullptr;
    for (const SynopsisToken &token : tokens) {
        if (token.isDirective()) {
            if (!token.isConditional())
                continue;
            if (!text.isEmpty() && !text.endsWith(u'\n'))
                text += u'\n';
            text += token.text;
            text += u'\n';
            before = nullptr;
            continue;
        }
        if (before && needsBlank(*before, token))
            text += u' ';
        text += token.text;
        before = &token;
    }
}

bool hasConditional(Range tokens)
{
    return std::ranges::any_of(tokens, &SynopsisToken::isConditional);
}

bool isAdjacent(Range tokens, std::size_t at)
{
    return at + 1 < tokens.size() && tokens[at + 1].offset == tokens[at].end();
}

/// Whether the "<" or ">" at \a at is part of another operator.
bool isPartOfOperator(Range tokens, std::size_t at)
{
    if (isAdjacent(tokens, at) && (tokens[at + 1].is(u'=') || tokens[at + 1].is(u"==")))
        return true;
    const auto isShift = [&](std::size_t first) {
        return isAdjacent(tokens, first) && tokens[first].is(u'<') && tokens[first + 1].is(u'<');
    };
    return isShift(at) || (at > 0 && isShift(at - 1));
}

/// How much the token at \a at opens or closes angle brackets.
int angleOf(Range tokens, std::size_t at)
{
    const SynopsisToken &token = tokens[at];
    if (!token.is(u'<') && !token.is(u'>'))
        return 0;
    if (isPartOfOperator(tokens, at) || (at > 0 && tokens[at - 1].is(u"operator")))
        return 0;
    return token.is(u'<') ? 1 : -1;
}

int nestingOf(const SynopsisToken &token)
{
    const bool opens = token.is(u'(') || token.is(u'[') || token.is(u'{');
    const bool closes = token.is(u')') || token.is(u']') || token.is(u'}');
    return opens - closes;
}

/// The parts of \a tokens between commas outside brackets.
std::vector<Range> partsOf(Range tokens)
{
    std::vector<Range> parts;
    std::size_t begin = 0;
    int nesting = 0;
    int angles = 0;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        nesting += nestingOf(tokens[at]);
        if (nesting == 0)
            angles = std::max(0, angles + angleOf(tokens, at));
        if (nesting == 0 && angles == 0 && tokens[at].is(u',')) {
            parts.push_back(tokens.subspan(begin, at - begin));
            begin = at + 1;
        }
    }
    parts.push_back(tokens.subspan(begin));
    return parts;
}

QString lineOf(Range tokens)
{
    QString text;
    append(text, tokens);
    return text;
}

/// The index of the bracket that closes the one at \a open; the number of tokens if there is none.
std::size_t closing(Range tokens, std::size_t open)
{
    int nesting = 0;
    for (std::size_t at = open; at < tokens.size(); ++at) {
        nesting += nestingOf(tokens[at]);
        if (nesting == 0)
            return at;
    }
    return tokens.size();
}

qsizetype widthOfLastLine(const QString &text)
{
    return text.size() - text.lastIndexOf(u'\n') - 1;
}

/// Appends \a parts to \a text, each on a line of its own, aligned with the first.
void appendAligned(QString &text, const std::vector<Range> &parts, qsizetype columns)
{
    const QString separator = ",\n"_L1 + QString(columns, u' ');
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (index > 0)
            text += separator;
        text += lineOf(parts[index]);
    }
}

/// Marks the braces of \a tokens that hold statements: a ";" is in them, not in braces inside them.
std::vector<bool> bracesWithStatements(Range tokens)
{
    std::vector<bool> marks(tokens.size(), false);
    std::vector<std::size_t> open;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].is(u'{'))
            open.push_back(at);
        else if (tokens[at].is(u'}') && !open.empty())
            open.pop_back();
        else if (tokens[at].is(u';') && !open.empty())
            marks[open.back()] = true;
    }
    return marks;
}

/// Writes statements in braces.
class BlockWriter
{
public:
    BlockWriter(Range tokens, char16_t separator)
        : m_tokens(tokens), m_separator(separator), m_hasStatements(bracesWithStatements(tokens))
    {
    }

    QString write()
    {
        for (std::size_t at = 0; at < m_tokens.size(); ++at)
            add(at);
        flush(m_tokens.size());
        return m_text;
    }

private:
    void add(std::size_t at)
    {
        const SynopsisToken &token = m_tokens[at];
        if (token.isDirective()) {
            // A definition inside an enumerator changes what follows; between enumerators it does not matter.
            const bool matters = token.isConditional() || at > m_begin;
            flush(at);
            m_begin = at + 1;
            if (matters)
                m_text.append(token.text).append(u'\n');
        } else if (token.is(u'{')) {
            // The outermost brace is broken, those of lists in it are not.
            const bool breaks = m_open.empty() || m_hasStatements[at];
            m_open.push_back(breaks);
            if (breaks) {
                flush(at + 1);
                ++m_depth;
            }
        } else if (token.is(u'}') && !m_open.empty()) {
            if (m_open.back()) {
                flush(at);
                --m_depth;
            }
            m_open.pop_back();
        } else {
            m_groups += token.is(u'(') - token.is(u')');
            const bool isList = m_separator == u',' && m_open.size() == 1;
            if (!m_open.empty() && m_open.back() && m_groups == 0 && token.is(isList ? u',' : u';'))
                flush(at + 1);
        }
    }

    /// Writes the tokens up to \a end that have not been written, on a line.
    void flush(std::size_t end)
    {
        if (end <= m_begin)
            return;
        m_text += QString(m_depth * s_indentation, u' ') + lineOf(m_tokens.subspan(m_begin, end - m_begin)) + u'\n';
        m_begin = end;
    }

    Range m_tokens;
    char16_t m_separator;
    std::vector<bool> m_hasStatements;
    std::vector<bool> m_open; ///< for every open brace, whether its content is on lines of its own
    QString m_text;
    std::size_t m_begin = 0;
    qsizetype m_depth = 0;
    int m_groups = 0;
};

} // namespace

QString line(const Tokens &tokens)
{
    return lineOf(tokens);
}

std::size_t closingAngle(Range tokens, std::size_t open)
{
    int angles = 0;
    int nesting = 0;
    for (std::size_t at = open; at < tokens.size(); ++at) {
        nesting += nestingOf(tokens[at]);
        if (nesting < 0 || tokens[at].is(u';'))
            break;
        angles += nesting == 0 ? angleOf(tokens, at) : 0;
        if (nesting == 0 && angles == 0)
            return at;
    }
    return tokens.size();
}

std::size_t templateHeads(Range tokens)
{
    std::size_t end = 0;
    while (end + 1 < tokens.size() && tokens[end].is(u"template") && tokens[end + 1].is(u'<')) {
        const std::size_t close = closingAngle(tokens, end + 1);
        if (close == tokens.size())
            break;
        end = close + 1;
    }
    return end;
}

namespace {

/// The template heads of \a tokens, each on a line of its own; \a tokens loses them.
QString takeTemplateHeads(Range &tokens)
{
    QString text;
    while (tokens.size() > 1 && tokens[0].is(u"template") && tokens[1].is(u'<')) {
        const std::size_t close = closingAngle(tokens, 1);
        if (close == tokens.size())
            break;
        text += lineOf(tokens.first(close + 1)) + u'\n';
        tokens = tokens.subspan(close + 1);
    }
    return text;
}

} // namespace

QString function(const Tokens &tokens, std::size_t open)
{
    if (hasConditional(tokens))
        return lineOf(tokens);
    Tokens joined = tokens;
    if (open > 0 && open < joined.size() && joined[open - 1].isWord()) {
        // "f (void)" is written "f(void)".
        const qsizetype gap = joined[open].offset - joined[open - 1].end();
        for (std::size_t at = open; at < joined.size() && gap > 0; ++at)
            joined[at].offset -= gap;
    }
    QString text = lineOf(joined);
    if (text.size() <= longestLine)
        return text;
    Range rest = joined;
    const std::size_t total = rest.size();
    text = takeTemplateHeads(rest);
    const std::size_t removed = total - rest.size();
    const QString whole = lineOf(rest);
    if (whole.size() <= longestLine || open < removed || open - removed >= rest.size())
        return text + whole;
    const std::size_t begin = open - removed + 1;
    const std::size_t end = closing(rest, begin - 1);
    if (end == rest.size() || end == begin)
        return text + whole;
    text += lineOf(rest.first(begin));
    const std::vector<Range> arguments = partsOf(rest.subspan(begin, end - begin));
    const auto widest = std::ranges::max(arguments, {}, [](Range part) { return lineOf(part).size(); });
    qsizetype column = widthOfLastLine(text);
    if (column + lineOf(widest).size() > longestLine && column > 2 * s_indentation) {
        column = 2 * s_indentation;
        text += u'\n' + QString(column, u' ');
    }
    appendAligned(text, arguments, column);
    return text + lineOf(rest.subspan(end));
}

QString head(const Tokens &tokens)
{
    QString text = lineOf(tokens);
    if (text.size() <= longestLine || hasConditional(tokens))
        return text;
    Range rest = tokens;
    text = takeTemplateHeads(rest);
    const QString whole = lineOf(rest);
    const auto colon = std::ranges::find_if(rest, [](const SynopsisToken &token) { return token.is(u':'); });
    if (whole.size() <= longestLine || colon == rest.end())
        return text + whole;
    const auto before = static_cast<std::size_t>(std::distance(rest.begin(), colon)) + 1;
    text += lineOf(rest.first(before)) + u' ';
    appendAligned(text, partsOf(rest.subspan(before)), widthOfLastLine(text));
    return text;
}

QString block(const Tokens &tokens, char16_t separator)
{
    if (separator == u',' && std::ranges::none_of(tokens, &SynopsisToken::isDirective)) {
        QString text = lineOf(tokens);
        if (text.size() <= longestLine)
            return text;
    }
    return BlockWriter(tokens, separator).write().trimmed();
}

} // namespace tavidoc::SynopsisLayout
