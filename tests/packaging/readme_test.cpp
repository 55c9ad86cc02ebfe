#include "tests/support/script_run.h"
#include "tests/support/site_output.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

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

/// What the command of the tour prints in \a directory, without the number of files, which depends on what all pages share.
QString printedByTheTour(const QTemporaryDir &directory)
{
    const ScriptResult result = runScript(
        directory, u"\"%1\" build kettle.dg timer.h -o site 2>&1"_s.arg(QStringLiteral(TAVIDOC_SITE_PROGRAM)));
    return withoutFileCounts(QString::fromUtf8(result.output));
}

TEST(Readme, TheTourPrintsWhatItSays)
{
    const QString text = withoutFileCounts(readme());
    const QTemporaryDir directory;
    ASSERT_EQ(saveFiles(text, QDir(directory.path())), QStringList({u"kettle.dg"_s, u"timer.h"_s}));
    ASSERT_TRUE(text.contains(u"\nbuild/tavidoc-site build kettle.dg timer.h -o site\n"_s));
    const QString printed = printedByTheTour(directory);
    EXPECT_TRUE(text.contains(u"\n```\n"_s + printed + u"```\n"_s)) << qPrintable(printed);
    runScript(directory, u"sed -i s/timer_start/timer_strat/ kettle.dg"_s);
    const QString finding = printedByTheTour(directory).section(u'\n', 0, 0);
    EXPECT_TRUE(text.contains(u"\n```\n"_s + finding + u"\n```\n"_s)) << qPrintable(finding);
}

TEST(Readme, LinksToExistingFiles)
{
    static const QRegularExpression link(u"(?:\\]\\(|src=\"|srcset=\")([^)\"]+)"_s);
    const QString text = readme();
    for (auto match = link.globalMatch(text); match.hasNext();) {
        const QString name = match.next().captured(1);
        EXPECT_TRUE(QFile::exists(QStringLiteral(TAVIDOC_SOURCE_DIR "/") + name)) << qPrintable(name);
    }
}

} // namespace
