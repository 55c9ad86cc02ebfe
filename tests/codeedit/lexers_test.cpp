#include "codeedit/lexer_factory.h"
#include "tests/support/styled_text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>

using namespace tavidoc;

namespace {

using namespace Qt::StringLiterals;

QString goldenFile(const std::string &language)
{
    return QStringLiteral(TAVIDOC_SOURCE_DIR "/tests/codeedit/golden/") + QString::fromStdString(language) + u".txt"_s;
}

QString contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What \a row becomes: its sentence and its source stay, the styled lines are made anew.
QString restyled(const QString &row, const std::string &language)
{
    const QString source = row.left(row.indexOf(u"\n---\n"_s));
    const std::unique_ptr<CodeEditParser> lexer = makeLexer(language);
    QString result = source + u"\n---\n"_s;
    quint32 state = 0;
    for (const QString &line : source.split(u'\n').sliced(1))
        result += styledText(*lexer, line, state) + u'\n';
    return result;
}

class Golden : public testing::TestWithParam<std::string>
{
};

/// Each file is a row of examples: a sentence, a listing, the styled listing. With TAVIDOC_UPDATE set
/// the styled listings are written anew.
TEST_P(Golden, ListingsAreStyledAsBefore)
{
    const QString name = goldenFile(GetParam());
    QStringList rows = contents(name).split(u"=== "_s, Qt::SkipEmptyParts);
    ASSERT_GT(rows.size(), 3);
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

INSTANTIATE_TEST_SUITE_P(Lexers, Golden, testing::Values("c", "javascript", "xml", "asm", "basic"));

} // namespace
