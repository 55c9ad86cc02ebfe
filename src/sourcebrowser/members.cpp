#include "sourcebrowser/members.h"

#include "sourcebrowser/declaration_text.h"

#include <typeinfo>

namespace tavidoc {

namespace {

bool sameClassAndName(const SourceBrowserObject &one, const SourceBrowserObject &other)
{
    return typeid(one) == typeid(other) && one.name() == other.name();
}

} // namespace

SourceBrowserVariable::SourceBrowserVariable(Phylum phylum, const QString &name, const SourceBrowserType &type)
    : SourceBrowserObject(phylum, name)
{
    setType(type);
}

void SourceBrowserVariable::setType(const SourceBrowserType &type)
{
    m_type = type;
    if (type.insertion < 0)
        m_type.text = type.text.trimmed();
}

QString SourceBrowserVariable::description(unsigned) const
{
    return variableText(*this);
}

bool SourceBrowserVariable::isEquivalent(const SourceBrowserObject &other) const
{
    return sameClassAndName(*this, other);
}

SourceBrowserMethod::SourceBrowserMethod(const QString &name, const SourceBrowserType &returnType)
    : SourceBrowserVariable(Method, name, returnType)
{
}

QString SourceBrowserMethod::description(unsigned flags) const
{
    return prototypeText(*this, flags);
}

bool SourceBrowserMethod::isEquivalent(const SourceBrowserObject &) const
{
    return false; // Overloads share a name and are different functions.
}

QString SourceBrowserEnum::description(unsigned) const
{
    return enumerationText(*this);
}

bool SourceBrowserEnum::isEquivalent(const SourceBrowserObject &other) const
{
    return sameClassAndName(*this, other);
}

SourceBrowserMacro::SourceBrowserMacro(const QString &name, const QString &directive) : SourceBrowserObject(Macro, name)
{
    setAccess(Public);
    setText(directive);
}

} // namespace tavidoc
