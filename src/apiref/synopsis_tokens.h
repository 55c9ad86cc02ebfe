#pragma once

#include "sourcebrowser/object.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace tavidoc {

/// A token of a header as the language has it: the parser of declarations drops words and splits operators.
struct SynopsisToken
{
    enum Kind : unsigned char
    {
        Word,
        Number,
        Literal,
        Punctuation,
        Directive ///< with its continuation lines and comments
    };

    QStringView text;
    qsizetype offset = 0; ///< in the text of the header, in UTF-16 units
    int match = -1;       ///< index of the matching bracket; -1 if there is none
    Kind kind = Punctuation;

    [[nodiscard]] qsizetype end() const { return offset + text.size(); }
    [[nodiscard]] bool is(QStringView wanted) const { return kind != Literal && text == wanted; }
    [[nodiscard]] bool is(char16_t wanted) const
    {
        return kind == Punctuation && text.size() == 1 && text.front() == QChar(wanted);
    }
    [[nodiscard]] bool isWord() const { return kind == Word; }
    [[nodiscard]] bool isDirective() const { return kind == Directive; }
    /// Whether this is #if, #ifdef, #ifndef or a branch or the end of such a conditional.
    [[nodiscard]] bool isConditional() const;
};

/// A comment between tokens.
struct SynopsisComment
{
    QStringView text; ///< with its delimiters
    qsizetype offset = 0;
    std::size_t next = 0; ///< index of the token after it
};

/// The tokens and comments of a whole header.
class SynopsisTokens
{
public:
    using Range = std::span<const SynopsisToken>;

    /// \a text is UTF-8 with "\n" line ends.
    explicit SynopsisTokens(const QByteArray &text);
    SynopsisTokens(const SynopsisTokens &) = delete;
    SynopsisTokens &operator=(const SynopsisTokens &) = delete;

    [[nodiscard]] const std::vector<SynopsisToken> &all() const { return m_tokens; }
    [[nodiscard]] const std::vector<SynopsisComment> &comments() const { return m_comments; }
    /// The index of the token at \a position; nothing if none begins there.
    [[nodiscard]] std::optional<std::size_t> indexAt(SourceBrowserObject::Position position) const;
    /// The line of \a offset, counted from 1.
    [[nodiscard]] int lineOf(qsizetype offset) const;
    [[nodiscard]] const QString &text() const { return m_text; }
    /// The text of the header from \a begin to \a end, comments included.
    [[nodiscard]] QStringView text(qsizetype begin, qsizetype end) const
    {
        return QStringView(m_text).sliced(begin, end - begin);
    }

private:
    void scan();
    [[nodiscard]] qsizetype afterLine(qsizetype at) const;
    [[nodiscard]] qsizetype afterDirective(qsizetype begin) const;
    [[nodiscard]] qsizetype afterBlockComment(qsizetype at) const;
    [[nodiscard]] qsizetype afterLiteral(qsizetype begin) const;
    [[nodiscard]] qsizetype afterRawString(qsizetype quote) const;
    [[nodiscard]] qsizetype afterWord(qsizetype begin) const;
    [[nodiscard]] qsizetype afterNumber(qsizetype begin) const;
    [[nodiscard]] qsizetype afterPunctuation(qsizetype begin) const;
    [[nodiscard]] char16_t at(qsizetype offset) const
    {
        return offset < m_text.size() ? m_text[offset].unicode() : u'\0';
    }
    void add(SynopsisToken::Kind kind, qsizetype begin, qsizetype end);
    void linkBrackets();

    QString m_text;
    std::vector<qsizetype> m_lines; ///< offsets of the lines
    std::vector<SynopsisToken> m_tokens;
    std::vector<SynopsisComment> m_comments;
};

} // namespace tavidoc
