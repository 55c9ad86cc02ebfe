#include "codeedit/languages.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QString>

#include <set>
#include <string>

using namespace tavidoc;

namespace {

using namespace Qt::StringLiterals;

QString sourceFile(const QString &name)
{
    return QStringLiteral(TAVIDOC_SOURCE_DIR "/") + name;
}

QString contents(const QString &name)
{
    QFile file(sourceFile(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), qsizetype(view.size()));
}

} // namespace

TEST(Languages, EachNameSelectsItsRowAndALexer)
{
    std::set<std::string_view> names = {"", "plain", "verbatim"}; // these have a meaning of their own
    for (const Language &language : Languages::all()) {
        ASSERT_NE(language.names.begin(), language.names.end()) << "a row without a name";
        EXPECT_NE(language.makeLexer(), nullptr) << *language.names.begin();
        for (const std::string_view name : language.names) {
            EXPECT_TRUE(names.insert(name).second) << name << " is taken";
            EXPECT_EQ(Languages::named(name), &language) << name;
        }
    }
    for (const char *const name : {"C", "JS", "Basic", "XML", "cpp", "plain", "", " c", "c "})
        EXPECT_EQ(Languages::named(name), nullptr) << name;
}

TEST(Languages, EachSuffixSelectsItsRow)
{
    for (const Language &language : Languages::all()) {
        for (const Language::Suffix &suffix : language.suffixes) {
            const std::string upper = text(suffix.text).toUpper().toStdString();
            const bool anyCase = suffix.letterCase == Language::Suffix::Case::Any;
            EXPECT_EQ(Languages::ofSuffix(suffix.text), &language) << suffix.text;
            EXPECT_EQ(Languages::ofSuffix(upper), anyCase ? &language : nullptr) << upper;
        }
    }
    for (const char *const suffix : {"c", "h", "txt", "", ".xml", "xmls", "xm"})
        EXPECT_EQ(Languages::ofSuffix(suffix), nullptr) << suffix;
}

TEST(Languages, EditorsColourALanguageAllTogetherOrNotAtAll)
{
    for (const Language &language : Languages::all())
        EXPECT_EQ(language.editors.vim.empty(), language.editors.textMate.empty()) << *language.names.begin();
}

TEST(Languages, AreAllInTheManual)
{
    const QString listings = contents(u"docs/manual/listings.dg"_s);
    const QString manualPage = contents(u"docs/man/tavidoc.7"_s);
    const QString files = contents(u"docs/manual/files.dg"_s).toLower();
    for (const Language &language : Languages::all()) {
        for (const std::string_view name : language.names) {
            EXPECT_TRUE(listings.contains(u"\\tt{"_s + text(name) + u'}')) << name;
            EXPECT_TRUE(manualPage.contains(QRegularExpression(u"\\b"_s + text(name) + u"\\b"_s))) << name;
        }
        for (const Language::Suffix &suffix : language.suffixes)
            EXPECT_TRUE(files.contains(u"\\file{."_s + text(suffix.text) + u'}')) << suffix.text;
    }
}
