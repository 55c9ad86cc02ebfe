#pragma once

#include "sourcebrowser/container.h"
#include "sourcebrowser/tokens.h"

#include <span>

namespace tavidoc {

/// The access that \a keyword gives: public unless it is "private" or "protected".
[[nodiscard]] SourceBrowserObject::Access accessOf(const SourceBrowserTokenRecord &keyword);

/// The name of the constructors of \a className: those of "class Outer::Inner" are "Inner".
[[nodiscard]] inline QString constructorName(const QString &className)
{
    return className.mid(className.lastIndexOf(u':') + 1);
}

/// The head of a class, structure, union or enumeration: the tokens of a declaration up to its "{".
class SourceBrowserClassHead
{
public:
    using Token = SourceBrowserTokenRecord;

    /// \a key is the index of the keyword. Borrows \a tokens.
    SourceBrowserClassHead(std::span<const Token> tokens, size_t key);

    [[nodiscard]] const Token &keyword() const { return m_tokens[m_key]; }
    /// Whether the keyword is followed by another one, as in "enum class": no function returns such a type.
    [[nodiscard]] bool isScopedEnumeration() const;
    /// Whether the "{" after the tokens opens the body of the class, and not that of a function that returns one.
    [[nodiscard]] bool opensBody() const;
    /// The last run of words joined by "::" before a ":" or the end; empty if there is none. A word in capitals
    /// after a name with small letters is a macro.
    [[nodiscard]] QString name() const;
    /// The template arguments after the name, of a specialisation; empty if there are none.
    [[nodiscard]] QString arguments() const;
    [[nodiscard]] std::vector<SourceBrowserBaseClass> baseClasses() const;
    /// The type of the declarators after the body: keyword and \a name, with the qualifiers before them.
    [[nodiscard]] QString type(const QString &name) const;

private:
    [[nodiscard]] size_t skipTo(int closer, size_t from) const;
    [[nodiscard]] size_t afterAlignment(size_t open) const;

    std::span<const Token> m_tokens;
    size_t m_key;
    size_t m_begin; ///< index of the first token after the keyword
};

} // namespace tavidoc
