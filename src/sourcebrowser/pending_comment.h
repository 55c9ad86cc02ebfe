#pragma once

#include <QString>

#include <array>

namespace tavidoc {

/// A block comment that waits for the declaration after it. Lines are counted from 1.
class SourceBrowserPendingComment
{
public:
    /// Begins a comment whose text starts at \a column of \a line.
    void begin(QStringView line, qsizetype column, int lineNumber);
    void append(QStringView line);
    /// The comment's text ends before \a column of the line that came last.
    void end(qsizetype column, int lineNumber);
    /// The comment's text ends with the line that came last: the file ended.
    void endAtLineEnd(int lineNumber) { m_lastLine = lineNumber; }
    void clear();

    [[nodiscard]] bool isPresent() const { return m_firstLine >= 0; }
    [[nodiscard]] int firstLine() const { return m_firstLine; } ///< -1 without a comment
    [[nodiscard]] int lastLine() const { return m_lastLine; }   ///< -1 without a comment
    /// The text between the delimiters, lines joined by "\n".
    [[nodiscard]] QString text() const { return QString(m_text.constData(), m_text.size()); }
    /// The first two characters that are no white space; null where there is none.
    [[nodiscard]] std::array<QChar, 2> firstCharacters() const;

    /// Whether the comment is attached to a declaration on \a line, which is counted from 0.
    /// Comparing it with a line counted from 1 is wanted: one blank line may stand between.
    [[nodiscard]] bool reaches(int line) const { return isPresent() && line - m_lastLine < 2; }

private:
    QString m_text;            // its memory serves one comment after the other
    qsizetype m_lineBegin = 0; // where the line that came last begins in m_text, if it were there whole
    int m_firstLine = -1;
    int m_lastLine = -1;
};

} // namespace tavidoc
