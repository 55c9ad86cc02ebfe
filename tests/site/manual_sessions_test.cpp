#include "tests/support/script_run.h"
#include "tests/support/site_output.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString s_manual = QStringLiteral(TAVIDOC_SOURCE_DIR "/docs/manual/");

QByteArray bytesOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList foldersOf(const QString &path)
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

/// All sources of the manual as one text.
QByteArray sourcesOfTheManual()
{
    QByteArray text;
    for (const QString &name : QDir(s_manual).entryList({u"*.dg"_s}, QDir::Files, QDir::Name))
        text += bytesOf(s_manual + name);
    return text;
}

/// What the commands in "run.sh" of the folder \a step print in \a directory, which gets the files of the step first. A
/// build right after that would not trust the times of the files, and the next one would read them again.
QByteArray outputOf(const QTemporaryDir &directory, const QString &step)
{
    const ScriptResult result = runScript(
        directory, u"PATH='%1':$PATH; unset MAKEFLAGS MAKELEVEL; cp -R '%2'/. .; sleep 0.05; exec 2>&1\n"_s.arg(
                       QFileInfo(QStringLiteral(TAVIDOC_PROGRAM)).path(), step) +
                       QString::fromUtf8(bytesOf(step + u"/run.sh"_s)));
    return result.output;
}

} // namespace

/// A session is a folder of steps, which run one after the other in one directory. Each has the files that its reader
/// saves, the commands in "run.sh" and what they print in "output.txt". TAVIDOC_UPDATE=1 rewrites the latter.
TEST(ManualSessions, PrintWhatTheManualShows)
{
    const QStringList sessions = foldersOf(s_manual + u"sessions"_s);
    ASSERT_FALSE(sessions.isEmpty());
    for (const QString &session : sessions) {
        const QTemporaryDir directory;
        const QString folder = s_manual + u"sessions/"_s + session + u'/';
        for (const QString &step : foldersOf(folder)) {
            const QByteArray printed = outputOf(directory, folder + step);
            const QString expected = folder + step + u"/output.txt"_s;
            if (qEnvironmentVariableIsSet("TAVIDOC_UPDATE")) {
                QFile file(expected);
                ASSERT_TRUE(file.open(QIODevice::WriteOnly));
                file.write(printed);
            }
            EXPECT_EQ(withoutFileCounts(QString::fromUtf8(printed)).toStdString(),
                      withoutFileCounts(QString::fromUtf8(bytesOf(expected))).toStdString())
                << qPrintable(session + u'/' + step);
        }
    }
}

/// What readers are told to type and what they see comes from the sessions, so it is run.
TEST(ManualSessions, HoldEveryCommandOfTheProgramsThatTheManualShows)
{
    const QByteArray text = sourcesOfTheManual();
    for (const QString &session : foldersOf(s_manual + u"sessions"_s)) {
        for (const QString &step : foldersOf(s_manual + u"sessions/"_s + session)) {
            const QByteArray folder = u"sessions/%1/%2/"_s.arg(session, step).toUtf8();
            EXPECT_TRUE(text.contains(folder + "run.sh\n") || text.contains(folder + "output.txt\n")) << folder.data();
        }
    }
    static const QRegularExpression listing(u"\\n\\\\pre\\n(.*?)\\n\\\\endpre"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression command(u"^(tavidoc|tavidoc-site|tavidoc-deps) [^\\[]*$"_s,
                                            QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch &match : listing.globalMatch(QString::fromUtf8(text)))
        EXPECT_FALSE(command.match(match.captured(1)).hasMatch()) << qPrintable(match.captured(1));
}

/// The verbs of "run" that the manual and the files beside it name exist.
TEST(ManualSessions, NameVerbsThatExist)
{
    QByteArray text = sourcesOfTheManual();
    for (const char *name : {"README.md", "CONTRIBUTING.md", ".ci/run"})
        text += bytesOf(QStringLiteral(TAVIDOC_SOURCE_DIR "/") + QString::fromLatin1(name));
    const QByteArray script = bytesOf(QStringLiteral(TAVIDOC_SOURCE_DIR "/run"));
    static const QRegularExpression verb(u"\\./run ([a-z]+)"_s);
    for (const QRegularExpressionMatch &match : verb.globalMatch(QString::fromUtf8(text)))
        EXPECT_TRUE(script.contains("\nverb_" + match.captured(1).toUtf8() + "() {")) << qPrintable(match.captured());
}

/// The reference of tavidoc-site names every verb and option that "--help" does.
TEST(ManualReference, NamesEveryVerbAndOptionOfTheProgram)
{
    const QTemporaryDir directory;
    const QByteArray page = bytesOf(s_manual + u"site.dg"_s);
    const QString help = QString::fromUtf8(runScript(directory, u"'" TAVIDOC_SITE_PROGRAM "' --help"_s).output);
    static const QRegularExpression verb(u"^  ([a-z]+) "_s, QRegularExpression::MultilineOption);
    static const QRegularExpression option(u"^  .*(--[a-z]+)"_s, QRegularExpression::MultilineOption);
    int optionCount = 0;
    for (const QRegularExpressionMatch &match : verb.globalMatch(help)) {
        const QString name = match.captured(1);
        EXPECT_TRUE(page.contains("| \\tt{" + name.toUtf8() + "} | ")) << qPrintable(name);
        const QString script = u"'" TAVIDOC_SITE_PROGRAM "' %1 --help"_s.arg(name);
        for (const QRegularExpressionMatch &found :
             option.globalMatch(QString::fromUtf8(runScript(directory, script).output))) {
            EXPECT_TRUE(page.contains("\\tt{" + found.captured(1).toUtf8())) << qPrintable(found.captured(1));
            ++optionCount;
        }
    }
    EXPECT_GT(optionCount, 20);
}
