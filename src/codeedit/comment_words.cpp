#include "codeedit/comment_words.h"

#include "base/word_index.h"
#include "codeedit/characters.h"

#include <string_view>

namespace tavidoc::CommentWords {

namespace {

using std::u16string_view;

struct NotedWord
{
    u16string_view word;
    CodeStyle style;
};

constexpr NotedWord s_notedWords[] = {
    {u"FIXME", CodeStyle::Fixme},         {u"TODO", CodeStyle::Fixme},        {u"BUG", CodeStyle::Fixme},
    {u"XXX", CodeStyle::Fixme},           {u"HACK", CodeStyle::Fixme},        {u"NOTE", CodeStyle::Attention},
    {u"WARNING", CodeStyle::Attention},   {u"CAUTION", CodeStyle::Attention}, {u"ATTENTION", CodeStyle::Attention},
    {u"IMPORTANT", CodeStyle::Attention},
};

constexpr auto s_notedWordIndex = WordIndex<NotedWord, &NotedWord::word>::of<s_notedWords>();

/// The commands whose next word is an argument.
constexpr u16string_view s_commandsWithArgument[] = {
    u"a", u"p", u"param",   u"tparam", u"ref",   u"e",      u"em",        u"b",
    u"f", u"m", u"ingroup", u"region", u"group", u"throws", u"exception",
};

constexpr auto s_commandIndex = WordIndex<u16string_view>::of<s_commandsWithArgument>();

/// The end of the word at \a at.
const char16_t *wordEnd(const char16_t *at)
{
    return Characters::skip(at, Characters::Word);
}

/// Styles the argument of a documentation command, the word after the blanks at \a at, with or
/// without an opening brace before it. Returns its end.
const char16_t *styleArgument(StyledLine &out, const char16_t *at)
{
    const char16_t *begin = Characters::skip(at, Characters::Blank);
    if (*begin == u'{')
        ++begin;
    const char16_t *const end = wordEnd(begin);
    if (end == begin)
        return at;
    out.writeTo(begin, CodeStyle::Comment);
    out.writeTo(end, CodeStyle::DocArgument);
    return end;
}

/// Styles the documentation command whose introducing character is at \a at; a doubled one is just
/// that character. Returns where the comment continues.
const char16_t *styleCommand(StyledLine &out, const char16_t *at, Kind &kind)
{
    if (at[1] == at[0])
        return at + 2;
    const char16_t *const end = wordEnd(at + 1);
    const u16string_view name = u16string_view(at + 1, end);
    const bool endsCode = name == u"endcode" || name == u"endpre";
    if (name.empty() || (kind == Kind::DocumentationCode && !endsCode))
        return at + 1;
    out.writeTo(at, kind == Kind::DocumentationCode ? CodeStyle::DocCode : CodeStyle::Comment);
    out.writeTo(end, CodeStyle::DocKeyword);
    kind = name == u"code" || name == u"pre" ? Kind::DocumentationCode : Kind::Documentation;
    return s_commandIndex.contains(name) ? styleArgument(out, end) : end;
}

/// Styles the word in capitals at \a at if it asks for attention. Returns its end.
const char16_t *styleNotedWord(StyledLine &out, const char16_t *at)
{
    const char16_t *const end = wordEnd(at);
    const NotedWord *const row = s_notedWordIndex.find(u16string_view(at, end));
    if (row != nullptr) {
        out.writeTo(at, CodeStyle::Comment);
        out.writeTo(end, row->style);
    }
    return end;
}

/// Styles the command or the word in capitals at \a at. Returns where the comment continues.
const char16_t *styleNoted(StyledLine &out, const char16_t *at, Kind &kind)
{
    if (!Characters::is(*at, Characters::Upper))
        return kind == Kind::Plain || *at == u'*' ? at + 1 : styleCommand(out, at, kind);
    const bool plain = kind == Kind::DocumentationCode || !Characters::is(at[1], Characters::Upper);
    return plain ? at + 1 : styleNotedWord(out, at);
}

} // namespace

const char16_t *style(StyledLine &out, const char16_t *at, Ending ending, Kind &kind)
{
    const char16_t *const begin = at;
    for (;;) {
        while (!Characters::is(*at, Characters::Noted))
            ++at;
        if (*at == 0 || (ending == Ending::Mark && at[0] == u'*' && at[1] == u'/'))
            break;
        const bool inWord = at != begin && Characters::isWord(at[-1]);
        at = inWord ? at + 1 : styleNoted(out, at, kind);
    }
    out.writeTo(at, kind == Kind::DocumentationCode ? CodeStyle::DocCode : CodeStyle::Comment);
    return at;
}

} // namespace tavidoc::CommentWords
