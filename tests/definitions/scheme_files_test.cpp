#include "definitions/scheme_files.h"

#include "base/path.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "definitions/xml_tree_reader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QByteArray repeated(const char *text, int count)
{
    return QByteArray(text).repeated(count);
}

/// "LINE: REASON" of a malformed file, nothing for a good one.
QString complaint(const QByteArray &bytes)
{
    XmlTreeReader reader(bytes);
    if (reader.read())
        return {};
    return u"%1: %2"_s.arg(reader.errorLine()).arg(reader.errorReason());
}

QString messages(const QString &action, const QString &text)
{
    return u"<messagescheme><item name='%1'><text>%2</text></item></messagescheme>"_s.arg(action, text);
}

class SchemeFiles : public testing::Test
{
protected:
    void write(const QString &name, const QByteArray &bytes)
    {
        QFile file(m_directory.filePath(name));
        ASSERT_TRUE(QDir().mkpath(Path(file.fileName()).directory()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    std::vector<XmlError> load(const QString &input)
    {
        return loadSchemeFiles(Path(m_directory.filePath(input)), m_document, m_actions, m_properties);
    }

    QTemporaryDir m_directory;
    XmlPP m_document;
    ActionNames m_actions;
    Properties m_properties;
};

} // namespace

TEST_F(SchemeFiles, AreReadOnceFromTheDirectoryOfEachInput)
{
    write(u"a/menus.xml"_s, "<definemenu caption='First'><item name='x'/></definemenu>");
    write(u"a/messages.xml"_s, messages(u"x"_s, u"one"_s).toUtf8());
    write(u"b/menus.xml"_s, "<definemenu caption='Second'><item name='x'/></definemenu>");
    write(u"b/messages.xml"_s, messages(u"x"_s, u"two"_s).toUtf8());
    write(u"a/properties.xml"_s, "<properties><property name='p'/></properties>");
    EXPECT_TRUE(load(u"a/guide.dg"_s).empty());
    EXPECT_EQ(m_actions.menuPath("x").path, "First > one");
    EXPECT_NE(m_properties.find("p"), nullptr);
    EXPECT_TRUE(load(u"b/guide.dg"_s).empty());
    EXPECT_EQ(m_actions.menuPath("x").path, "First > two") << "the first item, the last text";
    EXPECT_TRUE(load(u"b/../a/other.dg"_s).empty());
    EXPECT_EQ(m_actions.menuPath("x").path, "First > two") << "another name of a loaded file";
}

TEST_F(SchemeFiles, AreNoticedLaterUnlessDirectoriesAreSearchedOnce)
{
    write(u"keys.xml"_s, "<keyscheme><item name='x'><key>F1</key></item></keyscheme>");
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
    write(u"messages.xml"_s, messages(u"x"_s, u"X"_s).toUtf8());
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
    EXPECT_EQ(m_actions.lookup("x.text"), "X");
    m_document.searchDirectoriesOnce(true);
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
    write(u"menus.xml"_s, "<definemenu");
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
    EXPECT_EQ(load(u"./guide.dg"_s).size(), 1U) << "another name of the directory";
}

TEST_F(SchemeFiles, AMalformedFileIsReportedOnceAndTheOthersAreRead)
{
    write(u"menus.xml"_s, "<definemenu caption='F'>\n<item name='x'/>\n</menu>");
    write(u"messages.xml"_s, messages(u"x"_s, u"X"_s).toUtf8());
    const std::vector<XmlError> errors = load(u"guide.dg"_s);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].file, m_directory.filePath(u"menus.xml"_s));
    EXPECT_EQ(errors[0].line, 3);
    EXPECT_EQ(m_actions.lookup("x.text"), "X");
    EXPECT_EQ(m_actions.menuPath("x").warnings, std::vector<std::string>{"Can't find x in any menu"});
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
}

TEST_F(SchemeFiles, WhatHoldsNothingIsNothing)
{
    write(u"menus.xml"_s, "");
    write(u"messages.xml"_s, "\xEF\xBB\xBF");
    ASSERT_TRUE(QDir().mkpath(m_directory.filePath(u"keys.xml"_s)));
    ASSERT_EQ(::mkfifo(m_directory.filePath(u"properties.xml"_s).toUtf8().constData(), 0600), 0);
    EXPECT_TRUE(load(u"guide.dg"_s).empty());
    EXPECT_TRUE(load(u"missing/guide.dg"_s).empty());
}

TEST_F(SchemeFiles, AFileThatIsTooLargeIsNotRead)
{
    write(u"keys.xml"_s, "<a/>");
    ASSERT_TRUE(QFile::resize(m_directory.filePath(u"keys.xml"_s), 64 * 1024 * 1024 + 1));
    write(u"menus.xml"_s, "<a/>");
    ASSERT_TRUE(QFile::resize(m_directory.filePath(u"menus.xml"_s), 64 * 1024 * 1024));
    const std::vector<XmlError> errors = load(u"guide.dg"_s);
    ASSERT_EQ(errors.size(), 2U);
    EXPECT_NE(errors[0].reason, errors[1].reason);
    EXPECT_EQ(errors[1].reason, u"The file is larger than 64 MiB.");
}

TEST(XmlTreeReader, Encodings)
{
    struct Row
    {
        const char *name;
        QByteArray bytes;
    };
    QByteArray wide("\xFE\xFF", 2);
    for (const char character : QByteArrayView("<a>"))
        wide.append('\0').append(character);
    wide.append("\x00\xE4\x00<\x00/\x00"
                "a\x00>",
                10);
    for (const Row &row : {
             Row{"UTF-8", "<a>\xC3\xA4</a>"},
             Row{"UTF-8 with a mark", "\xEF\xBB\xBF<a>\xC3\xA4</a>"},
             Row{"anything else is ISO 8859-1", "<a>\xE4</a>"},
             Row{"a declaration is believed", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>"},
             Row{"UTF-16 with a mark", wide},
         }) {
        const std::optional<XmlTree> tree = XmlTreeReader(row.bytes).read();
        ASSERT_TRUE(tree) << row.name;
        EXPECT_EQ(tree->root().text(), "\xC3\xA4") << row.name;
    }
}

TEST(XmlTreeReader, RefusesWhatIsMalformedOrHurts)
{
    struct Row
    {
        const char *name;
        QByteArray bytes;
        QString complaint;
    };
    QByteArray laughs = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (int level = 1; level < 30; ++level)
        laughs += "<!ENTITY e" + QByteArray::number(level) + " '" +
                  repeated(("&e" + QByteArray::number(level - 1) + ";").constData(), 10) + "'>";
    const QByteArray longEntity = "<!DOCTYPE a [<!ENTITY e '" + repeated("x", 4000) + "'>]>";
    const QString tooLong = u"1: Entity expands to more characters than the entity expansion limit."_s;
    for (const Row &row : {
             Row{"bytes that the declaration does not allow", "<?xml version='1.0'?>\n<a>\xE4</a>",
                 u"2: Encountered incorrectly encoded content."_s},
             Row{"an encoding of this machine", "<?xml version='1.0' encoding='koi8-r'?><a/>",
                 u"1: Encoding koi8-r is unsupported"_s},
             Row{"a reason with a line end", "<?xml version='1.0' encoding='a\nb'?><a/>",
                 u"2: a b is an invalid encoding name."_s},
             Row{"a character that no line may hold", "<a>\n\x01</a>", u"2: Unexpected ''."_s},
             Row{"an end in the middle", "<a>\n<b>\n", u"3: Premature end of document."_s},
             Row{"an end in a tag", "<a>\n<", u"2: Premature end of document."_s},
             Row{"an external entity", "<!DOCTYPE a [<!ENTITY e SYSTEM 'x'>]>\n<a>&e;</a>",
                 u"1: External entity 'e' is refused."_s},
             Row{"an entity from elsewhere", "<!DOCTYPE a SYSTEM 'x'>\n<a>&e;</a>", u"2: Entity 'e' not declared."_s},
             Row{"entities in entities", laughs + "]><a>&e29;</a>", tooLong},
             Row{"entities in a value", laughs + "]><a b='&e29;'/>", tooLong},
             Row{"many long entities", longEntity + "<a>" + repeated("&e;", 17000) + "</a>", tooLong},
             Row{"attribute lists", "<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]><a/>",
                 u"1: Parameter entities and attribute lists are refused."_s},
             Row{"too many attributes", "<!--\"--><a " + repeated("b='>' ", 257) + "/>",
                 u"1: An element has more than 256 attributes."_s},
             Row{"just few enough attributes", "<a " + repeated("b='' ", 256) + "/>", u"1: Attribute 'b' redefined."_s},
             Row{"just few enough elements", "<a>" + repeated("<b/>", 999'999) + "</a>", {}},
             Row{"too many elements", "<a>" + repeated("<b/>", 1'000'000) + "</a>",
                 u"1: More than 1000000 elements and attributes."_s},
             Row{"too deep", repeated("<a>\n", 4097), u"4097: Elements are nested deeper than 4096 levels."_s},
             Row{"just deep enough, and wide there",
                 repeated("<a>", 4095) + repeated("<b/>", 3000) + repeated("</a>", 4095),
                 {}},
             Row{"an entity of its own", "<!DOCTYPE a [<!ENTITY e '<b>x</b>'>]><a>&e;&e;</a>", {}},
             Row{"what looks like attributes",
                 "<!-- " + repeated("'>' ", 300) + "--><a>" + repeated("'", 999) + "</a>",
                 {}},
         })
        EXPECT_EQ(complaint(row.bytes).toStdString(), row.complaint.toStdString()) << row.name;
}
