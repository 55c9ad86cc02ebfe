#include "markup/sentence.h"
#include "markup/translator.h"

namespace tavidoc {

namespace {

/// The verb \a capitalized as it stands inside a sentence.
std::string inSentence(std::string_view capitalized)
{
    std::string verb(capitalized);
    verb.front() = static_cast<char>(verb.front() - 'A' + 'a');
    return verb;
}

} // namespace

/// Reports those of \a files that are missing, if somebody asks for that: the command at hand has
/// found nothing, and the definition would be in them.
void Translator::missingDefinitions(std::initializer_list<std::string_view> files)
{
    for (const std::string_view file : files)
        m_report.missingDefinition(m_commandOffset, m_commandName, file);
}

void Translator::menu(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    const MenuPath menu = m_actions.menuPath(*action);
    for (const std::string &message : menu.warnings)
        warning(message);
    beginText();
    write("<b>");
    if (menu.path.empty()) {
        missingDefinitions({"messages.xml", "menus.xml"});
        write("\\menu Can't find ");
        writeEscaped(*action);
    } else {
        writeEscaped(menu.path);
    }
    write("</b>");
}

void Translator::key(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    const std::string_view key = m_actions.lookup(std::string(*action) + ".key");
    if (key.empty()) {
        warning("Can't find " + std::string(*action) + " in key scheme");
        missingDefinitions({"keys.xml"});
    }
    beginText();
    write("<b>");
    writeEscaped(key);
    write("</b>");
}

void Translator::tip(const Command &)
{
    const auto action = braced();
    if (!action)
        return;
    const std::string_view tip = m_actions.lookup(std::string(*action) + ".tip");
    beginText();
    if (!tip.empty())
        return writeEscaped(tip);
    error("there is no tip for " + std::string(*action));
    missingDefinitions({"messages.xml"});
    write("<b>***ERROR NO TIP*** ");
    writeEscaped(*action);
    write("</b>");
}

/// Writes how to invoke an action. The verbs are capitalized.
void Translator::instruct(std::string_view menuVerb, std::string_view keyVerb)
{
    const auto action = braced();
    if (!action)
        return;
    beginText();
    const bool capital = endsBeforeSentence(m_blocks.openText());
    const ChoosePhrase phrase = m_actions.choosePhrase(*action, capital ? std::string(menuVerb) : inSentence(menuVerb),
                                                       capital ? std::string(keyVerb) : inSentence(keyVerb));
    for (const std::string &message : phrase.warnings)
        warning(message);
    if (!phrase.errorLine.empty()) {
        m_report.print(phrase.errorLine);
        missingDefinitions({"messages.xml", "menus.xml", "keys.xml"});
    }
    write(phrase.html);
}

void Translator::property(const Command &)
{
    const auto name = braced();
    if (!name)
        return;
    const std::string *const caption = m_properties.caption(*name);
    if (caption == nullptr) {
        error("there is no property " + std::string(*name));
        missingDefinitions({"properties.xml"});
    }
    beginText();
    write(caption == nullptr ? "<font color=\"red\">Unknown property " : "<b>");
    writeEscaped(caption == nullptr ? *name : *caption);
    write(caption == nullptr ? "</font>" : "</b>");
}

void Translator::propertyPage(const Command &)
{
    if (m_blocks.mode() == BlockMode::Paragraph)
        m_blocks.setMode(BlockMode::None);
    if (m_properties.isEmpty())
        missingDefinitions({"properties.xml"});
    m_blocks.append(m_properties.tableHtml());
}

void Translator::icon(const Command &)
{
    const auto name = braced();
    if (!name)
        return;
    if (m_icons.save(*name) == IconTable::Answer::Unknown)
        return errorMarker("there is no icon of this name");
    beginText();
    write("<img src=\"images/");
    writeEscaped(*name);
    write(".png\" />");
}

} // namespace tavidoc
