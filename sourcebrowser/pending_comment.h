#pragma once

#include <QString>

#include <array>
#include <vector>

/// A block comment that waits for the declaration after it. Lines are kept as they were read;
/// the text is put together only when somebody asks. Lines are counted from 1.
class SourceBrowserPendingComment
{
public:
    /// Begins a comment whose text starts at \a column of \a line.
    void begin(const QString &line, qsizetype column, int lineNumber);
    void append(const QString &line) { m_lines.push_back(line); }
    /// The comment's text ends before \a column of the line that came last.
    void end(qsizetype column, int lineNumber);
    /// The comment's text ends with the line that came last: the file ended.
    void endAtLineEnd(int lineNumber) { end(m_lines.back().size(), lineNumber); }
    void clear();

    [[nodiscard]] bool isPresent() const { return m_firstLine >= 0; }
    [[nodiscard]] int firstLine() const { return m_firstLine; } ///< -1 without a comment
    [[nodiscard]] int lastLine() const { return m_lastLine; }   ///< -1 without a comment
    /// The text between the delimiters, lines joined by "\n".
    [[nodiscard]] QString text() const;
    /// The first two characters that are no white space; null where there is none.
    [[nodiscard]] std::array<QChar, 2> firstCharacters() const;

    /// Whether the comment is attached to a declaration on \a line, which is counted from 0.
    /// Comparing it with a line counted from 1 is wanted: one blank line may stand between.
    [[nodiscard]] bool reaches(int line) const { return isPresent() && line - m_lastLine < 2; }

private:
    [[nodiscard]] QStringView lineText(size_t index) const;

    std::vector<QString> m_lines;
    qsizetype m_firstColumn = 0;
    qsizetype m_endColumn = 0;
    int m_firstLine = -1;
    int m_lastLine = -1;
};
