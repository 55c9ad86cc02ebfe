#include "sourcebrowser/declarators.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

using Token = SourceBrowserTokenRecord;

/// Endings of macros for linkage, calling conventions and annotations, which are never types.
constexpr QStringView s_annotationEndings[] = {
    u"API",    u"CALL",   u"CALLBACK", u"CALLTYPE", u"CONV",    u"ENTRY",    u"DECL",     u"CDECL",     u"STDCALL",
    u"PASCAL", u"FAR",    u"NEAR",     u"EXPORT",   u"EXPORTS", u"IMPORT",   u"EXTERN",   u"PUBLIC",    u"HIDDEN",
    u"STATIC", u"INLINE", u"LINKAGE",  u"CONST",    u"UNUSED",  u"RESTRICT", u"VOLATILE", u"CONSTEXPR", u"FUNC",
};

/// Annotations that some systems write in small letters.
constexpr QStringView s_annotations[] = {
    u"__user",   u"__iomem",      u"__force", u"__rcu",  u"__percpu", u"__bitwise",
    u"__nocast", u"__must_check", u"__init",  u"__exit", u"__wur",    u"__always_inline",
    u"__pure",   u"__cold",       u"IN",      u"OUT",    u"OPTIONAL",
};

/// `_In_` and `_Out_opt_`, which annotate arguments.
bool isUnderscored(QStringView text)
{
    return text.size() > 2 && text.front() == u'_' && text.back() == u'_' && text[1].isUpper();
}

/// Whether a word that looks like a macro cannot be a type by its form: `__user`, `WINAPI`.
bool isAnnotation(QStringView text)
{
    return isUnderscored(text) || text.startsWith("__attribute"_L1) ||
           std::ranges::find(s_annotations, text) != std::end(s_annotations) ||
           std::any_of(std::begin(s_annotationEndings), std::end(s_annotationEndings),
                       [text](QStringView ending) { return text.back() == ending.back() && text.endsWith(ending); });
}

/// Whether \a text is a type with a reserved name, as systems define them: `__u8`, `__off_t`.
bool isSystemType(QStringView text)
{
    return text.startsWith("__"_L1) &&
           (text.endsWith("_t"_L1) || std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.isDigit(); }));
}

bool hasLowerCase(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.isLower(); });
}

/// Whether \a token can only be the end of a type, so that a name follows it.
bool endsType(const Token &token)
{
    return token.word == Word::BasicType || token.is('*') || token.is('&') || token.is(Composed) ||
           (isWord(token) && (token.text.size() == 1 || hasLowerCase(token.text)));
}

/// Whether \a code can only follow a name.
bool followsName(int code)
{
    return code == ',' || code == ')' || code == ';' || code == '[' || code == '=' || code == ':';
}

bool isWordOfCPlusPlus(QStringView text)
{
    static constexpr QStringView words[] = {u"new",       u"delete",    u"concept",   u"static_assert",
                                            u"export",    u"explicit",  u"mutable",   u"noreturn",
                                            u"constexpr", u"consteval", u"constinit", u"thread_local"};
    return std::ranges::find(words, text) != std::end(words);
}

bool isTypeOfCPlusPlus(QStringView text)
{
    return text == u"bool" || text == u"wchar_t" || text == u"char8_t" || text == u"char16_t" || text == u"char32_t";
}

/// Whether \a token, between \a before and \a next, is a name although C++ reserves it.
bool isNameHere(const Token &token, const Token &before, int next, bool isTypedef)
{
    if (next == '(')
        return (token.word == Word::Statement || token.word == Word::Storage) && isWordOfCPlusPlus(token.text) &&
               endsType(before);
    if (token.word == Word::BasicType)
        return isTypeOfCPlusPlus(token.text) && (endsType(before) || (isTypedef && isWord(before)));
    if (!isWord(before) && !before.is(',') && !endsType(before))
        return false;
    switch (token.word) {
    case Word::Keyword:
        return isKeywordOfCPlusPlus(token) && (!token.is(Operator) || (next != '[' && next != '='));
    case Word::Statement:
        return isWordOfCPlusPlus(token.text);
    case Word::Storage:
    case Word::TypeName:
        return true;
    case Word::TypeOperator:
        return token.text != u"_Atomic" && token.text != u"_BitInt";
    default:
        return false;
    }
}

} // namespace

/// Words that C++ reserves are names in C: `int *new`, `typedef unsigned char bool`. Keywords are, where nothing else
/// can follow a type: `int class`.
void SourceBrowserDeclaratorReader::readWordsAsNames(std::vector<Token> &tokens, bool isTypedef)
{
    for (size_t at = 1; at < tokens.size(); ++at) {
        Token &token = tokens[at];
        if (token.word == Word::Plain)
            continue;
        const int next = at + 1 < tokens.size() ? tokens[at + 1].code : ';';
        const bool isAttribute = next == '[' && at + 2 < tokens.size() && tokens[at + 2].is('[');
        if (isAttribute || (!followsName(next) && next != '('))
            continue;
        const bool isComma = token.is(Operator) && at + 2 < tokens.size() && tokens[at + 2].is('('); // "operator,("
        if (!isComma && isNameHere(token, tokens[at - 1], next, isTypedef)) {
            token.code = Identifier;
            token.word = Word::Plain;
        }
    }
}

/// A word in capitals, or one of a compiler's own: likely a macro.
bool SourceBrowserDeclaratorReader::looksLikeMacro(Index at) const
{
    const QStringView text = token(at).text;
    if (text.size() < 2)
        return false;
    if (text[0] == u'_' && text[1] == u'_')
        return true;
    if (hasLowerCase(text) && !isUnderscored(text))
        return false;
    return m_types.isEmpty() || !m_types.contains(QString::fromRawData(text.data(), text.size()));
}

/// Whether a macro's argument is a type, as in `API(char *) name(void)`.
bool SourceBrowserDeclaratorReader::isTypeCall(const Item &item) const
{
    if (item.kind != Item::Call || item.end - item.begin < 4)
        return false;
    const Token &first = token(item.begin + 2);
    return first.word == Word::BasicType || first.is(Const) || first.is(Struct) || first.is(Union) || first.is(Enum) ||
           first.is(Class) || first.word == Word::TypeName || token(item.end - 2).is('*') ||
           (item.end - item.begin == 4 && isWord(first) && !looksLikeMacro(item.begin + 2));
}

/// Whether a call may be the type of a function: that of a macro, or one with one word in it, as in
/// `EXTERN(JDIMENSION) name(void)`.
bool SourceBrowserDeclaratorReader::isMacroTypeCall(const Item &item) const
{
    return item.kind == Item::Call && item.end - item.begin >= 4 &&
           (looksLikeMacro(item.begin) || (item.end - item.begin == 4 && isWord(token(item.begin + 2))));
}

/// Whether the call that is item \a index can be the type of the words after it: `STACK_OF(X) name`.
bool SourceBrowserDeclaratorReader::callMayBeType(size_t index, bool isArgument) const
{
    const Item &item = m_items[index];
    if (isUnderscored(token(item.begin).text))
        return false;
    if (isArgument || m_isTypedef || !looksLikeMacro(item.begin))
        return true;
    if (index + 2 != m_items.size() || item.end >= size() || item.end - item.begin < 4)
        return false;
    const Token &first = token(item.begin + 2);
    const bool isOnOneLine = token(item.end - 1).line == token(item.end).line;
    return isOnOneLine && !first.is(Number) && !first.is(String) && !looksLikeMacro(item.end);
}

/// Whether \a words, none of which is certainly a type, are annotations and a type without a name: `_In_ HANDLE`.
bool SourceBrowserDeclaratorReader::areAnnotatedType(std::span<const size_t> words) const
{
    const auto isMacro = [this](size_t index) {
        const Index word = m_items[index].begin;
        return looksLikeMacro(word) && !token(word).text.startsWith("__"_L1);
    };
    return isMacro(words.back()) && std::all_of(words.begin(), words.end() - 1, [&](size_t index) {
               return isMacro(index) && isAnnotation(token(m_items[index].begin).text);
           });
}

/// How likely \a item is the type, if no keyword is.
int SourceBrowserDeclaratorReader::rank(const Item &item) const
{
    if (item.kind == Item::Plain) {
        const QStringView text = token(item.begin).text;
        if (item.end - item.begin > 1 || !looksLikeMacro(item.begin)) // qualified or with template arguments
            return 5;
        return isSystemType(text) ? 4 : isAnnotation(text) ? 1 : 3;
    }
    if (isTypeCall(item))
        return item.end - item.begin > 4 || !isWord(token(item.begin + 2)) ? 4 : 3;
    return item.kind == Item::Call && item.end - item.begin > 3 && isWord(token(item.begin + 2)) ? 2 : 0;
}

/// The item that is the type, if no keyword is; -1 if there is none.
int SourceBrowserDeclaratorReader::chosenItem() const
{
    int chosen = -1;
    int best = -1; // the rank of the chosen one, once there is another
    for (int index = 0; index < static_cast<int>(m_items.size()); ++index) {
        const Item &item = m_items[static_cast<size_t>(index)];
        if (item.kind == Item::Qualifier)
            continue;
        if (chosen >= 0 && best < 0)
            best = rank(m_items[static_cast<size_t>(chosen)]);
        if (const int worth = chosen < 0 ? -1 : rank(item); worth >= best) {
            chosen = index;
            best = worth;
        }
    }
    return chosen;
}

/// Whether the word \a index is part of the type named by a keyword next to it: `std::integral auto`,
/// `unsigned WIDE_TYPE`.
bool SourceBrowserDeclaratorReader::completesType(size_t index) const
{
    const Item &item = m_items[index];
    if (item.kind != Item::Plain)
        return false;
    const bool isMacro = looksLikeMacro(item.begin);
    if (index + 1 < m_items.size() && m_items[index + 1].kind == Item::Type)
        return !isMacro && token(m_items[index + 1].begin).text == u"auto";
    if (!isMacro || isAnnotation(token(item.begin).text))
        return false;
    const Item *keyword = nullptr; // the only one before
    for (const Item &other : m_items) {
        if (other.kind == Item::Type && keyword)
            return false;
        if (other.kind == Item::Type)
            keyword = &other;
        else if (other.kind == Item::Plain && &other < &item)
            return false;
    }
    return keyword && keyword < &item &&
           (token(keyword->begin).text == u"unsigned" || token(keyword->begin).text == u"signed");
}

/// The type given by the words before the declarator. Words that are part of no type are macros.
QString SourceBrowserDeclaratorReader::specifierText()
{
    const bool hasType =
        std::any_of(m_items.begin(), m_items.end(), [](const Item &item) { return item.kind == Item::Type; });
    const int chosen = hasType ? -1 : chosenItem();
    if (!hasType && chosen < 0)
        return {};
    SourceBrowserTextBuffer text;
    for (size_t index = 0; index < m_items.size(); ++index) {
        const Item &item = m_items[index];
        const bool belongs = item.kind == Item::Qualifier || item.kind == Item::Type ||
                             static_cast<int>(index) == chosen || (hasType && completesType(index));
        if (!belongs)
            continue;
        for (Index at = item.begin; at < item.end; ++at) {
            const Token &part = token(at);
            if (part.is('[') && code(at + 1, item.end) == '[') // an attribute
                at = afterGroup(at) - 1;
            else
                appendToType(text, part);
        }
    }
    return shared(text.view());
}

} // namespace tavidoc
