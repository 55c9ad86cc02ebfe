#include "sourcebrowser/object.h"

namespace tavidoc {

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
    // Deliberate: the separator is a full stop, in C++ too.
    return m_scope.isEmpty() ? m_name : m_scope + u'.' + m_name;
}

void SourceBrowserObject::setDocumentation(const QString &text, int line)
{
    if (text.isEmpty() && !m_texts)
        return;
    texts().documentation = text;
    texts().documentationLine = line;
}

void SourceBrowserObject::setDefinitionFile(const QString &file)
{
    if (!file.isEmpty() || m_texts)
        texts().definitionFile = file;
}

void SourceBrowserObject::setTrailingComment(const QString &text, int line)
{
    texts().trailingComment = text;
    texts().trailingCommentLine = line;
}

const SourceBrowserObject::Texts &SourceBrowserObject::texts() const
{
    static const Texts none;
    return m_texts ? *m_texts : none;
}

SourceBrowserObject::Texts &SourceBrowserObject::texts()
{
    if (!m_texts)
        m_texts = std::make_unique<Texts>();
    return *m_texts;
}

} // namespace tavidoc
