// The same input gives the same bytes in every environment.

#include "tests/support/script_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Surroundings
{
    const char *name;
    const char *script; ///< runs in the directory with the sources; pages go to "out"
};

void PrintTo(const Surroundings &surroundings, std::ostream *out)
{
    *out << surroundings.name;
}

/// Writes sources with everything whose output could depend on an order: groups, titles, icons, definitions, many names.
void writeSources(const QTemporaryDir &directory)
{
    QByteArray header;
    for (int number = 0; number < 200; ++number)
        header += "/*!\nText " + QByteArray::number(number) + ".\n\\ingroup G" + QByteArray::number(number % 17) +
                  "\n*/\nint function" + QByteArray::number(number * 7919 % 1000) + "(int i, float \xC3\xA4);\n";
    writeText(directory, u"kettle.h"_s, header);
    QByteArray source = "\\title Ii\xC4\xB0\xC4\xB1\n";
    for (int number = 0; number < 50; ++number)
        source += "\\split{page" + QByteArray::number(number) + "}\n\\title T" + QByteArray::number(number) +
                  "\n\\menu{Open} \\choose{Save} \\xref{T3} \\icon{BrowserBack}\n\\table{1.5,2cm,*}\n| \xE2\x80\xA6\n"
                  "\\endtable\n\\code{basic}\nPRINT \"I\"\n\\endcode\n\\nope \\envpage\n";
    writeText(directory, u"guide.dg"_s, source);
    writeText(directory, u"menus.xml"_s,
              "<definemenubar><definemenu caption=\"File\"><item name=\"Open\"/><item name=\"Save\"/></definemenu>"
              "</definemenubar>");
    writeText(directory, u"messages.xml"_s,
              "<messagescheme><item name=\"Save\"><text>Save</text></item><item name=\"Open\"><text>Open</text></item>"
              "</messagescheme>");
    QByteArray properties = "<properties>";
    for (int number = 0; number < 50; ++number)
        properties += "<property name=\"p" + QByteArray::number(number) + "\" caption=\"c\" type=\"t\">d</property>";
    writeText(directory, u"properties.xml"_s, properties + "</properties>");
}

/// Returns the messages of a run and the names and contents of all files that it wrote.
QByteArray everything(const QTemporaryDir &directory, const QString &script)
{
    const ScriptResult result = runScript(directory, script);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    QByteArray text = result.output;
    for (const QString &folder : {u"out"_s, u"out/images"_s}) {
        const QDir out(directory.filePath(folder));
        for (const QString &name : out.entryList(QDir::Files, QDir::Name)) {
            QFile file(out.filePath(name));
            text += "\n" + name.toUtf8() + "\n" + (file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
    }
    return text;
}

class Determinism : public testing::TestWithParam<Surroundings>
{
};

} // namespace

TEST_P(Determinism, SameInputSameBytes)
{
    const QTemporaryDir plain;
    writeSources(plain);
    const QByteArray expected = everything(plain, u"$tavidoc -v -o out guide.dg kettle.h"_s);
    EXPECT_TRUE(expected.contains("function") && expected.contains("page49.htm"));
    const QTemporaryDir other;
    writeSources(other);
    EXPECT_TRUE(everything(other, QString::fromLatin1(GetParam().script)) == expected);
}

#define RUN "$tavidoc -v -o out guide.dg kettle.h"

INSTANTIATE_TEST_SUITE_P(
    Surroundings, Determinism,
    testing::Values(Surroundings{"the locale C", "LC_ALL=C " RUN},
                    Surroundings{"a locale with ISO 8859 1", "LC_ALL=de_DE.ISO-8859-1 " RUN},
                    Surroundings{"a locale with different case rules", "LC_ALL=tr_TR.UTF-8 LANGUAGE=tr " RUN},
                    Surroundings{"a time zone", "TZ=Pacific/Kiritimati " RUN},
                    Surroundings{"a hash seed", "QT_HASH_SEED=1 " RUN " 2> log"}, // Qt prints a warning
                    Surroundings{"another hash seed", "QT_HASH_SEED=0 " RUN},
                    Surroundings{"another directory order",
                                 "mkdir new; for f in properties.xml messages.xml menus.xml kettle.h guide.dg; do "
                                 "mv $f new/$f; done; mv new/* .; rmdir new; " RUN},
                    Surroundings{"another umask and an empty environment",
                                 "umask 077; env -i $tavidoc -v -o out guide.dg kettle.h"},
                    Surroundings{"a second run over the first", RUN " > first; " RUN},
                    Surroundings{"other files in between", "mkdir b; $tavidoc -o b kettle.h guide.dg > first; " RUN}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

/// In another working directory only the names in messages differ, because they are those of the command line.
TEST(DeterminismOfNames, AnotherWorkingDirectory)
{
    const QTemporaryDir directory;
    writeSources(directory);
    const auto pages = [&directory](const char *script) {
        return everything(directory, u"rm -rf out; "_s + QLatin1StringView(script));
    };
    const QByteArray expected = pages("$tavidoc -o out guide.dg kettle.h > log");
    EXPECT_TRUE(pages("mkdir deep; (cd deep; $tavidoc -o ../out ../guide.dg ../kettle.h > log)") == expected);
    EXPECT_TRUE(pages("here=$PWD; (cd /; $tavidoc -o $here/out $here/guide.dg $here/kettle.h > $here/log)") ==
                expected);
}
