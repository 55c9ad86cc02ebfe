#pragma once

/*!!
 * \h1 doc_gen.h
 *
 * The generator: one input file in, finished pages out. This is all that a program needs to make pages by itself:
 *
 * \code
 * #include "docgen/doc_gen.h"
 *
 * OutputRecords records;
 * DocGen document;
 * document.run(nullptr, 1, Path(u"book.dg"_s), u"out"_s, records, {}, {});
 * for (const OutputRecord &record : records)
 *     save(record.fileName, record.text);
 * \endcode
 *
 * Nothing is written to the disk but the icons that a page shows. The records hold more than the command line writes:
 * the tree of contents, as a file of XML, is among them.
 */

#include "base/path.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "definitions/xml_pp.h"
#include "pages/contents.h"
#include "pages/output_record.h"
#include "reading/report.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tavidoc {

class MacroContext;

/*!
 * \h1 \this
 * Turns one input file into output records. Made for one file: constructed, run once, destroyed.
 *
 * \note
 * Objects share the definitions of menus, keys and properties, so only one may run at a time.
 * \sa \xref{doc_gen_h}{doc_gen.h}
 * \ingroup \this
 */
class DocGen
{
public:
    DocGen();
    virtual ~DocGen();
    DocGen(const DocGen &) = delete;
    DocGen &operator=(const DocGen &) = delete;

    /*!
     * \h1 DocGen::\this
     * \brief Documents one file.
     *
     * \synopsis
     *
     * \param{macros} expands the lines of a source, see \xref{../macro_context/MacroContext.htm}{MacroContext}; null:
     * no line is expanded.
     *
     * \param{splitFlag} 1: pages get their frame, and a header gets its own page and its contents; 0: they do not.
     *
     * \param{input} a markup source (complete suffix \tt{dg}) or a header (\tt{h}). Any other file yields nothing, and
     * one that cannot be read is empty.
     *
     * \param{outputDirectory} the directory under which the file names of the records are formed.
     *
     * \param{records} where finished files are appended.
     *
     * \param{outputFormat} what \tt{@html} and \tt{@print} ask for; empty on the command line.
     *
     * \param{exclusions} names of declarations of a header that are not documented although their comments say so.
     *
     * \errors
     * \xref{../hexception/HException.htm}{HException} when the run cannot go on. What is wrong in the markup is no such
     * error: it goes to the \xref{setMessageSink}{message sink}.
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
             OutputRecords &records, const QString &outputFormat, const QStringList &exclusions);

    /*!
     * \h1 DocGen::\this
     * The heading level of the titles of a document that is not split into pages; 0 at first.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setBaseHeadingLevel(int level) { m_baseHeadingLevel = level; }
    /*!
     * \h1 DocGen::\this
     * Where messages go, line by line; the standard output at first. \a{sink} is any function that takes
     * a \tt{std::string_view}, a whole line with its line end.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setMessageSink(MessageSink sink);
    /*!
     * \h1 DocGen::\this
     * Where included files that cannot be read are reported, and definition files that are missing though a command looks
     * something up in them: lines of the form of error messages. Nowhere at first, since both are allowed: what is
     * not there is empty. A presented or copied file that is missing is an error in the markup, which goes to the
     * \xref{setMessageSink}{message sink}.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setMissingFileSink(MessageSink sink);

    /*!
     * \h1 DocGen::\this
     * The definitions that are shared by all documents of the process, as XML. Loading fills them, file by file;
     * nothing empties them.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    static XmlPP m_xpp;              ///< the documents themselves
    static ActionNames m_messageMap; ///< what they say about actions
    static Properties m_properties;  ///< what they say about properties

private:
    void loadDefinitions(const Path &input);
    [[nodiscard]] MissingFiles *missingFiles() { return m_missing ? &*m_missing : nullptr; }
    void documentMarkup(MacroContext *macros, const Path &input);
    void documentHeader(const Path &input, const QStringList &exclusions);

    QString m_outputDirectory;
    OutputRecords *m_records = nullptr; // the caller's
    int m_splitFlag = 1;
    int m_baseHeadingLevel = 0;
    QString m_outputFormat = QStringLiteral("html");
    Contents m_contents; // of all runs of this object
    MessageSink m_sink = printMessage;
    std::optional<MissingFiles> m_missing; // without a value nobody asks
};

} // namespace tavidoc
