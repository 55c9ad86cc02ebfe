#pragma once

#include <QString>

#include <array>

namespace tavidoc {

/// The last block comment, kept for the declaration after it. Lines are counted from 1.
class SourceBrowserPendingComment
{
public:
    /// Begins a comment whose text starts at \a column of \a line.
    void begin(QStringView line, qsizetype column, int lineNumber);
    void append(QStringView line);
    /// Ends the comment before \a column of the line added last.
    void end(qsizetype column, int lineNumber);
    /// Ends the comment with the line added last, because the file has ended.
    void endAtLineEnd(int lineNumber) { m_lastLine = lineNumber; }
    void clear();

    [[nodiscard]] bool isPresent() const { return m_firstLine >= 0; }
    [[nodiscard]] int firstLine() const { return m_firstLine; } ///< -1 if there is none
    [[nodiscard]] int lastLine() const { return m_lastLine; }   ///< -1 if there is none
    /// The text between the delimiters, lines joined by "\n".
    [[nodiscard]] QString text() const { return QString(m_text.constData(), m_text.size()); }
    /// The first two characters other than white space; null characters if there are fewer.
    [[nodiscard]] std::array<QChar, 2> firstCharacters() const;

    /// Whether the comment is attached to a declaration on \a line, which is counted from 0. Deliberate: it is
    /// compared with a line counted from 1, so one blank line may separate them.
    [[nodiscard]] bool reaches(int line) const { return isPresent() && line - m_lastLine < 2; }

private:
    QString m_text;            ///< keeps its memory from one comment to the next
    qsizetype m_lineBegin = 0; ///< index in m_text at which the line added last would begin if it were whole
    int m_firstLine = -1;
    int m_lastLine = -1;
};

} // namespace tavidoc
