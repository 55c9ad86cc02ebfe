#include "apiref/synopsis_layout.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tavidoc::SynopsisLayout {

using namespace Qt::StringLiterals;

namespace {

using Range = SynopsisTokens::Range;

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
        text += line(parts[index]);
    }
}

} // namespace

QString line(Range tokens)
{
    QString text;
    append(text, tokens);
    return text;
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

std::vector<Range> parts(Range tokens)
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
    if (!tokens.empty())
        parts.push_back(tokens.subspan(begin));
    return parts;
}

namespace {

/// The index after the name at \a at, which may be qualified and have template arguments.
std::size_t afterName(Range tokens, std::size_t at)
{
    while (at < tokens.size() && (tokens[at].is(u"::") || tokens[at].isWord())) {
        const bool isWord = tokens[at].isWord() && !tokens[at].is(u"template");
        ++at;
        const std::size_t close =
            isWord && at < tokens.size() && tokens[at].is(u'<') ? closingAngle(tokens, at) : tokens.size();
        at = close < tokens.size() ? close + 1 : at;
        if (isWord && !(at < tokens.size() && tokens[at].is(u"::")))
            break;
    }
    return at;
}

/// The index after the constraint whose "requires" is at \a at.
std::size_t afterConstraint(Range tokens, std::size_t at)
{
    do {
        ++at;
        if (at + 1 < tokens.size() && tokens[at].is(u"requires")) { // an expression
            at += tokens[at + 1].is(u'(') ? closing(tokens, at + 1) - at : 0;
            at = at + 1 < tokens.size() && tokens[at + 1].is(u'{') ? closing(tokens, at + 1) : at;
            at = std::min(at + 1, tokens.size());
        } else if (at < tokens.size() && tokens[at].is(u'(')) {
            at = std::min(closing(tokens, at) + 1, tokens.size());
        } else if (at < tokens.size() && tokens[at].kind == SynopsisToken::Number) {
            ++at;
        } else {
            at = afterName(tokens, at);
        }
    } while (at < tokens.size() && (tokens[at].is(u"&&") || tokens[at].is(u"||")));
    return at;
}

/// The index after the template head that \a tokens begin with, and after the constraint of that head; 0 if there is
/// none. \a head becomes the index after the head without the constraint.
std::size_t afterTemplateHead(Range tokens, std::size_t &head)
{
    if (tokens.size() < 2 || !tokens[0].is(u"template") || !tokens[1].is(u'<'))
        return 0;
    const std::size_t close = closingAngle(tokens, 1);
    if (close == tokens.size())
        return 0;
    head = close + 1;
    return head < tokens.size() && tokens[head].is(u"requires") ? afterConstraint(tokens, head) : head;
}

/// The template heads of \a tokens and their constraints, each on a line of its own; \a tokens loses them.
QString takeTemplateHeads(Range &tokens)
{
    QString text;
    std::size_t head = 0;
    for (std::size_t end = afterTemplateHead(tokens, head); end > 0; end = afterTemplateHead(tokens, head)) {
        text += line(tokens.first(head)) + u'\n';
        if (head < end)
            text += line(tokens.subspan(head, end - head)) + u'\n';
        tokens = tokens.subspan(end);
    }
    return text;
}

/// The constraint at the end of the function \a tokens, after the index \a from, as a line of its own; \a tokens loses it.
QString takeConstraint(Range &tokens, std::size_t from)
{
    for (std::size_t at = from; at < tokens.size(); at = tokens[at].is(u'(') ? closing(tokens, at) + 1 : at + 1) {
        if (!tokens[at].is(u"requires"))
            continue;
        QString text = u'\n' + QString(indentation, u' ') + line(tokens.subspan(at));
        tokens = tokens.first(at);
        return text;
    }
    return {};
}

} // namespace

std::size_t templateHeads(Range tokens)
{
    std::size_t end = 0;
    std::size_t head = 0;
    for (std::size_t next = afterTemplateHead(tokens, head); next > 0;
         next = afterTemplateHead(tokens.subspan(end), head))
        end += next;
    return end;
}

std::size_t argumentsAfter(Range tokens, std::size_t name)
{
    if (name < tokens.size() && tokens[name].is(u"operator") && name + 2 < tokens.size() && tokens[name + 1].is(u'(') &&
        tokens[name + 2].is(u')'))
        name += 2;
    while (++name < tokens.size() && !tokens[name].is(u'(')) {
    }
    while (name + 1 < tokens.size() && tokens[name + 1].is(u'(') && tokens[name].match == tokens[name + 1].match + 1)
        ++name; // "f OF((int a))"
    return std::min(name, tokens.size());
}

QString function(const Tokens &tokens, std::size_t open)
{
    if (hasConditional(tokens))
        return line(tokens);
    Tokens joined = tokens;
    if (open > 0 && open < joined.size() && joined[open - 1].isWord()) {
        // "f (void)" is written "f(void)".
        const qsizetype gap = joined[open].offset - joined[open - 1].end();
        for (std::size_t at = open; at < joined.size() && gap > 0; ++at)
            joined[at].offset -= gap;
    }
    QString text = line(joined);
    if (text.size() <= longestLine)
        return text;
    Range rest = joined;
    const std::size_t total = rest.size();
    text = takeTemplateHeads(rest);
    const std::size_t removed = total - rest.size();
    QString whole = line(rest);
    if (whole.size() <= longestLine || open < removed || open - removed >= rest.size())
        return text + whole;
    const std::size_t begin = open - removed + 1;
    const std::size_t end = closing(rest, begin - 1);
    const QString constraint = takeConstraint(rest, end);
    whole = line(rest);
    if (whole.size() <= longestLine || end >= rest.size() || end == begin)
        return text + whole + constraint;
    text += line(rest.first(begin));
    const std::vector<Range> arguments = parts(rest.subspan(begin, end - begin));
    const auto widest = std::ranges::max(arguments, {}, [](Range part) { return line(part).size(); });
    qsizetype column = widthOfLastLine(text);
    if (column + line(widest).size() > longestLine && column > 2 * indentation) {
        column = 2 * indentation;
        text += u'\n' + QString(column, u' ');
    }
    appendAligned(text, arguments, column);
    return text + line(rest.subspan(end)) + constraint;
}

QString head(const Tokens &tokens)
{
    QString text = line(tokens);
    if (text.size() <= longestLine || hasConditional(tokens))
        return text;
    Range rest = tokens;
    text = takeTemplateHeads(rest);
    const QString whole = line(rest);
    const auto colon = std::ranges::find_if(rest, [](const SynopsisToken &token) { return token.is(u':'); });
    if (whole.size() <= longestLine || colon == rest.end())
        return text + whole;
    const auto before = static_cast<std::size_t>(std::distance(rest.begin(), colon)) + 1;
    text += line(rest.first(before)) + u' ';
    appendAligned(text, parts(rest.subspan(before)), widthOfLastLine(text));
    return text;
}

} // namespace tavidoc::SynopsisLayout
