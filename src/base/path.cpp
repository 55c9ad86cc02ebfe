#include "base/path.h"

#include <QDir>

#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

Path::Path(QString text) : m_given(std::move(text)) {}

QString Path::text() const
{
    if (m_cleaned.isNull())
        m_cleaned = QDir::cleanPath(m_given);
    return m_cleaned;
}

QString Path::fileName() const
{
    return m_given.mid(m_given.lastIndexOf(u'/') + 1);
}

QString Path::directory() const
{
    const qsizetype slash = m_given.lastIndexOf(u'/');
    if (slash < 0)
        return u"."_s;
    return slash == 0 ? u"/"_s : m_given.left(slash);
}

QString Path::completeSuffix() const
{
    const QString name = fileName();
    const qsizetype dot = name.indexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString Path::suffix() const
{
    const QString name = fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString Path::baseName() const
{
    const QString name = fileName();
    const qsizetype dot = name.indexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

QString Path::completeBaseName() const
{
    const QString name = fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

} // namespace tavidoc
