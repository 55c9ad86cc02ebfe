#pragma once

/*!!
 * \h1 doc_gen.h
 *
 * The generator: one input file in, finished pages out. A program of your own makes pages like this:
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
 * The only files that a run writes are the icons that pages show. The records include the tree of contents, an XML
 * file, which the command line does not write.
 */

#include "base/path.h"
#include "pages/output_record.h"
#include "reading/message.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace tavidoc {

class ActionNames;
class Contents;
class DocumentListener;
enum class ReferenceNames;
class MacroContext;
class OutputQueue;
class OutputSink;
class Properties;
class XmlPP;
struct MissingFiles;

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
     * \param{macros} expands the lines of a source, see \xref{../macro_context/macro_context_h.htm}{MacroContext}; null:
     * no line is expanded.
     *
     * \param{splitFlag} 1: pages get their frame, and a header gets its own page and its contents; 0: they do not.
     *
     * \param{input} a markup source (complete suffix \tt{dg}) or a header (\tt{h}). Any other file yields nothing, and
     * a file that cannot be read is treated as empty.
     *
     * \param{outputDirectory} the directory under which the file names of the records are formed.
     *
     * \param{records} where finished files are appended.
     *
     * \param{outputFormat} the format that \tt{@html} and \tt{@print} test for; empty on the command line.
     *
     * \param{exclusions} names of declarations of a header that are not documented even if their comments begin with "!".
     *
     * \errors
     * \xref{../hexception/hexception_h.htm}{HException} when the run cannot go on. Errors in the markup do not end it: they
     * go to the \xref{setMessageSink}{message sink}.
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
             OutputRecords &records, const QString &outputFormat, const QStringList &exclusions);
    /// The same, but each file goes to \a sink when it is finished, so that a large document is not kept in memory;
    /// if the run may fail later or read files, then at the end. A run that fails hands nothing out.
    void run(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory, OutputSink &sink,
             const QString &outputFormat, const QStringList &exclusions);

    /*!
     * \h1 DocGen::\this
     * The heading level of the titles of a document that is not split into pages; 0 by default.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setBaseHeadingLevel(int level) { m_baseHeadingLevel = level; }
    /*!
     * \h1 DocGen::\this
     * Sets the receiver of messages. By default they are \xref{../message/message_h.htm}{printed} to the standard
     * output.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setMessageSink(MessageSink sink);
    /*!
     * \h1 DocGen::\this
     * Sets the receiver of errors about included files that cannot be read, and about missing definition files that a
     * command needs. By default they are not reported, since both are allowed: a missing file is empty. A missing
     * presented or copied file is an error in the markup, which goes to the \xref{setMessageSink}{message sink}.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    void setMissingFileSink(MessageSink sink);
    /// Sets the listener that is told about pages, links, images, contents, files and findings. Icons go to it
    /// and are not written. Null, the default: nobody is told, and nothing is gathered. Borrowed.
    void setListener(DocumentListener *listener) { m_listener = listener; }

    /*!
     * \h1 DocGen::\this
     * The definitions that are shared by all documents of the process, as XML. Runs add files to them; nothing is
     * ever removed.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    static XmlPP m_xpp;              ///< the documents themselves
    static ActionNames m_messageMap; ///< the actions that they describe
    static Properties m_properties;  ///< the properties that they describe

    /*!
     * \h1 DocGen::\this
     * With \a{once}, the definition files in the directory of an input are looked for only when the first input in
     * that directory is run. By default they are looked for in each run, since they may have been created since.
     * \synopsis
     * \sa \xref{DocGen}
     * \ingroup DocGen
     */
    static void searchDirectoriesOnce(bool once);

    /// Sets how the pages of declarations are named; Bare by default.
    void setReferenceNames(ReferenceNames names) { m_referenceNames = names; }

private:
    void makeFiles(MacroContext *macros, int splitFlag, const Path &input, const QString &outputDirectory,
                   OutputQueue &output, const QString &outputFormat, const QStringList &exclusions);
    void loadDefinitions(const Path &input);
    void documentMarkup(MacroContext *macros, const Path &input);
    void documentHeader(const Path &input, const QStringList &exclusions);

    QString m_outputDirectory;
    OutputQueue *m_output = nullptr; // of the run
    int m_splitFlag = 1;
    int m_baseHeadingLevel = 0;
    QString m_outputFormat = QStringLiteral("html");
    std::unique_ptr<Contents> m_contents; // of all runs of this object
    MessageSink m_sink = printMessage;
    std::unique_ptr<MissingFiles> m_missing; // null: missing files are not reported
    DocumentListener *m_listener = nullptr;  // null: nobody is told
    ReferenceNames m_referenceNames{};       // Bare
};

} // namespace tavidoc
