#include "docgen/doc_gen.h"
#include "markup/command_table.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace tavidoc;

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

/// Whether the link \a target from a page in the directory \a pages is external or leads to a file of the manual.
bool leadsSomewhere(const QString &target, const QDir &pages)
{
    return target.startsWith(u"http:"_s) || pages.exists(target);
}

/// Runs the generator on \a source. Returns its records and appends its messages to \a messages.
OutputRecords recordsOf(const QString &source, std::string &messages)
{
    OutputRecords records;
    DocGen document;
    document.setMessageSink([&messages](const Message &message) { messages += formatted(message); });
    document.run(nullptr, 1, Path(source), u"out"_s, records, {}, {});
    return records;
}

} // namespace

TEST(Manual, BuildsWithItsReferencesWithoutAnErrorAndEveryLinkLeadsSomewhere)
{
    const QTemporaryDir output;
    QProcess script;
    script.start(manualFile(u"make-manual"_s), {QStringLiteral(TAVIDOC_PROGRAM), output.path()});
    ASSERT_TRUE(script.waitForFinished());
    EXPECT_EQ(script.exitCode(), 0);
    EXPECT_EQ(script.readAllStandardError(), "");
    // Deliberate: this example shows actions that have a key but are in no menu.
    const QByteArray keyOnly = "warning: docgen: examples/choose.dg:";
    for (const QByteArray &line : script.readAllStandardOutput().split('\n'))
        EXPECT_TRUE(line.isEmpty() || (line.startsWith(keyOnly) && line.endsWith(" in any menu"))) << line.data();

    int pageCount = 0;
    static const QRegularExpression link(u"(?:href|src)=\"([^\"]*)\""_s);
    for (QDirIterator files(output.path(), {u"*.htm"_s}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QFileInfo page(files.next());
        const QString html = textOf(page.filePath());
        for (const QRegularExpressionMatch &match : link.globalMatch(html))
            EXPECT_TRUE(leadsSomewhere(match.captured(1), page.dir()))
                << qPrintable(page.filePath()) << " links to " << qPrintable(match.captured(1));
        ++pageCount;
    }
    EXPECT_GE(pageCount, 40);
}

TEST(Manual, TheTableOfAllCommandsNamesEveryCommand)
{
    const QString table = textOf(manualFile(u"commands.dg"_s));
    for (const Command &command : CommandTable::rows()) {
        const QString name = QString::fromUtf8(command.name.data(), qsizetype(command.name.size()));
        const QRegularExpression mention(
            u"\\\\tt\\{\\\\\\\\\\\\?%1(?![A-Za-z0-9])"_s.arg(QRegularExpression::escape(name)));
        EXPECT_TRUE(mention.match(table).hasMatch()) << "\\" << qPrintable(name);
    }
}

TEST(Manual, TheOutputThatItPresentsFromFilesIsCurrent)
{
    std::string messages;
    const OutputRecords kettleBook = recordsOf(manualFile(u"examples/pages.dg"_s), messages);
    EXPECT_EQ(kettleBook.back().text + '\n', textOf(manualFile(u"examples/contents.xml"_s)).toUtf8());
    const OutputRecords kettle = recordsOf(manualFile(u"sessions/header/1/kettle.h"_s), messages);
    const QByteArray declaration = textOf(manualFile(u"examples/kettle.htm"_s)).trimmed().toUtf8();
    EXPECT_TRUE(kettle.front().text.contains(declaration)) << kettle.front().text.data();
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
