#pragma once

#include "docgen/action_names.h"
#include "docgen/contents.h"
#include "docgen/output_record.h"
#include "docgen/properties.h"
#include "docgen/report.h"
#include "docgen/xml_pp.h"
#include "driver/path.h"

#include <QString>
#include <QStringList>

class MacroContext;

/// Turns one input file into output records. Made for one file: constructed, run once,
/// destroyed.
class DocGen
{
public:
    DocGen();
    virtual ~DocGen();
    DocGen(const DocGen &) = delete;
    DocGen &operator=(const DocGen &) = delete;

    /// Documents \a input: a markup source (complete suffix "dg") or a header ("h"); any other
    /// file yields nothing. Finished files are appended to \a records. \a macros may be null:
    /// then no line is expanded. With a \a splitFlag of 1 pages get their frame and a header its
    /// own page; with 0 they do not. \a outputFormat is what "@html" and "@print" ask for.
    /// \a exclusions names declarations of a header that are not documented. Throws HException.
    void run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
             OutputRecords &records, const QString &outputFormat, const QStringList &exclusions);

    /// The heading level of the titles of a document that is not split into pages; 0 at first.
    void setBaseHeadingLevel(int level) { m_baseHeadingLevel = level; }
    /// Where messages go; the standard output at first.
    void setMessageSink(MessageSink sink);

    /// The definitions that are shared by all documents of the process. Loading fills them, file
    /// by file; nothing empties them.
    static XmlPP m_xpp;              ///< the documents themselves
    static ActionNames m_messageMap; ///< what they say about actions
    static Properties m_properties;  ///< what they say about properties

private:
    void loadDefinitions(const Path &input);
    void documentMarkup(MacroContext *macros, const Path &input);
    void documentHeader(const Path &input, const QStringList &exclusions);

    QString m_outputDirectory;
    OutputRecords *m_records = nullptr; // the caller's
    int m_splitFlag = 1;
    int m_baseHeadingLevel = 0;
    QString m_outputFormat = QStringLiteral("html");
    Contents m_contents; // of all runs of this object
    MessageSink m_sink = printMessage;
};
