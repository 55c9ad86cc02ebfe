#include "codeedit/languages.h"
#include "tests/support/styled_text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStringList>

#include <set>

using namespace tavidoc;

namespace {

using namespace Qt::StringLiterals;

const QString s_goldenFiles = QStringLiteral(TAVIDOC_SOURCE_DIR "/tests/codeedit/golden");

/// One name for each lexer: the first in the table.
std::vector<std::string> lexers()
{
    std::set<decltype(Language::makeLexer)> makers;
    std::vector<std::string> names;
    for (const Language &language : Languages::all()) {
        if (makers.insert(language.makeLexer).second)
            names.emplace_back(*language.names.begin());
    }
    return names;
}

QString goldenFile(const std::string &lexer)
{
    return s_goldenFiles + u'/' + QString::fromStdString(lexer) + u".txt"_s;
}

QString contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The example \a row with its title and its source as they are and the styled lines written anew.
QString restyled(const QString &row, const std::string &name)
{
    const QString source = row.left(row.indexOf(u"\n---\n"_s));
    const std::unique_ptr<CodeEditParser> lexer = Languages::named(name)->makeLexer();
    QString result = source + u"\n---\n"_s;
    quint32 state = 0;
    for (const QString &line : source.split(u'\n').sliced(1))
        result += styledText(*lexer, line, state) + u'\n';
    return result;
}

class Golden : public testing::TestWithParam<std::string>
{
};

/// Each lexer has a file of examples: a title, a listing, the styled listing. With TAVIDOC_UPDATE set
/// the styled listings are written anew.
TEST_P(Golden, ListingsAreStyledAsBefore)
{
    const QString name = goldenFile(GetParam());
    QStringList rows = contents(name).split(u"=== "_s, Qt::SkipEmptyParts);
    ASSERT_GT(rows.size(), 3) << "write examples into " << name.toStdString();
    for (QString &row : rows) {
        const QString styled = restyled(row, GetParam());
        if (qEnvironmentVariableIsSet("TAVIDOC_UPDATE"))
            row = styled;
        EXPECT_EQ(row.toStdString(), styled.toStdString());
    }
    QFile file(name);
    if (qEnvironmentVariableIsSet("TAVIDOC_UPDATE") && file.open(QIODevice::WriteOnly))
        file.write((u"=== "_s + rows.join(u"=== "_s)).toUtf8());
}

INSTANTIATE_TEST_SUITE_P(Lexers, Golden, testing::ValuesIn(lexers()), [](const auto &lexer) {
    return QString::fromStdString(lexer.param).remove(u'-').toStdString();
});

TEST(GoldenFiles, AllBelongToALexer)
{
    EXPECT_EQ(QDir(s_goldenFiles).entryList(QDir::Files).size(), lexers().size());
}

} // namespace
