#include "pages/icon_table.h"

#include "base/hexception.h"
#include "base/whole_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <set>

#include <sys/resource.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

TEST(IconTable, HasEveryIconAndAllAreDifferent)
{
    const QTemporaryDir directory;
    IconTable icons(directory.path());
    std::set<QByteArray> images;
    for (const std::string_view name : IconTable::names()) {
        ASSERT_EQ(icons.save(name), IconTable::Answer::Saved) << name;
        const QString latinName = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
        QFile file(directory.filePath(u"images/%1.png"_s.arg(latinName)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_TRUE(images.insert(file.readAll()).second) << name << " looks like another one";
    }
    EXPECT_EQ(images.size(), 130U);
    EXPECT_EQ(QDir(directory.filePath(u"images"_s)).entryList(QDir::Files | QDir::Hidden).size(), 130);
}

TEST(IconTable, NamesAreExact)
{
    IconTable icons(u"/nowhere"_s);
    for (const std::string_view name : {"", "filesave", "FileSave.png", "../FileSave", "XMLx"})
        EXPECT_EQ(icons.save(name), IconTable::Answer::Unknown) << name;
}

TEST(IconTable, AnImageIsWholeAndOfTheRightSize)
{
    const QByteArray png = IconTable::image("XML");
    EXPECT_TRUE(IconTable::decodes(png));
    EXPECT_FALSE(IconTable::decodes(png.left(png.size() / 2)));
    EXPECT_FALSE(IconTable::decodes({}));
}

TEST(IconTable, AnIconThatCannotBeWrittenIsFatal)
{
    const QTemporaryDir directory;
    QFile inTheWay(directory.filePath(u"images"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    try {
        IconTable(directory.path()).save("XML");
        FAIL();
    } catch (const HException &error) {
        EXPECT_EQ(error.message(), "cannot write " + directory.filePath(u"images/XML.png"_s).toUtf8());
    }
}

TEST(WholeFile, NothingStaysOfAFileThatDoesNotFit)
{
    const QTemporaryDir directory;
    const QString name = directory.filePath(u"file"_s);
    writeWholeFile(name, "before");
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    EXPECT_THROW(writeWholeFile(name, QByteArray(1001, 'x')), HException);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "before");
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}
