#pragma once

#include "sourcebrowser/events.h"
#include "sourcebrowser/line_iterator.h"
#include "sourcebrowser/line_statistics.h"
#include "sourcebrowser/overview_comment.h"
#include "sourcebrowser/pending_comment.h"
#include "sourcebrowser/tokens.h"

#include <QStringList>

#include <deque>
#include <vector>

namespace tavidoc {

class SourceBrowserModel;

/// Turns the lines of one header into tokens. Between tokens it counts lines, reports directives, stores
/// macros and keeps the last comment for the next declaration. One scanner reads one file; it borrows its
/// arguments.
class SourceBrowserCScanner
{
public:
    /// \a lines delivers the text. \a events and \a model may be null. \a file becomes the file of the macros.
    SourceBrowserCScanner(SourceBrowserLineIterator &lines, QString file, SourceBrowserEventInterface *events,
                          SourceBrowserModel *model, SourceBrowserLineStatistics &statistics, QStringList fixmeWords);

    /// Reads the next token and returns its code. Pushed-back tokens come first.
    int nextToken();
    /// The text of the token that nextToken() returned last.
    [[nodiscard]] QString tokenText() const { return m_token.text.toString(); }
    /// Queues a token, first in, first out.
    void pushBack(int code, const QString &text);
    /// While on, every word is an Identifier and none is dropped.
    void setKeywordFree(bool keywordFree) { m_keywordFree = keywordFree; }

    /// Reads the next token with its place, Skipped and the conditionals included. Its text is valid until
    /// releaseLines().
    SourceBrowserTokenRecord read();
    /// How many more braces the rest of the file closes than it opens. Reads the whole rest ahead.
    int closersAhead();
    /// Invalidates the texts of all tokens read so far.
    void releaseLines();
    /// While off, the texts of the following tokens are valid on their line only.
    void keepLines(bool keep);

    [[nodiscard]] SourceBrowserPendingComment &pendingComment() { return m_comment; }
    /// All overview comments, concatenated.
    [[nodiscard]] QString overview() const;
    [[nodiscard]] const std::vector<SourceBrowserOverviewComment> &overviewComments() const { return m_overview; }
    /// The first lines, counted from 1, of the comments that begin with "!" and are kept for a declaration.
    [[nodiscard]] const std::vector<int> &documentationLines() const { return m_documentationLines; }
    /// The current line, counted from 1; 0 before the first.
    [[nodiscard]] int line() const { return m_lineNumber; }

private:
    // Tokens.
    SourceBrowserTokenRecord readWord();
    SourceBrowserTokenRecord readLiteral(qsizetype start);
    SourceBrowserTokenRecord readRawString(qsizetype start);
    SourceBrowserTokenRecord readNumber();
    SourceBrowserTokenRecord readPunctuation();
    /// The token from \a start to m_column.
    [[nodiscard]] SourceBrowserTokenRecord makeToken(int code, qsizetype start)
    {
        m_lineIsUsed |= m_keepLines;
        return {.text = QStringView(m_units + start, m_column - start),
                .code = code,
                .line = m_lineNumber,
                .column = static_cast<int>(start),
                .blankBefore = m_blankBefore};
    }
    [[nodiscard]] char16_t at(qsizetype column) const { return column < m_size ? m_units[column] : u'\n'; }

    // Lines, directives and comments.
    bool readPlainLine();
    bool takeLineAhead();
    bool readNextLine();
    void readDirective();
    void appendContinuation(QString &directive);
    void finishDirectiveComment(QString &directive);
    void noteConditional(QStringView word);
    void captureMacro(const QString &directive, qsizetype wordEnd, int line);
    void skipLineComment();
    void readBlockComment();
    void finishComment();
    void beginRegion(const QString &name);
    void endRegion();
    void addOverview();

    SourceBrowserLineIterator &m_lines;
    QString m_file;
    SourceBrowserEventInterface *m_events;
    SourceBrowserModel *m_model;
    SourceBrowserLineStatistics &m_statistics;
    QStringList m_fixmeWords;

    std::deque<QString> m_ahead; ///< lines read ahead
    QString m_line;
    const char16_t *m_units = nullptr; ///< of m_line
    qsizetype m_size = 0;              ///< of m_line
    qsizetype m_column = 0;
    qsizetype m_firstColumn = 0; ///< of m_line that is not blank; m_size if there is none
    int m_lineNumber = 0;
    std::vector<QString> m_kept; ///< earlier lines that hold the texts of tokens
    bool m_keepLines = true;
    bool m_lineIsUsed = false; ///< m_line holds the texts of tokens
    bool m_blankBefore = false;
    bool m_keywordFree = false;
    int m_conditional = 0; ///< code of a conditional to deliver before the next token; 0 for none
    int m_conditionalLine = 0;

    SourceBrowserTokenRecord m_token;
    std::deque<std::pair<int, QString>> m_pushedBack;
    QString m_pushedText;
    SourceBrowserPendingComment m_comment;
    std::vector<SourceBrowserOverviewComment> m_overview;
    std::vector<int> m_documentationLines;
};

} // namespace tavidoc
