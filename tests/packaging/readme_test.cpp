#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString readme()
{
    QFile file(QStringLiteral(TAVIDOC_SOURCE_DIR "/README.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

/// Saves the files that the text describes, and returns their names.
QStringList saveFiles(const QString &text, const QDir &directory)
{
    static const QRegularExpression block(u"as `([\\w.]+)`:\n\n```\\w*\n(.*?)```\n"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    QStringList names;
    for (auto match = block.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        names.append(found.captured(1));
        QFile file(directory.filePath(names.back()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(found.captured(2).toUtf8());
    }
    return names;
}

TEST(Readme, TheTourPrintsWhatItSays)
{
    const QString text = readme();
    const QTemporaryDir directory;
    const QStringList names = saveFiles(text, QDir(directory.path()));
    ASSERT_EQ(names, QStringList({u"kettle.dg"_s, u"timer.h"_s}));
    ASSERT_TRUE(text.contains(u"\nbuild/tavidoc -v -o out kettle.dg timer.h\n"_s));
    QProcess program;
    program.setWorkingDirectory(directory.path());
    program.start(QStringLiteral(TAVIDOC_PROGRAM), {u"-v"_s, u"-o"_s, u"out"_s, names[0], names[1]});
    ASSERT_TRUE(program.waitForFinished());
    const QString printed = QString::fromUtf8(program.readAllStandardOutput());
    EXPECT_TRUE(text.contains(u"\n```\n"_s + printed + u"```\n"_s)) << qPrintable(printed);
}

TEST(Readme, LinksToExistingFiles)
{
    static const QRegularExpression link(u"\\]\\(([^)]+)\\)"_s);
    const QString text = readme();
    for (auto match = link.globalMatch(text); match.hasNext();) {
        const QString name = match.next().captured(1);
        EXPECT_TRUE(QFile::exists(QStringLiteral(TAVIDOC_SOURCE_DIR "/") + name)) << qPrintable(name);
    }
}

} // namespace
