#pragma once

#include "sourcebrowser/pending_comment.h"
#include "sourcebrowser/tokens.h"

#include <QSet>

#include <vector>

namespace tavidoc {

/// The tokens of the declaration that is being read, and what was noticed about them.
struct SourceBrowserPendingDeclaration
{
    using Token = SourceBrowserTokenRecord;

    std::vector<Token> tokens;           ///< without bodies and initialisers
    SourceBrowserPendingComment comment; ///< the one that was pending when it began
    int line = 0;                        ///< counted from 0
    int column = 0;                      ///< counted from 0
    int parentheses = 0;                 ///< "(" and "[" that are open
    int key = -1;                        ///< index of the last class, struct, union or enum outside brackets
    int groupEnd = -1;                   ///< index of the last ")" outside brackets
    bool isTypedef = false;
    bool isStatic = false;
    bool isVirtual = false;
    bool isFriend = false;
    bool isInitialised = false;
    bool isCutOff = false; ///< ended by something else than a ";"

    /// Appends \a token.
    void note(const Token &token);
    [[nodiscard]] bool endsWith(int code) const { return !tokens.empty() && tokens.back().is(code); }
    /// Whether the name of an operator is being read, which may be any punctuation.
    [[nodiscard]] bool isOperator() const;
    /// Whether an argument list and what may follow it have been read.
    [[nodiscard]] bool isAfterArguments() const;
    /// Whether the tokens are `extern "C"`, or a string alone.
    [[nodiscard]] bool isLanguageBlock() const;
    /// Whether the tokens are macros that form a statement of their own, and \a token begins the
    /// declaration. \a commentBetween tells whether a block comment stands between.
    [[nodiscard]] bool restartsWith(const Token &token, bool commentBetween) const;
    /// Whether there is nothing but words in capitals: macros, when no ";" follows.
    [[nodiscard]] bool holdsCapitalsOnly() const;
    /// Whether the arguments of an old function definition are being declared.
    [[nodiscard]] bool isOldStyle();

private:
    void readOldNames();

    QSet<QStringView> m_oldNames; ///< the words in the last group outside brackets, when it holds nothing else
    int m_oldNamesEnd = -1;       ///< the groupEnd that they belong to
};

} // namespace tavidoc
