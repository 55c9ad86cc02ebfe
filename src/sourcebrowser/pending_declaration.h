#pragma once

#include "sourcebrowser/object.h"
#include "sourcebrowser/pending_comment.h"
#include "sourcebrowser/tokens.h"

#include <QSet>

#include <vector>

namespace tavidoc {

/// The tokens of the declaration being read, and the facts noted about them.
struct SourceBrowserPendingDeclaration
{
    using Token = SourceBrowserTokenRecord;
    using Position = SourceBrowserObject::Position;

    std::vector<Token> tokens;           ///< without bodies and initialisers
    SourceBrowserPendingComment comment; ///< the comment that was pending when the declaration began
    Position beginsAt;                   ///< of the first token
    Position endsAt;                     ///< of the token that ended it
    int line = 0;                        ///< counted from 0
    int lastLine = 0;                    ///< of the last token or conditional in it, counted from 1
    int column = 0;                      ///< counted from 0
    QStringView className;               ///< name of the enclosing class; empty elsewhere
    int parentheses = 0;                 ///< how many "(" and "[" are open
    int key = -1;                        ///< index of the last class, struct, union or enum outside brackets
    int groupEnd = -1;                   ///< index of the last ")" outside brackets
    SourceBrowserObject::Form form = SourceBrowserObject::Form::Plain;
    bool isTypedef = false;
    bool isStatic = false;
    bool isVirtual = false;
    bool isFriend = false;
    bool isTemplate = false;      ///< template parameters were skipped
    bool declaresNothing = false; ///< "template" without parameters, or only the head of a class
    bool isInitialised = false;
    bool isCutOff = false;     ///< ended by something other than a ";"
    bool isBranchHead = false; ///< ended by an "#else", as the head of a class may be

    /// Appends \a token.
    void note(const Token &token);
    [[nodiscard]] bool endsWith(int code) const { return !tokens.empty() && tokens.back().is(code); }
    /// Whether the name of an operator is being read, which may be any punctuation.
    [[nodiscard]] bool isOperator() const;
    /// Whether the tokens end with an argument list, or with one and what may follow it.
    [[nodiscard]] bool isAfterArguments() const;
    /// Whether the tokens end with a name in parentheses directly after a basic type or a ",", as in
    /// `unsigned (flags) : 3, (mode) : 2`.
    [[nodiscard]] bool isFieldInParentheses() const;
    /// Whether the tokens end with a name in parentheses, the only group. It may also be a constructor's argument.
    [[nodiscard]] bool mayBeFieldInParentheses() const;
    /// Whether the tokens are `extern "C"`.
    [[nodiscard]] bool isLanguageBlock() const;
    /// Whether the tokens are macros that form statements of their own, so that the declaration begins with
    /// \a token. \a next is the last comment read.
    [[nodiscard]] bool restartsWith(const Token &token, const SourceBrowserPendingComment &next);
    /// Whether \a next, the last comment read, begins on a line after the tokens.
    [[nodiscard]] bool isReplacedBy(const SourceBrowserPendingComment &next) const;
    /// Whether all tokens are words in capitals and calls: macros, unless a ";" follows.
    [[nodiscard]] bool isMacroRun() { return isMacroRun(tokens.size()); }
    /// Whether the first \a count tokens are; all but the last may be asked for too.
    [[nodiscard]] bool isMacroRun(size_t count);
    /// Whether the tokens are storage words and macros.
    [[nodiscard]] bool declaresNothingYet() const;
    /// Whether the tokens end with a macro call that may wrap a declaration: `EXPORT(int, f, (void))`.
    [[nodiscard]] bool endsWithWrapper() const;
    /// Removes what precedes the macro call at the end. The word before `REDIRECT(f, (int))` on its line is the type
    /// and is kept.
    void keepLastCall();
    /// The number of tokens in the leading macro calls on lines of their own, with the words before them.
    [[nodiscard]] size_t leadingCalls() const;
    /// Whether characters that yield no token belong to the text being read: a value, an array bound, a bit
    /// width, template arguments or an operator's name.
    [[nodiscard]] bool isInText();
    /// Whether the tokens declare a class that is defined elsewhere, perhaps with macros before its name. After "struct"
    /// a word in capitals may be the type of a variable, unless it is a template.
    [[nodiscard]] bool isForwardDeclaration() const;
    /// Whether the tokens end with the declaration of an argument of an old function definition:
    /// `int f(a, b) int a; char *b; {`.
    [[nodiscard]] bool isOldStyle();
    /// Removes that declaration and what was noted of it.
    void dropOldArgument();

private:
    [[nodiscard]] bool beginsHead(const Token &token) const;
    [[nodiscard]] int oldNamesEnd() const;
    bool readOldNames();
    void noteText(const Token &token);
    [[nodiscard]] bool isMacroCall(size_t at) const;
    [[nodiscard]] size_t afterGroup(size_t open) const;

    QSet<QStringView> m_oldNames; ///< the words in the first group outside brackets after a name, if it has only words
    int m_oldNamesEnd = -1;       ///< index of the ")" of that group
    int m_oldKey = -1;            ///< key of the tokens up to there
    bool m_oldIsStatic = false;   ///< isStatic of the tokens up to there
    size_t m_runEnd = 0;          ///< the tokens before it are words in capitals and calls
    size_t m_textEnd = 0;         ///< the tokens before it are counted in the members below
    int m_nesting = 0;            ///< how many "(" are open
    int m_squares = 0;            ///< how many "[" are open
    int m_angles = 0;             ///< how many "<" are open
    int m_valueNesting = -1;      ///< m_nesting around the value or bit width being read; -1 outside
    bool m_isComputed = false;    ///< the type is that of an expression
};

} // namespace tavidoc
