#include "codeedit/comment_words.h"

#include "codeedit/characters.h"

#include <string_view>

namespace CommentWords {

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

/// The commands whose next word is an argument.
constexpr u16string_view s_commandsWithArgument[] = {
    u"a", u"p", u"param",   u"tparam", u"ref",   u"e",      u"em",        u"b",
    u"f", u"m", u"ingroup", u"region", u"group", u"throws", u"exception",
};

CodeStyle styleOfWord(u16string_view word)
{
    for (const NotedWord &row : s_notedWords) {
        if (row.word == word)
            return row.style;
    }
    return CodeStyle::Comment;
}

bool takesArgument(u16string_view command)
{
    for (const u16string_view row : s_commandsWithArgument) {
        if (row == command)
            return true;
    }
    return false;
}

/// The end of the letters and digits from \a at on.
const char16_t *wordEnd(const char16_t *at, const char16_t *end)
{
    while (at != end && Characters::isWord(*at))
        ++at;
    return at;
}

u16string_view view(const char16_t *begin, const char16_t *end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// Styles the argument of a documentation command: the word after the blanks at \a at, or what
/// stands in braces there. The result is its end.
const char16_t *styleArgument(StyledLine &out, const char16_t *at, const char16_t *end)
{
    const char16_t *begin = at;
    while (begin != end && Characters::is(*begin, Characters::Blank))
        ++begin;
    if (begin != end && *begin == u'{')
        ++begin;
    const char16_t *const argumentEnd = wordEnd(begin, end);
    if (argumentEnd == begin)
        return at;
    out.writeTo(begin, CodeStyle::Comment);
    out.writeTo(argumentEnd, CodeStyle::DocArgument);
    return argumentEnd;
}

/// Styles the command of the documentation whose introducing character is at \a at. The result
/// is where the comment goes on.
const char16_t *styleCommand(StyledLine &out, const char16_t *at, const char16_t *end, Kind &kind)
{
    const char16_t *const nameEnd = wordEnd(at + 1, end);
    const u16string_view name = view(at + 1, nameEnd);
    const bool endsCode = name == u"endcode" || name == u"endpre";
    if (name.empty() || (kind == Kind::DocumentationCode && !endsCode))
        return at + 1;
    out.writeTo(at, kind == Kind::DocumentationCode ? CodeStyle::DocCode : CodeStyle::Comment);
    out.writeTo(nameEnd, CodeStyle::DocKeyword);
    kind = name == u"code" || name == u"pre" ? Kind::DocumentationCode : Kind::Documentation;
    return takesArgument(name) ? styleArgument(out, nameEnd, end) : nameEnd;
}

/// Styles the word at \a at when it is one of those that stand out. The result is its end.
const char16_t *styleNotedWord(StyledLine &out, const char16_t *at, const char16_t *end)
{
    const char16_t *const after = wordEnd(at, end);
    const CodeStyle style = Characters::is(*at, Characters::Upper) ? styleOfWord(view(at, after)) : CodeStyle::Comment;
    if (style != CodeStyle::Comment) {
        out.writeTo(at, CodeStyle::Comment);
        out.writeTo(after, style);
    }
    return after;
}

} // namespace

Kind style(StyledLine &out, const char16_t *end, Kind kind)
{
    const char16_t *at = out.from();
    while (at != end) {
        if (kind != Kind::Plain && (*at == u'\\' || *at == u'@'))
            at = styleCommand(out, at, end, kind);
        else if (kind != Kind::DocumentationCode && Characters::isWord(*at))
            at = styleNotedWord(out, at, end);
        else
            ++at;
    }
    out.writeTo(end, kind == Kind::DocumentationCode ? CodeStyle::DocCode : CodeStyle::Comment);
    return kind;
}

} // namespace CommentWords
