#pragma once

#include <QStringView>

#include <algorithm>
#include <span>

namespace tavidoc {

/// The tokens that the scanner delivers. Punctuation is its own character code; the numbers of the
/// others are known to callers and must not change.
namespace SourceBrowserToken {

enum Code : int
{
    EndOfInput = 0,
    Class = 256,
    Extern = 257,
    Public = 258, ///< "signals" too: a signals section reads as a public one
    Protected = 259,
    Private = 260,
    Const = 261,
    Volatile = 262,
    Register = 263,
    Union = 264,
    Static = 265,
    Virtual = 266,
    Enum = 267,
    Typedef = 268,
    Friend = 269,
    Struct = 270,
    Using = 271,
    Operator = 272,
    Template = 273,
    Throw = 274,
    Namespace = 275,
    Ellipsis = 276,
    Identifier = 277,
    Scope = 278,
    Number = 279, ///< a character literal too
    String = 280,

    // For the parser only; SourceBrowserCScanner::nextToken() never returns these.
    Skipped = 281,     ///< a character that belongs to no token
    ConditionalBegin,  ///< #if, #ifdef, #ifndef
    ConditionalBranch, ///< #else, #elif, #elifdef, #elifndef
    ConditionalEnd,    ///< #endif
    Composed,          ///< a type that the parser has read, as one token
};

/// What an identifier means to the parser, beyond its code.
enum class Word : unsigned char
{
    Plain,
    Keyword,       ///< has a code of its own
    Dropped,       ///< "inline" and the like: never a token
    Extension,     ///< dropped by the parser
    ExtensionCall, ///< dropped by the parser with the bracketed group that follows
    BasicType,     ///< int, unsigned, ...
    Qualifier,     ///< restrict and its spellings
    Storage,       ///< constexpr, explicit, thread_local, ...
    TypeOperator,  ///< typeof, decltype: a type with the group that follows
    TypeName,      ///< typename
    Suffix,        ///< noexcept, override, final: what may follow an argument list
    Statement,     ///< return, static_assert, ...: tokens with one of these declare nothing
};

struct WordEntry
{
    QStringView text;
    int code = Identifier;
    Word word = Word::Plain;
};

/// Whether \a text has no small letter, as the names of most macros.
[[nodiscard]] inline bool isInCapitals(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar unit) { return unit.isLower(); });
}

/// The table's entry for \a text; null for any other identifier.
[[nodiscard]] const WordEntry *wordEntry(QStringView text);
/// The whole table.
[[nodiscard]] std::span<const WordEntry> wordEntries();

} // namespace SourceBrowserToken

/// One token with its place. The text lives as long as the scanner keeps the token's line.
struct SourceBrowserTokenRecord
{
    QStringView text;
    int code = SourceBrowserToken::EndOfInput;
    int line = 0;   ///< counted from 1
    int column = 0; ///< counted from 0, in UTF-16 units
    int match = -1; ///< index of the matching bracket; used by the parser
    SourceBrowserToken::Word word = SourceBrowserToken::Word::Plain;
    bool blankBefore = false; ///< preceded by white space, a line end or a comment

    [[nodiscard]] bool is(int wanted) const { return code == wanted; }
    [[nodiscard]] bool isIdentifier() const { return code == SourceBrowserToken::Identifier; }
    /// Whether this is an identifier without a meaning of its own.
    [[nodiscard]] bool isPlainName() const { return isIdentifier() && word == SourceBrowserToken::Word::Plain; }
    [[nodiscard]] bool isKeyword() const { return word == SourceBrowserToken::Word::Keyword; }
    [[nodiscard]] bool isPunctuation() const { return code > 0 && code < SourceBrowserToken::Class; }
    /// Whether this is the begin, a branch or the end of a conditional.
    [[nodiscard]] bool isConditional() const
    {
        return code >= SourceBrowserToken::ConditionalBegin && code <= SourceBrowserToken::ConditionalEnd;
    }
    /// Whether SourceBrowserCScanner::nextToken() never returns this.
    [[nodiscard]] bool isInternal() const { return code >= SourceBrowserToken::Skipped; }
};

/// Whether \a token is an identifier that may be a name or a type: not a keyword, not a word with a meaning of its own.
[[nodiscard]] inline bool isWord(const SourceBrowserTokenRecord &token)
{
    using SourceBrowserToken::Word;
    return token.isIdentifier() && (token.word == Word::Plain || token.word == Word::Suffix);
}

/// Whether \a token is a keyword that is part of no type in C.
[[nodiscard]] inline bool isKeywordOfCPlusPlus(const SourceBrowserTokenRecord &token)
{
    using namespace SourceBrowserToken;
    return token.is(Class) || token.is(Public) || token.is(Protected) || token.is(Private) || token.is(Virtual) ||
           token.is(Friend) || token.is(Using) || token.is(Operator) || token.is(Template) || token.is(Throw) ||
           token.is(Namespace);
}

/// Whether a token of \a code, after a "(", begins a value and no declaration: `int a(3)`, `int b(-c)`.
[[nodiscard]] inline bool beginsValue(int code)
{
    using namespace SourceBrowserToken;
    return code == Number || code == String || code == '-' || code == '+' || code == '!' || code == '~';
}

/// Whether \a token makes a pointer, a reference or a block of what precedes it.
[[nodiscard]] inline bool isPointer(const SourceBrowserTokenRecord &token)
{
    return token.is('*') || token.is('&') || token.is('^');
}

} // namespace tavidoc
