#include "markup/command_table.h"
#include "markup/markup_cursor.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const char *name)
{
    QFile file{QString(QLatin1StringView(name))};
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

QJsonObject jsonOf(const char *name)
{
    return QJsonDocument::fromJson(bytesOf(name)).object();
}

/// Returns the scope that the grammar assigns to all of \a text; empty if no scope covers it. Of the patterns that match
/// at the same place, an editor uses the first.
QString scopeOf(const QString &text)
{
    static const QJsonArray patterns =
        jsonOf(TAVIDOC_EDITOR_FILES "/vscode/tavidoc.tmLanguage.json").value(u"patterns"_s).toArray();
    for (const QJsonValue &value : patterns) {
        const QJsonObject pattern = value.toObject();
        const QRegularExpression expression(
            pattern.value(pattern.contains(u"match"_s) ? u"match"_s : u"begin"_s).toString());
        EXPECT_TRUE(expression.isValid()) << qPrintable(expression.pattern());
        const QRegularExpressionMatch match = expression.match(text);
        if (match.hasMatch() && match.capturedStart() == 0)
            return match.capturedLength() == text.size() ? pattern.value(u"name"_s).toString() : QString();
    }
    return {};
}

/// Returns the command names in Vim's syntax file.
QSet<QString> vimCommands()
{
    static const QRegularExpression kind(uR"(^syntax match tavidoc\w+ #\\\\\\%\((.*)\\\)\[0-9A-Za-z\])"_s,
                                         QRegularExpression::MultilineOption);
    QSet<QString> words;
    const QString syntax = QString::fromUtf8(bytesOf(TAVIDOC_EDITOR_FILES "/vim/syntax/tavidoc.vim"));
    for (auto match = kind.globalMatch(syntax); match.hasNext();) {
        for (const QString &word : match.next().captured(1).split(u"\\|"_s))
            words.insert(word);
    }
    return words;
}

TEST(EditorFiles, KnowEveryCommandAndNoOther)
{
    QSet<QString> words;
    for (const Command &command : CommandTable::rows()) {
        const QString name = QString::fromUtf8(command.name.data(), qsizetype(command.name.size()));
        const QString scope = scopeOf(u'\\' + name);
        EXPECT_FALSE(scope.isEmpty() || scope.startsWith(u"invalid"_s)) << qPrintable(name);
        if (isNameCharacter(command.name.front()))
            words.insert(name);
        else
            EXPECT_EQ(scope, u"constant.character.escape.tavidoc"_s) << qPrintable(name);
    }
    EXPECT_EQ(vimCommands(), words);
    EXPECT_EQ(scopeOf(u"\\bold"_s), u"invalid.illegal.command.tavidoc"_s);
    EXPECT_EQ(scopeOf(u"\\item2"_s), u"invalid.illegal.command.tavidoc"_s);
}

TEST(ManPage, NamesEveryCommand)
{
    const QString page =
        QString::fromUtf8(bytesOf(TAVIDOC_SOURCE_DIR "/docs/man/tavidoc.7")).remove(u"\\&"_s).replace(u"\\-"_s, u"-"_s);
    for (const Command &command : CommandTable::rows()) {
        const QByteArray name = QByteArray(command.name.data(), qsizetype(command.name.size())).replace('\\', "\\e");
        const QString entry = uR"((^|\s)Ic \\e%1([\s{]))"_s.arg(QRegularExpression::escape(QString::fromUtf8(name)));
        EXPECT_TRUE(page.contains(QRegularExpression(entry, QRegularExpression::MultilineOption))) << name.constData();
    }
}

TEST(EditorFiles, KnowCommentsDirectivesAndListings)
{
    EXPECT_EQ(scopeOf(u"  % remark \\b{x}"_s), u"comment.line.percentage.tavidoc"_s);
    EXPECT_EQ(scopeOf(u"@riscv_morvath"_s), u"keyword.control.directive.tavidoc"_s);
    EXPECT_EQ(scopeOf(u"@else"_s), u"keyword.control.directive.tavidoc"_s);
    EXPECT_EQ(scopeOf(u"@arm only"_s), QString()); // does not open a block
    EXPECT_EQ(scopeOf(u"\\code{js}"_s), u"meta.embedded.block.tavidoc"_s);
}

TEST(EditorFiles, ReadTheMessagesOfTheProgramAndOfBuilds)
{
    const QJsonArray matchers =
        jsonOf(TAVIDOC_EDITOR_FILES "/vscode/package.json")[u"contributes"_s][u"problemMatchers"_s].toArray();
    const QStringList messages[] = {
        {u"error: docgen: a b.dg:12: \\sub{x:1: }: unknown command"_s, u"a b.dg"_s, u"12"_s, u"error"_s},
        {u"/home/a b.dg:12: warning: \\menu: Can't find it"_s, u"/home/a b.dg"_s, u"12"_s, u"warning"_s},
    };
    ASSERT_EQ(matchers.size(), 2);
    for (qsizetype i = 0; i < matchers.size(); ++i) {
        const QJsonObject pattern = matchers[i].toObject().value(u"pattern"_s).toObject();
        const QRegularExpressionMatch match =
            QRegularExpression(pattern.value(u"regexp"_s).toString()).match(messages[i].front());
        const auto field = [&](const QString &name) { return match.captured(pattern.value(name).toInt()); };
        EXPECT_EQ(QStringList({field(u"file"_s), field(u"line"_s), field(u"severity"_s)}), messages[i].mid(1));
    }
}

} // namespace
