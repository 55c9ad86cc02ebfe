#include "sourcebrowser/declaration_text.h"

#include <span>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

struct Replacement
{
    QStringView from;
    QStringView to;
};

/// Marks the "()" of a call operator, so that it does not pass for an empty argument list.
constexpr QChar s_mark = u'\u2060';

// Applied top to bottom to the whole text; the order is part of the result.
constexpr Replacement s_prototypeCleanUp[] = {
    {u"* ", u"*"}, {u"& ", u"&"},     {u" )", u")"},      {u"( ", u"("},
    {u" ,", u","}, {u"\u00A0", u" "}, {u"()", u"(void)"}, {u"(\u2060)", u"()"},
};
constexpr Replacement s_variableCleanUp[] = {
    {u"( * ", u"(*"},   {u"( *", u"(*"}, {u"* )", u"*)"}, {u" * ", u" *"},
    {u"()", u"(void)"}, {u" )", u")"},   {u"( ", u"("},   {u" ,", u","},
};

QString cleanedUp(QString text, std::span<const Replacement> replacements)
{
    for (const Replacement &replacement : replacements) {
        if (QStringView(text).contains(replacement.from))
            text.replace(replacement.from.data(), replacement.from.size(), replacement.to.data(),
                         replacement.to.size());
    }
    return text;
}

QStringView beforeName(const SourceBrowserType &type)
{
    return type.hasInsertion() ? QStringView(type.text).left(type.insertion) : QStringView(type.text);
}

QStringView afterName(const SourceBrowserType &type)
{
    return type.hasInsertion() ? QStringView(type.text).mid(type.insertion) : QStringView();
}

/// The name in a prototype. The "()" of a call operator is marked.
QString prototypeName(const SourceBrowserMethod &function)
{
    QString name = function.name();
    if (name.endsWith("()"_L1))
        name.insert(name.size() - 1, s_mark);
    return name;
}

void appendReturnType(QString &text, const SourceBrowserMethod &function, unsigned flags)
{
    const SourceBrowserType &type = function.type();
    if (type.text.isEmpty())
        return; // constructors, destructors and conversions
    text += beforeName(type);
    if (flags & SourceBrowserObject::ReturnTypeLine)
        text += u'\n';
    else if (!text.endsWith(u'*') && !type.hasInsertion())
        text += u' ';
}

} // namespace

QString typedNameText(const SourceBrowserType &type, const QString &name, unsigned flags)
{
    QString text = beforeName(type).toString();
    if (!type.hasInsertion())
        text += u' ';
    if (text.endsWith("* "_L1) || text.endsWith("& "_L1))
        text.chop(1);
    const bool strips = (flags & SourceBrowserObject::StripUnderscores) && name.startsWith("__"_L1);
    text += strips ? QStringView(name).mid(2) : QStringView(name);
    text += afterName(type);
    return text.simplified();
}

QString enumerationText(const SourceBrowserEnum &enumeration)
{
    return "typedef enum {\n  "_L1 + enumeration.enumerators().join(",\n  "_L1) + "\n} "_L1 + enumeration.name();
}

QString structureText(const SourceBrowserContainer &structure)
{
    QString text = u"typedef struct {\n"_s;
    for (const std::unique_ptr<SourceBrowserObject> &member : structure.members()) {
        if (!member || member->phylum() != SourceBrowserObject::Variable)
            continue;
        const auto &variable = static_cast<const SourceBrowserVariable &>(*member);
        text += "  "_L1 + typedNameText(variable.type(), variable.name(), 0) + ";\n"_L1;
    }
    return text + "} "_L1 + structure.name();
}

QString prototypeText(const SourceBrowserMethod &function, unsigned flags)
{
    QString text;
    if (flags & SourceBrowserObject::ReturnType)
        appendReturnType(text, function, flags);
    text += prototypeName(function);
    if (!(flags & SourceBrowserObject::TightParenthesis))
        text += u'\u00A0'; // becomes a blank in the clean-up
    text += u'(';
    QString separator = u", "_s;
    if (flags & SourceBrowserObject::ArgumentLines) {
        const qsizetype marks = text.count(s_mark);                // removed by the clean-up
        separator = ",\n"_L1 + QString(text.size() - marks, u' '); // deliberate: a return type line counts
    }
    bool first = true;
    for (const SourceBrowserArgument &argument : function.arguments()) {
        if (!first)
            text += separator;
        text += typedNameText(argument.type, argument.name, flags);
        first = false;
    }
    text += u')';
    if (flags & SourceBrowserObject::ReturnType)
        text += afterName(function.type());
    return cleanedUp(text, s_prototypeCleanUp);
}

QString variableText(const SourceBrowserVariable &variable)
{
    const SourceBrowserType &type = variable.type();
    const bool isConcept = type.text == u"concept"; // has the phylum of a typedef
    QString text = variable.phylum() == SourceBrowserObject::Typedef && !isConcept ? u"typedef "_s : QString();
    text += beforeName(type);
    if (!type.hasInsertion())
        text += u' ';
    text += variable.name();
    text += afterName(type);
    return cleanedUp(text, s_variableCleanUp);
}

} // namespace tavidoc
