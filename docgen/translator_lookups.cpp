#include "docgen/translator.h"

void Translator::menu(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    beginText();
    write("<b>\\menu Can't find ");
    writeEscaped(*action);
    write("</b>");
}

void Translator::key(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    beginText();
    write("<b></b>");
}

void Translator::tip(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    beginText();
    write("<b>***ERROR NO TIP*** ");
    writeEscaped(*action);
    write("</b>");
}

void Translator::choose(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    beginText();
    write("***ERROR***");
}

void Translator::property(const Command &)
{
    const auto name = braced();
    if (!name)
        return;
    beginText();
    write("<font color=\"red\">Unknown property ");
    writeEscaped(*name);
    write("</font>");
}

void Translator::propertyPage(const Command &) {}

void Translator::icon(const Command &)
{
    if (braced())
        errorMarker("there is no icon of this name");
}
