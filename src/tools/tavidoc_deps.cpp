// Lists the files that a document is made from as a rule for a build program, and reports errors in the format of
// compilers.

#include "base/hexception.h"
#include "base/make_rule.h"
#include "base/whole_file.h"
#include "docgen/doc_gen.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

struct Request
{
    QString source;
    QString target;
    QString ruleFile; ///< empty: the standard output
    bool failsOnError = false;
};

/// Exits after "--help" and "--version" and when the arguments are wrong.
Request requestOf(const QCoreApplication &application)
{
    const QCommandLineOption target(
        u"t"_s, u"The target of the rule; without it, the source with \".stamp\" appended."_s, u"target"_s);
    const QCommandLineOption ruleFile(u"o"_s, u"Write the rule to this file."_s, u"file"_s);
    const QCommandLineOption failing(u"fail-on-error"_s,
                                     u"End with status 1 when the document has errors or a file is missing."_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Lists the files that a document is made from, as a rule for make."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({target, ruleFile, failing});
    parser.addPositionalArgument(u"source"_s, u"A markup source (.dg) or a header (.h)."_s);
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(EXIT_FAILURE);
    const QString source = parser.positionalArguments().constFirst();
    return {source, parser.isSet(target) ? parser.value(target) : source + u".stamp"_s, parser.value(ruleFile),
            parser.isSet(failing)};
}

QString absolute(const QString &name)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(name));
}

/// Writes messages to the standard error, "FILE:LINE: error: TEXT", with the absolute path.
class CompilerMessages
{
public:
    /// \a source is the file of messages without a position.
    explicit CompilerMessages(const QString &source) : m_source(absolute(source).toStdString()) {}

    void print(const Message &message)
    {
        m_hasErrors = m_hasErrors || message.kind == Message::Kind::Error;
        std::string line = m_source;
        if (!message.file.empty())
            line = absolute(QString::fromStdString(message.file)).toStdString() + ':' + std::to_string(message.line);
        line.append(": ").append(nameOf(message.kind)).append(": ").append(message.text);
        std::ranges::replace(line, '\n', ' '); // names from the source may span lines
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stderr); // a name may contain a NUL
    }

    [[nodiscard]] bool hasErrors() const { return m_hasErrors; }

private:
    std::string m_source;
    bool m_hasErrors = false;
};

/// Reports a \a source that cannot be read, which tavidoc deliberately treats as an empty one.
void checkSource(const QString &source, CompilerMessages &messages)
{
    const QFileInfo file(source);
    if (!file.isFile() || !file.isReadable())
        messages.print({.kind = Message::Kind::Error, .file = {}, .line = 0, .text = "the file cannot be opened"});
}

/// Translates \a source and passes its messages on; returns the absolute paths of the files that it was made from,
/// each once.
QStringList filesOf(const QString &source, CompilerMessages &messages)
{
    const QTemporaryDir images; // the icons are written again with the pages
    QStringList files;
    OutputRecords records;
    DocGen document;
    const MessageSink sink = [&messages](const Message &message) { messages.print(message); };
    document.setMessageSink(sink);
    document.setMissingFileSink(sink);
    filesRead = &files;
    document.run(nullptr, 1, Path(source), images.path(), records, {}, {});
    filesRead = nullptr;
    for (QString &file : files)
        file = presentPath(absolute(file));
    files.removeDuplicates();
    return files;
}

int answer(const Request &request)
{
    CompilerMessages messages(request.source);
    checkSource(request.source, messages);
    const QByteArray rule = makeRule(request.target, filesOf(request.source, messages));
    if (request.ruleFile.isEmpty())
        std::fputs(rule.constData(), stdout);
    else
        writeWholeFile(request.ruleFile, rule);
    return request.failsOnError && messages.hasErrors() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    ::setenv("LC_ALL", "C.UTF-8", 1); // Qt prints a warning when the locale's character set is not UTF-8
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TAVIDOC_VERSION));
    const Request request = requestOf(application);
    try {
        return answer(request);
    } catch (const HException &exception) {
        std::fprintf(stderr, "error: %s\n", exception.message().constData());
    } catch (const std::bad_alloc &) {
        std::fputs("error: out of memory\n", stderr);
    }
    return EXIT_FAILURE;
}
