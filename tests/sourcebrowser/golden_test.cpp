#include "tests/support/header_text.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QString goldenFile(const std::string &subject)
{
    return QStringLiteral(TAVIDOC_SOURCE_DIR "/tests/sourcebrowser/golden/") + QString::fromStdString(subject) +
           u".txt"_s;
}

QString contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Phylum, name, lines (counted from 0), access, rendering, bases, flags, comment and its line, as far as \a object has them.
QString objectText(const SourceBrowserObject &object)
{
    const SourceBrowserObject::Lines &lines = object.lines();
    QString text = u"%1 %2 %3..%4"_s.arg(object.phylum()).arg(object.qualifiedName()).arg(lines.first).arg(lines.last);
    if (lines.bodyFirst >= 0 || lines.bodyLast >= 0)
        text += u" body %1..%2"_s.arg(lines.bodyFirst).arg(lines.bodyLast);
    text += u" access %1 | %2"_s.arg(QString::number(object.access()), object.description().simplified());
    if (const auto *container = dynamic_cast<const SourceBrowserContainer *>(&object)) {
        for (const SourceBrowserBaseClass &base : container->baseClasses())
            text += u" | base %1 %2%3"_s.arg(QString::number(base.access), base.isVirtual ? u"virtual "_s : QString(),
                                             base.name);
    }
    if (const auto *method = dynamic_cast<const SourceBrowserMethod *>(&object)) {
        const std::pair<bool, QString> flags[] = {{method->isStatic, u" static"_s},
                                                  {method->isVirtual, u" virtual"_s},
                                                  {method->isConst, u" const"_s},
                                                  {method->isPure, u" pure"_s},
                                                  {method->isDeleted, u" deleted"_s}};
        for (const auto &[isSet, name] : flags)
            text += isSet ? name : QString();
    }
    if (!object.documentation().isEmpty())
        text += u" | comment %1 at %2"_s.arg(object.documentation().simplified()).arg(object.documentationLine());
    return text;
}

/// What is heard of \a header, and what the model of \a parser then holds.
QString readText(HeaderParser &parser, const QString &header)
{
    parser.heard.clear();
    parser.parseText(header);
    QString result;
    for (const QString &event : parser.heard.sliced(1, parser.heard.size() - 2)) // without the group around all
        result += event + u'\n';
    result += u"=>\n"_s;
    for (const SourceBrowserModel::Collection &collection : parser.model()->all()) {
        for (const SourceBrowserObject *object : collection)
            result += objectText(*object) + u'\n';
    }
    const SourceBrowserLineStatistics &lines = parser.statistics();
    result += u"lines %1 blank %2 comment %3 preprocessor %4"_s.arg(lines.total)
                  .arg(lines.blank)
                  .arg(lines.comment)
                  .arg(lines.preprocessor);
    if (!parser.overview().isEmpty())
        result += u" | overview "_s + parser.overview().simplified();
    return result + u'\n';
}

/// The row with what is heard and held of its header now; the sentence and the header are kept.
QString reread(const QString &row)
{
    const QString source = row.left(row.indexOf(u"\n---\n"_s));
    SourceBrowserModel model;
    HeaderParser parser(model);
    const QString result = readText(parser, source.section(u'\n', 1));
    EXPECT_EQ(readText(parser, source.section(u'\n', 1)).toStdString(), result.toStdString())
        << "a file that is read again replaces itself";
    return source + u"\n---\n"_s + result;
}

class GoldenHeaders : public testing::TestWithParam<std::string>
{
};

/// Each file is a list of examples: a sentence, a header, its events and its declarations. With TAVIDOC_UPDATE set,
/// events and declarations are rewritten.
TEST_P(GoldenHeaders, AreReadAsBefore)
{
    const QString name = goldenFile(GetParam());
    QStringList rows = contents(name).split(u"=== "_s, Qt::SkipEmptyParts);
    ASSERT_GT(rows.size(), 3);
    for (QString &row : rows) {
        const QString result = reread(row);
        if (qEnvironmentVariableIsSet("TAVIDOC_UPDATE"))
            row = result;
        EXPECT_EQ(row.toStdString(), result.toStdString());
    }
    QFile file(name);
    if (qEnvironmentVariableIsSet("TAVIDOC_UPDATE") && file.open(QIODevice::WriteOnly))
        file.write((u"=== "_s + rows.join(u"=== "_s)).toUtf8());
}

INSTANTIATE_TEST_SUITE_P(Headers, GoldenHeaders,
                         testing::Values("arguments", "classes", "conditionals", "containers", "declarators", "heads",
                                         "lines", "macros", "recovery", "skipping", "templates"));

} // namespace
