#include "markup/command_table.h"
#include "markup/markup_cursor.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString &name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

/// Returns the name of a file that is made by the program, which runs for the first of them.
QString madeFile(const QString &name)
{
    static const QTemporaryDir directory;
    static const int status =
        QProcess::execute(QStringLiteral(TAVIDOC_EDITOR_FILES_PROGRAM), QStringList{directory.path()});
    EXPECT_EQ(status, 0);
    return directory.filePath(name);
}

QJsonObject jsonOf(const QString &name)
{
    return QJsonDocument::fromJson(bytesOf(name)).object();
}

/// Returns the pattern of the grammar that matches all of \a text; empty without one. Of the patterns that match at the
/// same place, an editor uses the first.
QJsonObject patternOf(const QString &text)
{
    static const QJsonArray patterns =
        jsonOf(madeFile(u"vscode/tavidoc.tmLanguage.json"_s)).value(u"patterns"_s).toArray();
    for (const QJsonValue &value : patterns) {
        const QJsonObject pattern = value.toObject();
        const QRegularExpression expression(
            pattern.value(pattern.contains(u"match"_s) ? u"match"_s : u"begin"_s).toString());
        EXPECT_TRUE(expression.isValid()) << qPrintable(expression.pattern());
        const QRegularExpressionMatch match = expression.match(text);
        if (match.hasMatch() && match.capturedStart() == 0)
            return match.capturedLength() == text.size() ? pattern : QJsonObject();
    }
    return {};
}

QString scopeOf(const QString &text)
{
    return patternOf(text).value(u"name"_s).toString();
}

QString vimSyntax()
{
    return QString::fromUtf8(bytesOf(madeFile(u"vim/syntax/tavidoc.vim"_s)));
}

/// Returns the command names in Vim's syntax file.
QSet<QString> vimCommands()
{
    static const QRegularExpression kind(uR"(^syntax match tavidoc\w+ #\\\\\\%\((.*)\\\)\[0-9A-Za-z\])"_s,
                                         QRegularExpression::MultilineOption);
    QSet<QString> words;
    const QString syntax = vimSyntax();
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

TEST(EditorFiles, ShowEachKindOfCommandInItsOwnWay)
{
    const std::pair<CommandKind, const char *> scopes[] = {{CommandKind::Symbol, "constant.character.tavidoc"},
                                                           {CommandKind::Inline, "support.function.tavidoc"},
                                                           {CommandKind::Heading, "entity.name.section.tavidoc"},
                                                           {CommandKind::Block, "keyword.control.block.tavidoc"},
                                                           {CommandKind::Page, "keyword.control.page.tavidoc"}};
    const QStringList others = {u"constant.character.escape.tavidoc"_s, u"meta.embedded.block.tavidoc"_s,
                                u"comment.line.remark.tavidoc"_s};
    for (const Command &command : CommandTable::rows()) {
        const QString name = QString::fromUtf8(command.name.data(), qsizetype(command.name.size()));
        const QString scope = scopeOf(u'\\' + name);
        const auto *const expected =
            std::ranges::find(scopes, command.kind, &std::pair<CommandKind, const char *>::first);
        ASSERT_NE(expected, std::end(scopes)) << qPrintable(name);
        EXPECT_TRUE(scope == QLatin1StringView(expected->second) || others.contains(scope))
            << qPrintable(name + u": "_s + scope);
    }
}

TEST(EditorFiles, AreNotMadeSilentlyWhereNoneCanBe)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"file"_s);
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    for (const QStringList &arguments : {QStringList{}, QStringList{file}}) {
        QProcess program;
        program.start(QStringLiteral(TAVIDOC_EDITOR_FILES_PROGRAM), arguments);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 1);
        const QByteArray expected = arguments.isEmpty() ? "usage: " : "error: cannot write " + file.toUtf8() + "/vim/";
        EXPECT_TRUE(program.readAllStandardError().startsWith(expected));
    }
}

TEST(ManPage, NamesEveryCommand)
{
    const QString page = QString::fromUtf8(bytesOf(QStringLiteral(TAVIDOC_SOURCE_DIR "/docs/man/tavidoc.7")))
                             .remove(u"\\&"_s)
                             .replace(u"\\-"_s, u"-"_s);
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
}

TEST(EditorFiles, ColourListingsAsTheirLanguage)
{
    for (const auto &[opening, scope] : {std::pair(u"\\code"_s, "source.cpp"),
                                         {u"\\pre{c}"_s, "source.cpp"},
                                         {u"\\code{js}"_s, "source.js"},
                                         {u"\\code{javascript}"_s, "source.js"},
                                         {u"\\pre"_s, ""},
                                         {u"\\code{basic}"_s, ""}}) {
        const QJsonObject listing = patternOf(opening);
        EXPECT_EQ(listing.value(u"name"_s), u"meta.embedded.block.tavidoc"_s) << qPrintable(opening);
        EXPECT_EQ(listing[u"patterns"_s][0][u"include"_s].toString().toStdString(), scope) << qPrintable(opening);
    }
    QStringList regions;
    static const QRegularExpression region(u"^syntax region .* start=#(.*)# end=.* keepend(.*)$"_s,
                                           QRegularExpression::MultilineOption);
    for (auto match = region.globalMatch(vimSyntax()); match.hasNext();)
        regions.append(match.next().capturedTexts().mid(1).join(QString()));
    EXPECT_EQ(regions.value(0), uR"(\\\%(code\|pre\)\%({[^}]*}\)\=[0-9A-Za-z]\@!)"_s); // the last match wins
    for (const QString &expected :
         {uR"(\\\%(code\|pre\){\%(c\)} contains=@tavidoc_cpp)"_s, uR"(\\code[0-9A-Za-z{]\@! contains=@tavidoc_cpp)"_s,
          uR"(\\\%(code\|pre\){\%(javascript\|js\)} contains=@tavidoc_javascript)"_s})
        EXPECT_TRUE(regions.contains(expected)) << qPrintable(expected);
}

TEST(EditorFiles, ReadTheMessagesOfTheProgramAndOfBuilds)
{
    const QJsonArray matchers = jsonOf(QStringLiteral(
        TAVIDOC_SOURCE_DIR "/share/editors/vscode/package.json"))[u"contributes"_s][u"problemMatchers"_s]
                                    .toArray();
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
