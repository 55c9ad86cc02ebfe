#include "pages/icon_table.h"

#include "base/hexception.h"
#include "base/whole_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>

#include <sys/resource.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

constexpr png_uint_32 s_side = 16; // of an icon, in pixels

using Pixels = std::array<png_uint_32, std::size_t{s_side} * s_side>; // RGBA

/// Nothing for bytes that are not a whole image of the size of an icon.
std::optional<Pixels> decoded(const QByteArray &png)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, png.constData(), static_cast<std::size_t>(png.size())))
        return std::nullopt;
    image.format = PNG_FORMAT_RGBA;
    Pixels pixels;
    const bool isWhole = image.width == s_side && image.height == s_side &&
                         png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
    png_image_free(&image);
    return isWhole ? std::optional(pixels) : std::nullopt;
}

} // namespace

TEST(IconTable, AllIconsAreDifferentImagesOfTheRightSize)
{
    const QTemporaryDir directory;
    IconTable icons(directory.path());
    std::set<Pixels> images;
    for (const std::string_view name : IconTable::names()) {
        ASSERT_TRUE(icons.save(name)) << name;
        const QString latinName = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
        QFile file(directory.filePath(u"images/%1.png"_s.arg(latinName)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const std::optional<Pixels> pixels = decoded(file.readAll());
        ASSERT_TRUE(pixels) << name << " is not an image of the right size";
        EXPECT_NE(std::ranges::count(*pixels, pixels->front()), std::ssize(*pixels)) << name << " is blank";
        EXPECT_TRUE(images.insert(*pixels).second) << name << " looks like another icon";
    }
    EXPECT_EQ(images.size(), 130U);
    EXPECT_EQ(QDir(directory.filePath(u"images"_s)).entryList(QDir::Files | QDir::Hidden).size(), 130);
}

TEST(IconTable, ATruncatedImageIsNotAnIcon)
{
    const QByteArray png = IconTable::image("XML");
    EXPECT_TRUE(decoded(png));
    EXPECT_FALSE(decoded(png.left(png.size() / 2)));
    EXPECT_FALSE(decoded({}));
}

TEST(IconTable, NamesAreExact)
{
    IconTable icons(u"/nowhere"_s);
    for (const std::string_view name : {"", "filesave", "FileSave.png", "../FileSave", "XMLx"})
        EXPECT_FALSE(icons.save(name)) << name;
}

TEST(IconTable, AnIconThatCannotBeWrittenIsFatal)
{
    const QTemporaryDir directory;
    QFile inTheWay(directory.filePath(u"images"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    try {
        FAIL() << IconTable(directory.path()).save("XML");
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
    EXPECT_THROW(writeNewFile(name + u"2"_s, QByteArray(1001, 'x')), HException);
    EXPECT_THROW(writeNewFile(name, "after"), HException);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "before");
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}
