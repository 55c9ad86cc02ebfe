#include "tests/support/script_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct MissingRow
{
    const char *name;
    const char *input;  ///< the text of the input, a header if it begins with a documentation comment
    const char *script; ///< runs first; may be empty
    const char *errors; ///< on the standard error; "DIR" stands for the working directory
};

void PrintTo(const MissingRow &row, std::ostream *out)
{
    *out << row.name;
}

class MissingFiles : public testing::TestWithParam<MissingRow>
{
};

TEST_P(MissingFiles, AreErrorsOfTavidocDepsOnly)
{
    const MissingRow &row = GetParam();
    const QTemporaryDir directory;
    const bool isHeader = QByteArray(row.input).startsWith("/*!");
    const QString input = isHeader ? u"in/book.h"_s : u"in/book.dg"_s;
    QDir(directory.path()).mkdir(u"in"_s);
    writeText(directory, input, row.input);
    const QString prepare = QString::fromUtf8(row.script);
    const QByteArray expected = QByteArray(row.errors).replace("DIR", QDir(directory.path()).canonicalPath().toUtf8());
    const QString companion = u"\"%1\" --fail-on-error -o rule %2"_s.arg(QStringLiteral(TAVIDOC_DEPS), input);
    const ScriptResult strict = runScript(directory, prepare + u'\n' + companion);
    EXPECT_EQ(strict.error.toStdString(), expected.toStdString());
    EXPECT_EQ(strict.status, expected.contains(": error: ") ? 1 : 0);
    EXPECT_TRUE(QFile::exists(directory.filePath(u"rule"_s)));
    // The program deliberately does not report them, apart from the messages of lookups.
    const ScriptResult program = runScript(directory, u"\"$tavidoc\" -o out "_s + input);
    EXPECT_EQ(program.status, 0);
    for (const char *said : {"include", "in the directory of the input", "in/book.dg: "})
        EXPECT_FALSE(program.output.contains(said)) << program.output.constData();
    EXPECT_EQ(program.error, "");
}

TEST(Companion, WritesRulesForMake)
{
    const QTemporaryDir directory;
    writeText(directory, u"a.dg"_s, "\\split a\n\\present a b#$.c\n\\present a b#$.c\n\\include no/no.dg\n");
    ScriptResult result =
        runScript(directory,
                  u"> 'a b#$.c'; deps='%1'; $deps -t 'a $#b' a.dg 2> log; LC_ALL=C $deps -o rule /no/no.h <&- 2>> log; "
                  "cat rule; $deps -o no/rule a.dg 2>&1 | tail -n 1; $deps a.dg a.dg 2>> log | head -n 1; $deps -v; "
                  "$deps a.dg a.dg > log; echo $?; $deps -o /dev/null --fail-on-error a.h 2>> log; echo $?"_s.arg(
                      QStringLiteral(TAVIDOC_DEPS)));
    // What does not exist is represented by the directory in which it would appear.
    EXPECT_EQ(result.output.replace(QDir(directory.path()).canonicalPath().toUtf8(), "DIR"),
              "a\\ $$\\#b: \\\n  DIR/a.dg \\\n  DIR \\\n  DIR/a\\ b\\#$$.c\nDIR/a.dg:\nDIR:\nDIR/a\\ b\\#$$.c:\n"
              "/no/no.h.stamp: \\\n  /\n/:\nerror: cannot write no/rule\nUsage: " TAVIDOC_DEPS
              " [options] source\ntavidoc-deps " TAVIDOC_VERSION "\n1\n1\n");
    EXPECT_EQ(result.error, "");
}

TEST(Companion, NeedsMemory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs the whole address space";
#endif
    const QTemporaryDir directory;
    writeText(directory, u"a.dg"_s, "\\split a\n" + QByteArray("Some text of a long page. ").repeated(800'000) + '\n');
    int refusals = 0;
    for (int kilobytes = 60'000; kilobytes <= 120'000; kilobytes += 20'000) {
        const ScriptResult result = runScript(
            directory, u"ulimit -v %1; \"%2\" -o rule a.dg"_s.arg(kilobytes).arg(QStringLiteral(TAVIDOC_DEPS)));
        if (result.status == 0 || result.status == 127) // enough, or too little to load the libraries
            continue;
        EXPECT_EQ(result.status, 1) << kilobytes;
        EXPECT_EQ(result.error, "error: out of memory\n") << kilobytes;
        ++refusals;
    }
    EXPECT_GT(refusals, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Companion, MissingFiles,
    testing::Values(
        MissingRow{"nothing is missing", "\\split a\n\\include in/b.dg\n", "echo B > in/b.dg", ""},
        MissingRow{"each include at its position, also in included files and between what is included twice",
                   "\\split a\nA\n\\include no.dg\n\\include in/b.dg\n\\include in/b.dg\n  \\include  no.dg no\n",
                   "printf 'B\\n\\n\\\\include in/no.dg\\nB\\n' > in/b.dg",
                   "DIR/in/book.dg:3: error: \\include: the file \"no.dg\" cannot be opened\n"
                   "DIR/in/b.dg:3: error: \\include: the file \"in/no.dg\" cannot be opened\n"
                   "DIR/in/b.dg:3: error: \\include: the file \"in/no.dg\" cannot be opened\n"
                   "DIR/in/book.dg:6: error: \\include: the file \"no.dg no\" cannot be opened\n"},
        MissingRow{"an include in the first line", "\\include no.dg", "",
                   "DIR/in/book.dg:1: error: \\include: the file \"no.dg\" cannot be opened\n"},
        MissingRow{"a name that looks like a position", "\\split a\n\\include in/a.dg :7: b\n",
                   "printf 'A\\n\\\\nope\\n' > 'in/a.dg :7: b'",
                   "DIR/in/a.dg :7: b:2: error: \\nope: unknown command\n"},
        MissingRow{"a directory and a dangling link are not files", "\n\\include in/d.dg\n\\include in/l.dg\n",
                   "mkdir -p in/d.dg; ln -sf nothing in/l.dg",
                   "DIR/in/book.dg:2: error: \\include: the file \"in/d.dg\" cannot be opened\n"
                   "DIR/in/book.dg:3: error: \\include: the file \"in/l.dg\" cannot be opened\n"},
        MissingRow{"an include that is not followed is not reported",
                   "%\\include no.dg\n@print\n\\include no.dg\n@end\n", "", ""},
        MissingRow{"presented and copied files, once", "\\split a\n\\present no.c\n\n\\copyin no.htm\n", "",
                   "DIR/in/book.dg:2: error: \\present: cannot open \"no.c\"\n"
                   "DIR/in/book.dg:4: error: \\copyin: cannot open \"no.htm\"\n"},
        MissingRow{
            "definitions where they are first looked up",
            "\\split a\nA\n\\key{open}, \\key{shut},\n\\menu{open}, \\menu{shut}\n\\property{p}\n\\envpage\n", "",
            "DIR/in/book.dg:3: warning: Can't find open in key scheme\n"
            "DIR/in/book.dg:3: error: \\key: there is no \"keys.xml\" in the directory of the input\n"
            "DIR/in/book.dg:3: warning: Can't find shut in key scheme\n"
            "DIR/in/book.dg:4: warning: Can't find open in message scheme\n"
            "DIR/in/book.dg:4: error: \\menu: there is no \"messages.xml\" in the directory of the input\n"
            "DIR/in/book.dg:4: error: \\menu: there is no \"menus.xml\" in the directory of the input\n"
            "DIR/in/book.dg:4: warning: Can't find shut in message scheme\n"
            "DIR/in/book.dg:5: error: \\property: unknown property \"p\": expected a name from properties.xml\n"
            "DIR/in/book.dg:5: error: \\property: there is no \"properties.xml\" in the directory of the input\n"},
        MissingRow{
            "the list of properties", "\\split a\n\\envpage\n", "",
            "DIR/in/book.dg:2: error: \\envpage: there is no \"properties.xml\" in the directory of the input\n"},
        MissingRow{"a tip", "\\split a\n\\tip{open}\n", "",
                   "DIR/in/book.dg:2: error: \\tip: no tip for \"open\": expected an item with a tip in messages.xml\n"
                   "DIR/in/book.dg:2: error: \\tip: there is no \"messages.xml\" in the directory of the input\n"},
        MissingRow{"one of a key and a menu path is enough for a phrase", "\\split a\n\\choose{open}\n",
                   "echo '<keyscheme><item name=\"open\"><key>F3</key></item></keyscheme>' > in/keys.xml",
                   "DIR/in/book.dg:2: warning: Can't find open in message scheme\n"},
        MissingRow{"a phrase without either; a name may span lines", "\\split a\n\\choose{no\nway}\n",
                   "echo '<keyscheme><item name=\"open\"><key>F3</key></item></keyscheme>' > in/keys.xml",
                   "DIR/in/book.dg:2: warning: Can't find no way in message scheme\n"
                   "DIR/in/book.dg: error: missing both menu path and accelerator for no way\n"
                   "DIR/in/book.dg:2: error: \\choose: there is no \"messages.xml\" in the directory of the input\n"
                   "DIR/in/book.dg:2: error: \\choose: there is no \"menus.xml\" in the directory of the input\n"},
        MissingRow{"definitions in a file of another name are not missing", "\\split a\n\\key{open}\\key{shut}\n",
                   "echo '<keyscheme><item name=\"open\"><key>F3</key></item></keyscheme>' > in/menus.xml",
                   "DIR/in/book.dg:2: warning: Can't find shut in key scheme\n"},
        MissingRow{"an empty file is not missing", "\\split a\n\\key{shut}\n", "> in/keys.xml",
                   "DIR/in/book.dg:2: warning: Can't find shut in key scheme\n"},
        MissingRow{"a directory with the name of a file does not count as one", "\\split a\n\\key{shut}\n",
                   "mkdir -p in/keys.xml",
                   "DIR/in/book.dg:2: warning: Can't find shut in key scheme\n"
                   "DIR/in/book.dg:2: error: \\key: there is no \"keys.xml\" in the directory of the input\n"},
        MissingRow{"definitions in the comments of a header, once for all of them",
                   "/*!\n * \\key{open}\n */\nint f();\n/*!\n * \\key{shut}\n */\nint g();\n", "",
                   "DIR/in/book.h:2: warning: Can't find open in key scheme\n"
                   "DIR/in/book.h:2: error: \\key: there is no \"keys.xml\" in the directory of the input\n"
                   "DIR/in/book.h:6: warning: Can't find shut in key scheme\n"},
        MissingRow{"the input itself", "", "rm in/book.dg", "DIR/in/book.dg: error: the file cannot be opened\n"}));

} // namespace
