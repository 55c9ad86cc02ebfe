#include "sourcebrowser/object.h"

QString SourceBrowserObject::description(unsigned) const
{
    return m_name;
}

bool SourceBrowserObject::isEquivalent(const SourceBrowserObject &) const
{
    return false;
}

QString SourceBrowserObject::qualifiedName() const
{
    // The separator is a full stop for C++ too, on purpose.
    return m_scope.isEmpty() ? m_name : m_scope + u'.' + m_name;
}

void SourceBrowserObject::setDocumentation(const QString &text, int line)
{
    m_documentation = text;
    m_documentationLine = line;
}
