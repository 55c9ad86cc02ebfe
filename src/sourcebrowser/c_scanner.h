#pragma once

#include "sourcebrowser/events.h"
#include "sourcebrowser/line_iterator.h"
#include "sourcebrowser/line_statistics.h"
#include "sourcebrowser/pending_comment.h"
#include "sourcebrowser/tokens.h"

#include <QStringList>

#include <deque>
#include <vector>

namespace tavidoc {

class SourceBrowserModel;

/// An overview comment: "!!" and "! \overview" comments describe the whole file.
struct SourceBrowserOverviewComment
{
    QString text;      ///< without the delimiters and the marks it begins with
    int firstLine = 0; ///< counted from 1
};

/// Turns the lines of one header into tokens. What happens between tokens happens here: lines
/// are counted, directives reported and macros stored, comments kept for the next declaration.
/// Borrows everything it is given; one scanner reads one file.
class SourceBrowserCScanner
{
public:
    /// \a lines delivers the text. \a events and \a model may be null. \a file names the file in
    /// the macros.
    SourceBrowserCScanner(SourceBrowserLineIterator &lines, QString file, SourceBrowserEventInterface *events,
                          SourceBrowserModel *model, SourceBrowserLineStatistics &statistics, QStringList fixmeWords);

    /// The code of the next token; pushed-back tokens come first.
    int nextToken();
    /// The text of the token that nextToken() delivered.
    [[nodiscard]] QString tokenText() const { return m_token.text.toString(); }
    /// Queues a token; the first one in is the first one out.
    void pushBack(int code, const QString &text);
    /// While on, every identifier is an Identifier and none is dropped.
    void setKeywordFree(bool keywordFree) { m_keywordFree = keywordFree; }

    /// The same with places, and with Skipped and the conditional codes. The texts of tokens
    /// stay until releaseLines().
    SourceBrowserTokenRecord read();
    /// How many more braces the rest of the file closes than it opens. Reads it ahead, once.
    int closersAhead();
    /// The tokens read so far are not used any more.
    void releaseLines();
    /// While off, the texts of the tokens that follow are not kept beyond their line.
    void keepLines(bool keep);

    [[nodiscard]] SourceBrowserPendingComment &pendingComment() { return m_comment; }
    /// All overview comments one after the other, without a separator.
    [[nodiscard]] QString overview() const;
    [[nodiscard]] const std::vector<SourceBrowserOverviewComment> &overviewComments() const { return m_overview; }
    /// The name that the last region comment gave; empty outside a region.
    [[nodiscard]] const QString &region() const { return m_region; }
    /// The line that is being read, counted from 1; 0 before the first.
    [[nodiscard]] int line() const { return m_lineNumber; }

private:
    // Tokens.
    SourceBrowserTokenRecord readWord();
    SourceBrowserTokenRecord readLiteral(qsizetype start);
    SourceBrowserTokenRecord readRawString(qsizetype start);
    SourceBrowserTokenRecord readNumber();
    SourceBrowserTokenRecord readPunctuation();
    [[nodiscard]] SourceBrowserTokenRecord makeToken(int code, qsizetype start);
    [[nodiscard]] char16_t at(qsizetype column) const { return column < m_size ? m_units[column] : u'\n'; }

    // Lines and what stands between tokens.
    bool readPlainLine();
    bool takeLineAhead();
    bool readNextLine();
    void readDirective();
    void appendContinuation(QString &directive);
    void finishDirectiveComment(QString &directive);
    void noteConditional(QStringView word);
    void captureMacro(const QString &directive, int line);
    void skipLineComment();
    void readBlockComment();
    void judgeComment();
    void beginRegion(const QString &name);
    void endRegion();
    void addOverview();

    SourceBrowserLineIterator &m_lines;
    QString m_file;
    SourceBrowserEventInterface *m_events;
    SourceBrowserModel *m_model;
    SourceBrowserLineStatistics &m_statistics;
    QStringList m_fixmeWords;

    std::deque<QString> m_ahead; ///< lines that were read ahead
    QString m_line;
    const char16_t *m_units = nullptr; ///< of m_line
    qsizetype m_size = 0;              ///< of m_line
    qsizetype m_column = 0;
    int m_lineNumber = 0;
    std::vector<QString> m_kept; ///< earlier lines that tokens still look into
    bool m_keepLines = true;
    bool m_lineIsUsed = false; ///< tokens look into m_line
    bool m_blankBefore = false;
    bool m_keywordFree = false;
    int m_conditional = 0; ///< a conditional token to deliver before the next one
    int m_conditionalLine = 0;

    SourceBrowserTokenRecord m_token;
    std::deque<std::pair<int, QString>> m_pushedBack;
    QString m_pushedText;
    SourceBrowserPendingComment m_comment;
    std::vector<SourceBrowserOverviewComment> m_overview;
    QString m_region;
};

} // namespace tavidoc
