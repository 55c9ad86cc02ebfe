// Prints what SynopsisSource knows of the declarations of a header, as JSON: one array of objects.

#include "apiref/comment_findings.h"
#include "apiref/doc_gen_c_parser.h"
#include "apiref/synopsis_source.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QJsonArray enumerators(const SynopsisSource &source, const SourceBrowserObject &object)
{
    QJsonArray list;
    if (const auto *const enumeration = dynamic_cast<const SourceBrowserEnum *>(&object)) {
        for (const SynopsisSource::Enumerator &enumerator : source.enumerators(*enumeration))
            list.append(QJsonArray{enumerator.name, enumerator.value, enumerator.comment});
    }
    return list;
}

QJsonObject described(const SynopsisSource &source, const SourceBrowserObject &object, const QString &text)
{
    const QStringView stated = source.stated(object);
    const std::string_view kind = declarationKind(object);
    return {{u"name"_s, object.qualifiedName()},
            {u"kind"_s, QString::fromUtf8(kind.data(), static_cast<qsizetype>(kind.size()))},
            {u"access"_s, static_cast<int>(object.declaredAccess())},
            {u"line"_s, object.lines().first + 1},
            {u"begin"_s, stated.isEmpty() ? qint64(-1) : stated.data() - text.constData()},
            {u"end"_s, stated.isEmpty() ? qint64(-1) : stated.data() - text.constData() + stated.size()},
            {u"comment"_s, object.trailingComment()},
            {u"enumerators"_s, enumerators(source, object)},
            {u"synopsis"_s, QString::fromStdString(source.synopsis(object))}};
}

} // namespace

int main(int count, char **values)
{
    if (count != 2) {
        std::fputs("usage: dump_synopses HEADER\n", stderr);
        return 1;
    }
    const QString name = QString::fromLocal8Bit(values[1]);
    SourceLineReader lines{Path(name)};
    SourceBrowserModel model;
    DocGenSourceBrowserCParser parser(model, lines);
    parser.setComplete(true);
    parser.parse(name);
    const SynopsisSource source(lines.text(), model);
    source.attachTrailingComments();
    QJsonArray objects;
    for (const SourceBrowserModel::Collection &collection : model.all()) {
        for (const SourceBrowserObject *const object : collection)
            objects.append(described(source, *object, source.text()));
    }
    const QByteArray text = QJsonDocument(objects).toJson(QJsonDocument::Indented);
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    return 0;
}
