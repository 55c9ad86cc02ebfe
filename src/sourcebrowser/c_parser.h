#pragma once

/*!!
 * \h1 c_parser.h
 *
 * The parser of C and C++ declarations. A derived class delivers the lines:
 *
 * \code
 * class FileParser : public SourceBrowserCParser
 * {
 * public:
 *     FileParser(SourceBrowserModel *model, QTextStream &lines) : SourceBrowserCParser(model), m_lines(lines) {}
 *     bool readLine(QString &line) override { return m_lines.readLineInto(&line); }
 *
 * private:
 *     QTextStream &m_lines;
 * };
 * \endcode
 */

#include "sourcebrowser/events.h"
#include "sourcebrowser/line_iterator.h"
#include "sourcebrowser/model.h"
#include "sourcebrowser/overview_comment.h"

namespace tavidoc {

/*!
 * \h1 \this
 * Reads the declarations of one header after the other, without preprocessing, stores them in the model and reports
 * them to a listener. It accepts any text and throws nothing; what it does not understand is skipped to the end of
 * the declaration.
 * \sa \xref{c_parser_h}{c_parser.h}
 * \ingroup \this
 */
class SourceBrowserCParser : public SourceBrowserLineIterator
{
public:
    /// Borrows both; each may be null.
    explicit SourceBrowserCParser(SourceBrowserModel *model, SourceBrowserEventInterface *events = nullptr);
    ~SourceBrowserCParser() override;

    /*!
     * \h1 SourceBrowserCParser::\this
     * Also declares what belongs to C++ only: aliases, deduction guides, every namespace of \tt{namespace a::b}, specialisations
     * of class templates under names of their own, overloads of virtual methods, and classes of one name in the branches of a
     * conditional. The comment before a function belongs to it wherever its body begins.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    void setComplete(bool isComplete) { m_isComplete = isComplete; }

    /*!
     * \h1 SourceBrowserCParser::\this
     * Reads one file, whose lines come from \xref{../line_iterator/line_iterator_h.htm}{readLine}. Earlier declarations of
     * the same file are removed from the model. A line comment that begins with one of \a{fixmeWords} is an event.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    void parse(const QString &file, const QStringList &fixmeWords = {});

    /*!
     * \h1 SourceBrowserCParser::\this
     * Called at the beginning of a file, with "Parsing " and the name of the file. Does nothing unless overridden.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void beginGroup(const QString &text);
    /*!
     * \h1 SourceBrowserCParser::\this
     * A complaint about \a{file}; \a{line} is counted from 1. Does nothing unless overridden.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void addResult(const QString &file, int line, const QString &message);
    /*!
     * \h1 SourceBrowserCParser::\this
     * Called at the end of a file. Does nothing unless overridden.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void endGroup();

    /*!
     * \h1 SourceBrowserCParser::\this
     * The overview comments of the last file, concatenated.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] const QString &overview() const { return m_overview; }
    /*!
     * \h1 SourceBrowserCParser::\this
     * The overview comments of the last file, one by one.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] const std::vector<SourceBrowserOverviewComment> &overviewComments() const
    {
        return m_overviewComments;
    }
    /// The first lines, counted from 1, of the documentation comments of the last file, with those that belong to no
    /// declaration.
    [[nodiscard]] const std::vector<int> &documentationLines() const { return m_documentationLines; }
    /*!
     * \h1 SourceBrowserCParser::\this
     * The lines of the last file, by kind.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] const SourceBrowserLineStatistics &statistics() const { return m_statistics; }
    /*!
     * \h1 SourceBrowserCParser::\this
     * The model passed to the constructor; may be null.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] SourceBrowserModel *model() const { return m_model; }

private:
    SourceBrowserModel *m_model;
    SourceBrowserEventInterface *m_events;
    bool m_isComplete = false;
    SourceBrowserLineStatistics m_statistics;
    QString m_overview;
    std::vector<SourceBrowserOverviewComment> m_overviewComments;
    std::vector<int> m_documentationLines;
};

} // namespace tavidoc
