#pragma once

#include "sourcebrowser/members.h"
#include "sourcebrowser/text_buffer.h"
#include "sourcebrowser/tokens.h"

#include <QSet>
#include <QVarLengthArray>

#include <span>
#include <vector>

namespace tavidoc {

/// The place of \a token in the file.
[[nodiscard]] inline SourceBrowserObject::Position positionOf(const SourceBrowserTokenRecord &token)
{
    return {token.line - 1, token.column};
}

/// The result of one declarator.
struct SourceBrowserDeclarator
{
    enum Kind
    {
        Nothing,
        Function,
        Object
    };

    Kind kind = Nothing;
    QString name;
    QString qualifier;                   ///< of an out-of-class definition, the class as written
    SourceBrowserObject::Position place; ///< of the name; unknown in arguments
    SourceBrowserType type;
    std::vector<SourceBrowserArgument> arguments;
    bool isConst = false;
    bool isPure = false;
    bool isDeleted = false;
    bool isBarePlainName = false; ///< only a name after the shared part
};

/// The declarators of one declaration, which seldom has more than one.
using SourceBrowserDeclarators = QVarLengthArray<SourceBrowserDeclarator, 1>;

/// Finds the declarators in the tokens of one declaration: where its type ends, where its names
/// and argument lists are. It expands no macros and goes by the shape of the tokens instead of a
/// grammar, so that unknown words do no harm.
class SourceBrowserDeclaratorReader
{
public:
    using Token = SourceBrowserTokenRecord;

    /// Reads \a tokens, a declaration without its body, initialisers and ";". A function without a
    /// type is a constructor when it is named \a className. Links the brackets in \a tokens.
    [[nodiscard]] SourceBrowserDeclarators read(std::vector<Token> &tokens, const QString &className, bool isTypedef);

    /// Registers \a name as a type, even if it looks like a macro.
    void addType(const QString &name) { m_types.insert(name); }

    /// Stores in every bracket the index of the matching one. An opening one that is
    /// never closed gets \a tokens.size().
    static void linkBrackets(std::vector<Token> &tokens);

    /// Whether the "<" or ">" at \a at may enclose template arguments: it is not part of "<<", "<=", ">=" or "->".
    [[nodiscard]] static bool isAngle(std::span<const Token> tokens, size_t at);

    /// \a tokens as they were written, white space simplified.
    [[nodiscard]] static QString sourceText(std::span<const Token> tokens);
    /// \a tokens with the blanks of a type.
    [[nodiscard]] static QString typeText(std::span<const Token> tokens);

private:
    using Index = int;

    /// A word, or run of words, before the declarator.
    struct Item
    {
        enum Kind
        {
            Type,
            Qualifier,
            Plain,
            Call
        };
        Kind kind;
        Index begin;
        Index end;
    };

    /// How many items of each kind there are among the first \a upTo.
    struct Counts
    {
        size_t upTo = 0;
        int types = 0;
        int words = 0;
        int ownWords = 0; ///< words that do not look like macros
        int typeCalls = 0;
    };

    /// The state while one declarator is read.
    struct Shape
    {
        SourceBrowserTextBuffer prefix;
        SourceBrowserTextBuffer suffix;
        Index nameBegin = -1;
        Index nameEnd = -1;
        Index arguments = -1; ///< the "(" of the function's argument list
        bool isFunction = false;
        bool failed = false;
    };

    // The words before the declarator: declarators.cpp.
    SourceBrowserDeclarator readOne(Index begin, Index end, bool isArgument);
    Index readItems(Index at, Index end, Shape &shape, bool isArgument);
    Index readTag(Index at, Index end, bool isArgument);
    Index wordOrCall(Index at, Index end, Shape &shape, bool isArgument);
    Index beginArguments(Index at, Index end, Shape &shape);
    const Counts &counts();
    [[nodiscard]] bool isTypeless(const Shape &shape) const;
    void nameFromItems(Shape &shape, bool isArgument);
    [[nodiscard]] bool isFieldType(Index begin, Index open, Index end);
    [[nodiscard]] bool isInitialised(Index begin, Index open, Index end);
    [[nodiscard]] bool callIsName(Index begin, Index open, Index end);
    [[nodiscard]] bool argumentIsFunction(Index begin, Index open, Index end);

    // Which of the words are the type: declarator_types.cpp.
    static void readWordsAsNames(std::vector<Token> &tokens, bool isTypedef);
    [[nodiscard]] QString specifierText();
    [[nodiscard]] int chosenItem() const;
    [[nodiscard]] bool completesType(size_t index) const;
    [[nodiscard]] int rank(const Item &item) const;
    [[nodiscard]] bool looksLikeMacro(Index at) const;
    [[nodiscard]] bool isTypeCall(const Item &item) const;
    [[nodiscard]] bool isMacroTypeCall(const Item &item) const;
    [[nodiscard]] bool callMayBeType(size_t index, bool isArgument) const;
    [[nodiscard]] bool areAnnotatedType(std::span<const size_t> words) const;

    // The declarator itself: declarator_shapes.cpp.
    Index readShape(Index at, Index end, Shape &shape, bool isArgument);
    Index readPointers(Index at, Index end, Shape &shape, int &nesting, bool isArgument);
    Index readName(Index at, Index end, Shape &shape, bool isArgument);
    Index readOperator(Index begin, Index at, Index end, Shape &shape);
    Index readSuffixes(Index at, Index end, Shape &shape, int nesting, bool isArgument);
    Index readTail(Index at, Index end, Shape &shape, SourceBrowserDeclarator &declarator);
    SourceBrowserDeclarator finish(const QString &specifiers, Shape &shape, Index at, Index end, bool isArgument);
    void completeType(const Shape &shape, SourceBrowserType &type);
    SourceBrowserType returnType(Index begin, Index end);
    void setName(const Shape &shape, SourceBrowserDeclarator &declarator, bool isArgument);
    [[nodiscard]] bool isConversion(const Shape &shape) const;
    [[nodiscard]] bool isNestedDeclarator(Index open, Index end) const;
    [[nodiscard]] bool isNameInParentheses(Index open, Index end) const;
    [[nodiscard]] bool isTypeBeforeName(Index open, Index end) const;
    [[nodiscard]] bool isPointerAhead(Index at, Index end) const;

    // Argument lists and macro calls that hold them: declarator_arguments.cpp.
    std::vector<SourceBrowserArgument> readArguments(Index open);
    SourceBrowserArgument readArgument(Index begin, Index end);
    bool readFunctionOfMacro(Index word, Index open, Index end, Shape &shape);
    [[nodiscard]] bool holdsArguments(Index open, Index end) const;
    [[nodiscard]] bool isRedirection(Index word, Index open, Index end) const;
    Index readRedirection(Index open, Index end, Shape &shape);
    SourceBrowserDeclarator readWrapped(Index begin, Index end);
    SourceBrowserDeclarator unwrap(Index type, Index name, Index list);

    // Tokens and their texts: declarator_tokens.cpp.
    /// Appends \a token to the type that begins in \a text at \a begin.
    static void appendToType(SourceBrowserTextBuffer &text, const Token &token, qsizetype begin = 0);
    static void appendSourceText(SourceBrowserTextBuffer &text, std::span<const Token> tokens);
    static void appendTypeText(SourceBrowserTextBuffer &text, std::span<const Token> tokens);
    [[nodiscard]] Index chainEnd(Index at, Index end) const;
    [[nodiscard]] Index skipAttributes(Index at, Index end) const;
    [[nodiscard]] Index afterGroup(Index at) const;
    [[nodiscard]] Index findTopLevel(Index from, Index end, int code) const;
    [[nodiscard]] Index wrappedArguments(Index open) const;
    [[nodiscard]] Index macroArguments(Index word, Index open) const;
    [[nodiscard]] bool isQualifier(Index at) const;
    /// \a text as a string, mostly sharing the memory of an equal one: types and names of arguments repeat.
    QString shared(QStringView text);
    [[nodiscard]] const Token &token(Index at) const { return (*m_tokens)[static_cast<size_t>(at)]; }
    [[nodiscard]] Index size() const { return static_cast<Index>(m_tokens->size()); }
    [[nodiscard]] int code(Index at, Index end) const { return at < end ? token(at).code : 0; }
    [[nodiscard]] std::span<const Token> range(Index begin, Index end) const
    {
        return std::span<const Token>(*m_tokens).subspan(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
    }

    static constexpr size_t s_texts = 512;

    std::vector<Token> *m_tokens = nullptr;
    QString m_className;
    std::vector<QString> m_texts = std::vector<QString>(s_texts); ///< shared by declarations, indexed by a hash
    QSet<QString> m_types;                                        ///< known types with names in capitals
    std::vector<Item> m_items;
    Counts m_counts;      ///< of m_items, kept so that no item is counted twice
    QString m_specifiers; ///< of the last readOne()
    bool m_isTypedef = false;
    bool m_isUnwrapping = false;
    Index m_lastStrong = -1; ///< the last token outside brackets that must belong to a type
};

} // namespace tavidoc
