#include "apiref/synopsis_source.h"

#include <QStringList>

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// Whether \a comment belongs to the declaration before it: its delimiter ends with "<".
bool isTrailing(QStringView comment)
{
    return comment.startsWith(u"/*!<") || comment.startsWith(u"/**<") || comment.startsWith(u"///<") ||
           comment.startsWith(u"//!<");
}

bool isLineComment(QStringView comment)
{
    return comment.startsWith(u"//");
}

/// Whether \a comment documents the declaration after it.
bool isLeading(QStringView comment)
{
    return comment.startsWith(u"/*!") && !isTrailing(comment) && !comment.startsWith(u"/*!!");
}

/// \a comment without delimiters, and without the asterisks that its lines begin with.
QString textOf(QStringView comment)
{
    if (isLineComment(comment)) {
        comment = comment.sliced(2);
    } else {
        comment = comment.sliced(2);
        comment.chop(comment.endsWith(u"*/") ? 2 : 0);
    }
    if (comment.startsWith(u'/') || comment.startsWith(u'!') || comment.startsWith(u'*'))
        comment = comment.sliced(1);
    if (comment.startsWith(u'<'))
        comment = comment.sliced(1);
    QStringList lines;
    for (QStringView line : comment.split(u'\n')) {
        line = line.trimmed();
        if (!lines.isEmpty() && line.startsWith(u'*'))
            line = line.sliced(1).trimmed();
        lines << line.toString();
    }
    return lines.join(u'\n').trimmed();
}

/// The comment at the end of \a directive; empty if it is for nothing before it.
QString trailingTextOf(QStringView directive)
{
    for (const QStringView opening :
         {QStringView(u"/*!<"), QStringView(u"/**<"), QStringView(u"///<"), QStringView(u"//!<")}) {
        const qsizetype at = directive.lastIndexOf(opening);
        if (at >= 0)
            return textOf(directive.sliced(at).trimmed());
    }
    return {};
}

} // namespace

/// The declaration that a comment after the token \a token is about; null if there is none.
const SynopsisSource::Place *SynopsisSource::placeBefore(std::size_t token,
                                                         const QHash<std::size_t, const Place *> &byEnd) const
{
    if (const Place *const ended = byEnd.value(token, nullptr))
        return ended; // by ";", or a type whose body begins
    if (isToken(token, u';') && token > 0 && isToken(token - 1, u'}'))
        return byEnd.value(matchOf(token - 1), nullptr);
    if (isToken(token, u'}') && matchOf(token) < token) {
        if (const Place *const type = byEnd.value(matchOf(token), nullptr))
            return type;
    }
    const auto after = std::ranges::upper_bound(m_places, token, {}, &Place::begin);
    if (after == m_places.begin())
        return nullptr;
    const Place &last = *(after - 1);
    if (isToken(token, u'}')) {
        const int line = m_tokens.lineOf(m_tokens.all()[token].offset);
        return last.object->lines().bodyLast + 1 == line ? &last : nullptr;
    }
    if (!isToken(token, u',') || token >= last.end)
        return nullptr;
    const Group group = groupOf(last);
    const auto next =
        std::ranges::find_if(group, [&](const Place &place) { return place.isNamed() && place.name > token; });
    return next != group.end() && next != group.begin() ? &*(next - 1) : nullptr;
}

void SynopsisSource::attachTrailingComments() const
{
    QHash<std::size_t, const Place *> byEnd;
    for (const Place &place : m_places)
        byEnd.insert(place.end, &place); // the last declarator of a declaration
    SourceBrowserObject *open = nullptr; // whose comment goes on
    std::size_t openNext = 0;
    for (const SynopsisComment &comment : m_tokens.comments()) {
        if (!isTrailing(comment.text) || comment.next == 0) {
            open = nullptr;
            continue;
        }
        if (open != nullptr && comment.next == openNext) {
            open->setTrailingComment(open->trailingComment() + u'\n' + textOf(comment.text),
                                     open->trailingCommentLine());
            continue;
        }
        const Place *const place = placeBefore(comment.next - 1, byEnd);
        open = place != nullptr ? place->object : nullptr;
        openNext = comment.next;
        if (open != nullptr)
            open->setTrailingComment(textOf(comment.text), m_tokens.lineOf(comment.offset));
    }
    for (SourceBrowserObject *const macro : m_macros) {
        const QString text = trailingTextOf(macro->text());
        if (!text.isEmpty())
            macro->setTrailingComment(text, macro->lines().first + 1);
    }
}

/// The comments of the enumerator whose tokens are those from \a begin to \a end, and a comma after them.
void SynopsisSource::takeComments(std::size_t begin, std::size_t end, Enumerator &enumerator) const
{
    const std::size_t last = isToken(end, u',') ? end + 1 : end;
    auto comment = std::ranges::lower_bound(m_tokens.comments(), begin, {}, &SynopsisComment::next);
    QString before;
    int lineBefore = -1;
    for (; comment != m_tokens.comments().end() && comment->next <= last; ++comment) {
        if (comment->next == begin && isLeading(comment->text)) {
            before = textOf(comment->text);
            lineBefore = m_tokens.lineOf(comment->offset);
        } else if (comment->next > begin && isTrailing(comment->text)) {
            if (enumerator.commentLine < 0)
                enumerator.commentLine = m_tokens.lineOf(comment->offset);
            enumerator.comment += (enumerator.comment.isEmpty() ? ""_L1 : "\n"_L1) + textOf(comment->text);
        }
    }
    if (enumerator.commentLine < 0) {
        enumerator.comment = before;
        enumerator.commentLine = lineBefore;
    }
}

/// The enumerator whose tokens are those from \a begin to \a end.
SynopsisSource::Enumerator SynopsisSource::enumerator(std::size_t begin, std::size_t end) const
{
    Enumerator enumerator;
    std::size_t value = begin;
    while (value < end && !isToken(value, u'='))
        ++value;
    enumerator.name = m_tokens.all()[begin].text.toString();
    const Tokens words = tokens(value + 1, end);
    if (std::ranges::none_of(words, &SynopsisToken::isDirective)) // else a macro that is defined there is the value
        enumerator.value = SynopsisLayout::line(words);
    takeComments(begin, end, enumerator);
    return enumerator;
}

std::vector<SynopsisSource::Enumerator> SynopsisSource::enumerators(const SourceBrowserEnum &enumeration) const
{
    std::vector<Enumerator> list;
    for (const auto &[begin, end] : enumeratorRanges(enumeration))
        list.push_back(enumerator(begin, end));
    return list;
}

/// The tokens of each enumerator, as begin and end.
std::vector<std::pair<std::size_t, std::size_t>>
SynopsisSource::enumeratorRanges(const SourceBrowserEnum &enumeration) const
{
    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    const Place *const place = placeOf(enumeration);
    if (place == nullptr || !isToken(place->end, u'{'))
        return ranges;
    const std::vector<SynopsisToken> &all = m_tokens.all();
    const std::size_t close = std::max(matchOf(place->end), place->end);
    std::size_t begin = place->end + 1;
    const auto complete = [&](std::size_t end) {
        const bool isName =
            begin < end && all[begin].isWord() && !isToken(begin + 1, u'>') && !isToken(begin + 1, u'<');
        if (isName)
            ranges.emplace_back(begin, end);
        else if (begin < end && !ranges.empty())
            ranges.back().second = end; // the comma was one of template arguments
        begin = end + 1;
    };
    for (std::size_t at = begin; at < close; ++at) {
        if (all[at].is(u'(') || all[at].is(u'[') || all[at].is(u'{'))
            at = std::max(matchOf(at), at);
        else if (all[at].is(u',') || all[at].isConditional())
            complete(at);
        else if (all[at].isDirective() && at == begin)
            ++begin;
    }
    complete(close);
    return ranges;
}

} // namespace tavidoc
