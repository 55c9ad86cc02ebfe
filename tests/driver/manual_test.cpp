#include "docgen/doc_gen.h"
#include "docgen/translator.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QString manualFile(const QString &name)
{
    return QStringLiteral(TAVIDOC_SOURCE_DIR "/docs/manual/") + name;
}

/// Whether \a page belongs to a chapter that manual.dg includes and that nobody has written yet.
bool isStillToBeWritten(QString page)
{
    const QString source = page.replace(u".htm"_s, u".dg"_s);
    return !QFile::exists(manualFile(source)) && textOf(manualFile(u"manual.dg"_s)).contains(u"\\include "_s + source);
}

/// Whether a link of one of the \a pages leads to a page or to a file of the manual.
bool leadsSomewhere(const QString &target, const QDir &pages)
{
    return target.startsWith(u"https:"_s) || target == u"default.css"_s || pages.exists(target) ||
           QFile::exists(manualFile(target)) || isStillToBeWritten(target);
}

/// What a run over \a source makes: its records, and the messages in \a messages.
OutputRecords recordsOf(const QString &source, std::string &messages)
{
    OutputRecords records;
    DocGen document;
    document.setMessageSink([&messages](std::string_view line) { messages += line; });
    document.run(nullptr, 1, Path(source), u"out"_s, records, {}, {});
    return records;
}

} // namespace

TEST(Manual, BuildsWithoutAnErrorAndEveryLinkLeadsSomewhere)
{
    const QTemporaryDir output;
    QProcess program;
    program.setWorkingDirectory(manualFile({}));
    program.start(QStringLiteral(TAVIDOC_PROGRAM), {u"-o"_s, output.path(), u"manual.dg"_s});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.readAllStandardError(), "");
    // Deliberate: that example shows actions that have a key and stand in no menu.
    const QByteArray keyOnly = "warning: docgen: examples/choose.dg:";
    for (const QByteArray &line : program.readAllStandardOutput().split('\n'))
        EXPECT_TRUE(line.isEmpty() || (line.startsWith(keyOnly) && line.endsWith(" in any menu"))) << line.data();

    const QDir pages(output.path());
    const QStringList files = pages.entryList({u"*.htm"_s});
    EXPECT_GE(files.size(), 14);
    static const QRegularExpression link(u"(?:href|src)=\"([^\"]*)\""_s);
    for (const QString &file : files) {
        const QString html = textOf(pages.filePath(file));
        for (const QRegularExpressionMatch &match : link.globalMatch(html))
            EXPECT_TRUE(leadsSomewhere(match.captured(1), pages))
                << qPrintable(file) << " links to " << qPrintable(match.captured(1));
    }
}

TEST(Manual, TheTableOfAllCommandsNamesEveryCommand)
{
    const QString table = textOf(manualFile(u"commands.dg"_s));
    for (const Translator::Command &command : Translator::commands()) {
        const QString name = QString::fromUtf8(command.name.data(), qsizetype(command.name.size()));
        const QRegularExpression mention(
            u"\\\\tt\\{\\\\\\\\\\\\?%1(?![A-Za-z0-9])"_s.arg(QRegularExpression::escape(name)));
        EXPECT_TRUE(mention.match(table).hasMatch()) << "\\" << qPrintable(name);
    }
}

TEST(Manual, TheResultsThatItShowsAsFilesAreTrue)
{
    std::string messages;
    const OutputRecords kettleBook = recordsOf(manualFile(u"examples/pages.dg"_s), messages);
    EXPECT_EQ(kettleBook.back().text + '\n', textOf(manualFile(u"examples/contents.xml"_s)).toUtf8());
    EXPECT_EQ(messages, "");

    const QTemporaryDir folder;
    QFile source(folder.filePath(u"kettle.dg"_s));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("\\split{index}\n\n\n\n" + textOf(manualFile(u"examples/errors.txt"_s)).toUtf8());
    source.close();
    const OutputRecords wrong = recordsOf(source.fileName(), messages);
    const QByteArray page = textOf(manualFile(u"examples/errors.htm"_s)).trimmed().toUtf8();
    EXPECT_TRUE(wrong.front().text.contains(page)) << wrong.front().text.data();
    EXPECT_EQ(QString::fromStdString(messages).remove(folder.path() + u'/'),
              textOf(manualFile(u"examples/errors.log"_s)));
}
