// Lists what a document is made from, as a rule for a build program, and says what is wrong in it
// the way compilers do.

#include "base/hexception.h"
#include "base/source_text.h"
#include "base/whole_file.h"
#include "docgen/doc_gen.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <langinfo.h>

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

/// Qt speaks up on the standard error when the locale's character set is not UTF-8.
void makeLocaleUtf8()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0)
        ::setenv("LC_ALL", "C.UTF-8", 1);
}

/// Ends the process after "--help" and "--version" and when the arguments are wrong.
Request requestOf(const QCoreApplication &application)
{
    const QCommandLineOption target(
        u"t"_s, u"The target of the rule; without it, the source with \".stamp\" behind it."_s, u"target"_s);
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

/// \a name as it stands in a rule.
QByteArray escapedName(const QString &name)
{
    QByteArray escaped;
    for (const char c : name.toUtf8()) {
        if (c == ' ' || c == '#')
            escaped += '\\';
        escaped += c == '$' ? "$$" : QByteArray(1, c);
    }
    return escaped;
}

/// The rule, and an empty one for each file, so that make goes on when the file is gone.
QByteArray ruleText(const QString &target, const QStringList &files)
{
    QByteArray rule = escapedName(target) + ':';
    for (const QString &file : files)
        rule += " \\\n  " + escapedName(file);
    rule += '\n';
    for (const QString &file : files)
        rule += escapedName(file) + ":\n";
    return rule;
}

/// Where in \a text, "FILE:LINE: MESSAGE", the colon before LINE stands; npos without a place.
std::size_t lineColon(std::string_view text)
{
    constexpr std::string_view digits = "0123456789";
    for (std::size_t colon = text.find(':'); colon != std::string_view::npos; colon = text.find(':', colon + 1)) {
        const std::size_t end = text.find_first_not_of(digits, colon + 1);
        if (end != std::string_view::npos && end > colon + 1 && text.substr(end, 2) == ": ")
            return colon;
    }
    return std::string_view::npos;
}

/// Writes messages to the standard error, "FILE:LINE: error: MESSAGE", with the whole path.
class CompilerMessages
{
public:
    explicit CompilerMessages(const QString &source) : m_source(absolute(source).toStdString()) {}

    /// \a line is "KIND: docgen: FILE:LINE: MESSAGE", or has no place; line end included.
    void print(std::string_view line)
    {
        constexpr std::string_view separator = ": docgen: ";
        const std::size_t kindEnd = line.find(separator);
        if (kindEnd == std::string_view::npos)
            return;
        const std::string_view kind = line.substr(0, kindEnd);
        m_hasErrors = m_hasErrors || kind == "error";
        std::string_view text = line.substr(kindEnd + separator.size());
        std::string place = m_source;
        if (const std::size_t colon = lineColon(text); colon != std::string_view::npos) {
            const std::size_t placeEnd = text.find(':', colon + 1);
            const QString file = QString::fromUtf8(text.data(), static_cast<qsizetype>(colon));
            place = absolute(file).toStdString().append(text.substr(colon, placeEnd - colon));
            text.remove_prefix(placeEnd + 2);
        }
        place.append(": ").append(kind).append(": ").append(text);
        std::fwrite(place.data(), 1, place.size(), stderr); // a name may hold a NUL
    }

    [[nodiscard]] bool hasErrors() const { return m_hasErrors; }

private:
    std::string m_source;
    bool m_hasErrors = false;
};

/// \a name, or for what is not there the nearest directory above it that is: a build program takes
/// a missing file for one that changes all the time, while the directory changes when it appears.
QString presentPath(QString name)
{
    while (!QFileInfo::exists(name) && name.size() > 1)
        name.truncate(std::max(name.lastIndexOf(u'/'), qsizetype(1)));
    return name;
}

/// Reports a \a source that cannot be read: there is nothing to make pages from, while tavidoc
/// deliberately takes it for an empty one.
void checkSource(const QString &source, CompilerMessages &messages)
{
    const QFileInfo file(source);
    if (!file.isFile() || !file.isReadable())
        messages.print("error: docgen: the file cannot be opened\n");
}

/// Translates \a source, tells \a messages, and gives the files that it was made from, by whole
/// path, each once.
QStringList filesOf(const QString &source, CompilerMessages &messages)
{
    const QTemporaryDir images; // the icons are made anew with the pages
    QStringList files;
    OutputRecords records;
    DocGen document;
    const MessageSink sink = [&messages](std::string_view line) { messages.print(line); };
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
    const QByteArray rule = ruleText(request.target, filesOf(request.source, messages));
    if (request.ruleFile.isEmpty())
        std::fputs(rule.constData(), stdout);
    else
        writeWholeFile(request.ruleFile, rule);
    return request.failsOnError && messages.hasErrors() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    makeLocaleUtf8();
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
