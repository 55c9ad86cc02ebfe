// Writes files with which editors colour markup: a syntax file for Vim and a TextMate grammar. The words come from the
// tables of the translator and the reader. usage: editor_files DIRECTORY

#include "base/hexception.h"
#include "base/whole_file.h"
#include "codeedit/languages.h"
#include "markup/command_table.h"
#include "markup/markup_cursor.h"
#include "reading/conditions.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// How editors show the commands of a kind.
struct Kind
{
    CommandKind kind;
    const char *name;
    const char *vimGroup;
    const char *scope;
    const char *tail = ""; ///< an expression for what is shown like the command
};

constexpr const char *s_blockScope = "keyword.control.block.tavidoc";

constexpr Kind s_kinds[] = {
    {CommandKind::Heading, "Heading", "Title", "entity.name.section.tavidoc", ".*"},
    {CommandKind::Symbol, "Symbol", "SpecialChar", "constant.character.tavidoc"},
    {CommandKind::Page, "Page", "PreProc", "keyword.control.page.tavidoc"},
    {CommandKind::Block, "Block", "Statement", s_blockScope},
    {CommandKind::Inline, "Inline", "Function", "support.function.tavidoc"},
};

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text);
}

/// The names of \a language with \a separator between them.
QString namesOf(const Language &language, const QString &separator)
{
    QStringList names;
    for (const std::string_view name : language.names)
        names.append(fromUtf8(name));
    return names.join(separator);
}

QStringList wordsOf(const Kind &kind)
{
    QStringList words;
    for (const Command &command : CommandTable::rows()) {
        if (command.kind == kind.kind && isNameCharacter(command.name.front()))
            words.append(fromUtf8(command.name));
    }
    return words;
}

QStringList directives()
{
    QStringList words;
    for (const std::string_view word : Conditions::openers())
        words.append(fromUtf8(word));
    return words << u"@else"_s << u"@end"_s;
}

QString vimKind(const Kind &kind)
{
    return uR"(syntax match tavidoc%1 #\\\%(%2\)[0-9A-Za-z]\@!%3#
highlight default link tavidoc%1 %4
)"_s.arg(QLatin1StringView(kind.name), wordsOf(kind).join(u"\\|"_s), QLatin1StringView(kind.tail),
         QLatin1StringView(kind.vimGroup));
}

/// A listing that begins with \a opening and is coloured by the cluster \a cluster.
QString vimRegion(const QString &opening, const QString &cluster = {})
{
    const QString contains = cluster.isEmpty() ? QString() : u" contains=@"_s + cluster;
    return uR"(syntax region tavidocListing matchgroup=tavidocBlock start=#\\%1# end=#\\end\%(code\|pre\)\># keepend%2
)"_s.arg(opening, contains);
}

QString vimListings()
{
    QString text = vimRegion(uR"(\%(code\|pre\)\%({[^}]*}\)\=[0-9A-Za-z]\@!)"_s);
    for (const Language &language : Languages::all()) {
        if (language.editors.vim.empty())
            continue;
        const QString syntax = fromUtf8(language.editors.vim);
        const QString cluster = u"tavidoc_"_s + syntax;
        const QString names = namesOf(language, u"\\|"_s);
        text += u"syntax include @%1 syntax/%2.vim\nunlet! b:current_syntax\n"_s.arg(cluster, syntax);
        text += vimRegion(uR"(\%(code\|pre\){\%(%1\)})"_s.arg(names), cluster);
        if (&language == Languages::named("c")) // what a listing without a language is in
            text += vimRegion(uR"(code[0-9A-Za-z{]\@!)"_s, cluster);
    }
    return text;
}

QString vimSyntax()
{
    QString text = uR"(" Vim syntax file of tavidoc's markup. Made from the program's table of commands.
if exists('b:current_syntax')
  finish
endif

" A later match wins over an earlier one that begins at the same place.
syntax case match
syntax match tavidocUnknown #\\[0-9A-Za-z]\+#
syntax match tavidocEscape #\\\%(\.\.\.\|[!-/:-@[-`{-~]-\=\)#
syntax match tavidocComment #^\s*%.*#
syntax match tavidocDefinition #^\s*@def\>.*#
syntax match tavidocDirective #^\s*\%(%1\)\s*$#
)"_s.arg(directives().join(u"\\|"_s));
    for (const Kind &kind : s_kinds)
        text += vimKind(kind);
    return text + vimListings() + uR"(syntax match tavidocRemark #\\\%(rem\|fixme\|review\)[0-9A-Za-z]\@!.*#
highlight default link tavidocUnknown Error
highlight default link tavidocEscape SpecialChar
highlight default link tavidocComment Comment
highlight default link tavidocRemark Todo
highlight default link tavidocDefinition Define
highlight default link tavidocDirective PreCondit
highlight default link tavidocListing String
syntax sync minlines=200
let b:current_syntax = 'tavidoc'
)"_s;
}

QJsonObject pattern(const QString &expression, const char *scope)
{
    return {{u"match"_s, expression}, {u"name"_s, QLatin1StringView(scope)}};
}

QJsonObject listingPattern(const QString &opening, std::string_view scope)
{
    QJsonObject listing = {{u"begin"_s, opening},
                           {u"end"_s, uR"(\\end(?:code|pre)(?![0-9A-Za-z]))"_s},
                           {u"name"_s, u"meta.embedded.block.tavidoc"_s},
                           {u"beginCaptures"_s, QJsonObject{{u"0"_s, pattern({}, s_blockScope)}}},
                           {u"endCaptures"_s, QJsonObject{{u"0"_s, pattern({}, s_blockScope)}}}};
    if (!scope.empty())
        listing[u"patterns"_s] = QJsonArray{QJsonObject{{u"include"_s, fromUtf8(scope)}}};
    return listing;
}

QByteArray textMateGrammar()
{
    QJsonArray patterns = {
        pattern(uR"(^\s*%.*)"_s, "comment.line.percentage.tavidoc"),
        pattern(uR"(^\s*@def\b.*)"_s, "keyword.control.directive.define.tavidoc"),
        pattern(uR"(^\s*(?:%1)\s*$)"_s.arg(directives().join(u'|')), "keyword.control.directive.tavidoc"),
        pattern(uR"(\\(?:rem|fixme|review)(?![0-9A-Za-z]).*)"_s, "comment.line.remark.tavidoc"),
        listingPattern(uR"(\\code(?![0-9A-Za-z{]))"_s, Languages::named("c")->editors.textMate),
    };
    for (const Language &language : Languages::all()) {
        if (!language.editors.textMate.empty())
            patterns.append(listingPattern(uR"(\\(?:code|pre)\{(?:%1)\})"_s.arg(namesOf(language, u"|"_s)),
                                           language.editors.textMate));
    }
    patterns.append(listingPattern(uR"(\\(?:code|pre)(?:\{[^}]*\})?(?![0-9A-Za-z]))"_s, {}));
    for (const Kind &kind : s_kinds)
        patterns.append(pattern(
            uR"(\\(?:%1)(?![0-9A-Za-z])%2)"_s.arg(wordsOf(kind).join(u'|'), QLatin1StringView(kind.tail)), kind.scope));
    patterns.append(pattern(uR"(\\(?:\.\.\.|[!-/:-@\[-`{-~]-?))"_s, "constant.character.escape.tavidoc"));
    patterns.append(pattern(uR"(\\[0-9A-Za-z]+)"_s, "invalid.illegal.command.tavidoc"));
    return QJsonDocument(QJsonObject{{u"name"_s, u"tavidoc"_s},
                                     {u"scopeName"_s, u"text.tavidoc"_s},
                                     {u"fileTypes"_s, QJsonArray{u"dg"_s}},
                                     {u"patterns"_s, patterns}})
        .toJson();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: editor_files DIRECTORY\n", stderr);
        return EXIT_FAILURE;
    }
    const QDir directory(QString::fromLocal8Bit(argv[1]));
    try {
        directory.mkpath(u"vim/syntax"_s);
        directory.mkpath(u"vscode"_s);
        writeWholeFile(directory.filePath(u"vim/syntax/tavidoc.vim"_s), vimSyntax().toUtf8());
        writeWholeFile(directory.filePath(u"vscode/tavidoc.tmLanguage.json"_s), textMateGrammar());
    } catch (const HException &exception) {
        std::fprintf(stderr, "error: %s\n", exception.message().constData());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
