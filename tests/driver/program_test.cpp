#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

/// Runs the program in a temporary directory.
class Program : public testing::Test
{
protected:
    struct Result
    {
        QByteArray output;
        QByteArray error;
        int status; ///< negative after an abnormal end
    };

    Program() { m_process.setWorkingDirectory(m_directory.path()); }

    void write(const QString &name, const QByteArray &text)
    {
        QFile file(m_directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray read(const QString &name)
    {
        QFile file(m_directory.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
    Result run(const QStringList &arguments)
    {
        m_process.start(QStringLiteral(TAVIDOC_PROGRAM), arguments);
        m_process.waitForFinished();
        const bool normal = m_process.exitStatus() == QProcess::NormalExit;
        return {m_process.readAllStandardOutput(), m_process.readAllStandardError(),
                normal ? m_process.exitCode() : -1};
    }
    [[nodiscard]] QString path(const QString &name) const { return m_directory.filePath(name); }

    QTemporaryDir m_directory;
    QProcess m_process;
};

/// Sets a resource limit for the program.
void limit(QProcess &process, int resource, rlim_t value)
{
    process.setChildProcessModifier([resource, value] {
        const struct rlimit limits = {value, value};
        ::setrlimit(resource, &limits);
    });
}

constexpr const char *s_usage = "\nusage: tavidoc [options] input_source_files...\n\noptions:\n"
                                "  -o directory  -  specify output directory\n  -v            -  verbose output\n";

} // namespace

TEST_F(Program, UsageGoesToTheStandardError)
{
    for (const QStringList &arguments : {QStringList(), QStringList{u"-v"_s}, QStringList{u"-o"_s, u"new"_s}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        const QList<QByteArray> lines = result.error.split('\n');
        EXPECT_TRUE(lines.at(0).startsWith("Tavi Documentation Tools tavidoc - Release "));
        EXPECT_TRUE(lines.at(1).startsWith("Copyright (c) ") && lines.at(2).startsWith("Copyright (c) "));
        EXPECT_TRUE(result.error.endsWith(s_usage));
    }
    EXPECT_FALSE(QFile::exists(path(u"new"_s)));
}

TEST_F(Program, AMissingDirectoryEndsItAbnormally)
{
    limit(m_process, RLIMIT_CORE, 0);
    const Result result = run({u"doc.dg"_s, u"-o"_s}); // deliberate: no "error:" line
    EXPECT_EQ(result.status, -1);
    EXPECT_FALSE(result.error.contains("error:"));
}

TEST_F(Program, WritesPagesInOrder)
{
    write(u"a.dg"_s, "\\split{one}\n1\n\\split{two.htm}\n2\n\\split{three.HTM}\n3");
    write(u"b.dg"_s, "\\split{one}\n\\nope");
    write(u"c.txt"_s, "\\split{c}\nx");
    write(u"d.e.dg"_s, "\\split{d}\nx");
    const Result result = run({u"./a.dg"_s, u"-o"_s, u"out"_s, u"c.txt"_s, u"x/..//b.dg"_s, u"-o"_s, u"out2/deep/er"_s,
                               u"d.e.dg"_s, u"-v"_s});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.output, "Processing a.dg\nOutputting out2/deep/er/one.htm\nOutputting "
                             "out2/deep/er/two.htm\nOutputting out2/deep/er/three.HTM.htm\n"
                             "Processing c.txt\nProcessing b.dg\nProcessing d.e.dg\n");
    EXPECT_EQ(QDir(path(u"out2/deep/er"_s)).entryList(QDir::Files),
              (QStringList{u"one.htm"_s, u"three.HTM.htm"_s, u"two.htm"_s}));
    EXPECT_FALSE(QFile::exists(path(u"out"_s)));
}

TEST_F(Program, AnEmptyDirectoryIsTheWorkingDirectory)
{
    write(u"a.dg"_s, "\\split{one}\n\\nope");
    const Result result = run({u"-o"_s, QString(u""_s), u"a.dg"_s});
    EXPECT_EQ(result.output, "error: docgen: a.dg:2: \\nope: unknown command\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(read(u"one.htm"_s).contains("<p>***ERROR*** \\nope</p>"));
}

TEST_F(Program, ReplacesAReadOnlyPage)
{
    write(u"a.dg"_s, "\\split{one}\nnew");
    write(u"one.htm"_s, "old");
    QFile::setPermissions(path(u"one.htm"_s), QFileDevice::ReadOwner);
    EXPECT_EQ(run({u"a.dg"_s}).status, 0);
    EXPECT_TRUE(read(u"one.htm"_s).contains("<p>new</p>"));
}

TEST_F(Program, APageThatCannotBeOpenedEndsTheRun)
{
    write(u"a.dg"_s, "\\split{one}\n1\n\\split{no/two}\n2\n\\split{three}\n3");
    const Result result = run({u"-o"_s, u"out"_s, u"a.dg"_s});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "error: cannot open out/no/two.htm\n");
    EXPECT_EQ(QDir(path(u"out"_s)).entryList(QDir::Files), QStringList{u"one.htm"_s});
}

TEST_F(Program, APageThatCannotBeWrittenWholeIsRemoved)
{
    write(u"a.dg"_s, "\\split{one}\n" + QByteArray(5000, 'x'));
    limit(m_process, RLIMIT_FSIZE, 1000);
    const Result result = run({u"-o"_s, u"out"_s, u"a.dg"_s});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "error: cannot write out/one.htm\n");
    EXPECT_FALSE(QFile::exists(path(u"out/one.htm"_s)));
}

TEST_F(Program, EndlessIncludesAndFullMemoryAreErrors)
{
    write(u"a.dg"_s, "\\include a.dg");
    const Result endless = run({u"a.dg"_s});
    EXPECT_EQ(endless.error, "error: a.dg includes itself without end\n");
    EXPECT_EQ(endless.status, 1);
#ifndef __SANITIZE_ADDRESS__
    QFile large(path(u"b.dg"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64{1} << 34)); // a sparse file
    limit(m_process, RLIMIT_AS, rlim_t{1} << 30);
    const Result full = run({u"b.dg"_s});
    EXPECT_EQ(full.error, "error: out of memory\n");
    EXPECT_EQ(full.status, 1);
#endif
}

TEST_F(Program, AClosedOutputDoesNotStopThePages)
{
    write(u"a.dg"_s, "\\split{one}\n\\nope");
    m_process.setStandardOutputFile(u"/dev/full"_s);
    EXPECT_EQ(run({u"-v"_s, u"a.dg"_s}).status, 0);
    EXPECT_TRUE(QFile::exists(path(u"one.htm"_s)));
}

TEST_F(Program, TheLocaleChangesNothing)
{
    write(u"\u00e4.dg"_s, "\\split{\u00fc}\n\u00df \u2026 \\table{1.5,*}\n|x\n\\endtable");
    QByteArray expected;
    for (const QString &locale : {u"C.UTF-8"_s, u"C"_s, u"tr_TR.UTF-8"_s, u"de_DE.ISO-8859-1"_s}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, locale);
        m_process.setProcessEnvironment(environment);
        const Result result = run({u"-v"_s, u"\u00e4.dg"_s});
        EXPECT_EQ(result.error, "") << qPrintable(locale);
        EXPECT_TRUE(result.output.startsWith("Processing \xC3\xA4.dg\n"));
        const QByteArray page = read(u"\u00fc.htm"_s);
        EXPECT_TRUE(page.contains("\xDF &#x2026;") && page.contains("1.5in,3.5in"));
        EXPECT_TRUE(expected.isEmpty() || page == expected);
        expected = page;
    }
}
