#include "base/make_rule.h"

#include <QFileInfo>

#include <algorithm>

namespace tavidoc {

namespace {

/// \a name as it is written in a rule.
QByteArray escapedName(const QString &name)
{
    QByteArray escaped;
    for (const char c : name.toUtf8()) {
        if (c == ' ' || c == '#')
            escaped += '\\';
        escaped += c == '$' ? "$$" : QByteArray(1, c);
    }
    return escaped;
}

} // namespace

QByteArray makeRule(const QString &target, const QStringList &files)
{
    QByteArray rule = escapedName(target) + ':';
    for (const QString &file : files)
        rule += " \\\n  " + escapedName(file);
    rule += '\n';
    for (const QString &file : files)
        rule += escapedName(file) + ":\n";
    return rule;
}

QString presentPath(QString name)
{
    while (!QFileInfo::exists(name) && name.size() > 1)
        name.truncate(std::max(name.lastIndexOf(u'/'), qsizetype(1)));
    return name;
}

} // namespace tavidoc
