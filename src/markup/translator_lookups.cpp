#include "base/text_escape.h"
#include "markup/sentence.h"
#include "markup/translator.h"

namespace tavidoc {

namespace {

/// The check for names that the definitions and the built-in tables lack.
constexpr std::string_view s_unknownName = "unknown-name";

/// The verb \a capitalized as it is written inside a sentence.
std::string inSentence(std::string_view capitalized)
{
    std::string verb(capitalized);
    verb.front() = static_cast<char>(verb.front() - 'A' + 'a');
    return verb;
}

std::string bold(std::string_view text)
{
    return "<b>" + escapedText(text) + "</b>";
}

/// The table of all \a properties.
std::string propertyTable(std::span<const Property> properties)
{
    std::string html = "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" "
                       "cols=\"200pt 200pt\">\n"
                       "<tr bgcolor=\"#cccccc\"><th>Property</th><th>Description</th></tr>\n";
    for (const Property &property : properties) {
        html += "<tr><td>";
        appendEscaped(html, property.caption);
        html += "<small><tt>";
        appendEscaped(html, property.name);
        html += "</tt>&nbsp;&ndash;&nbsp;";
        appendEscaped(html, property.type);
        html += "</small></td><td>";
        appendEscaped(html, property.description);
        html += "</td></tr>\n";
    }
    return html.append("</table>");
}

} // namespace

/// Reports the missing ones of \a files, if missing files are reported: the current command found no
/// definition, which would be in them.
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
        warning(message, s_unknownName);
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
        warning("Can't find " + std::string(*action) + " in key scheme", s_unknownName);
        missingDefinitions({"keys.xml"});
    }
    beginText();
    write(bold(key));
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
    error("no tip for \"" + simplified(*action) + "\": expected an item with a tip in messages.xml", s_unknownName);
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
    const auto verb = [](std::string_view word, bool isCapital) {
        return (isCapital ? std::string(word) : inSentence(word)) + ' ';
    };
    const ChoosePhrase phrase = m_actions.choosePhrase(*action);
    for (const std::string &message : phrase.warnings)
        warning(message, s_unknownName);
    if (!phrase.error.empty()) {
        m_report.errorWithoutPosition(phrase.error, s_unknownName);
        if (m_facts != nullptr)
            m_facts->listener().finding({s_unknownName, place(m_commandOffset), phrase.error});
        missingDefinitions({"messages.xml", "menus.xml", "keys.xml"});
        return write("***ERROR***");
    }
    const bool hasPath = !phrase.path.empty();
    if (hasPath)
        write(verb(menuVerb, capital) + bold(phrase.path));
    if (hasPath && !phrase.key.empty())
        write(" or ");
    if (!phrase.key.empty())
        write(verb(keyVerb, capital && !hasPath) + bold(phrase.key));
}

void Translator::property(const Command &)
{
    const auto name = braced();
    if (!name)
        return;
    const Property *const property = m_properties.find(*name);
    if (property == nullptr) {
        error("unknown property \"" + simplified(*name) + "\": expected a name from properties.xml", s_unknownName);
        missingDefinitions({"properties.xml"});
    }
    beginText();
    write(property == nullptr ? "<font color=\"red\">Unknown property " : "<b>");
    writeEscaped(property == nullptr ? *name : property->caption);
    write(property == nullptr ? "</font>" : "</b>");
}

void Translator::propertyPage(const Command &)
{
    if (m_blocks.mode() == BlockMode::Paragraph)
        m_blocks.setMode(BlockMode::None);
    if (m_properties.isEmpty())
        missingDefinitions({"properties.xml"});
    m_blocks.append(propertyTable(m_properties.all()));
}

void Translator::icon(const Command &)
{
    const auto name = braced();
    if (!name)
        return;
    if (!m_icons.save(*name))
        return errorMarker("unknown icon \"" + simplified(*name) + "\": expected the name of a built-in icon",
                           s_unknownName);
    beginText();
    write("<img src=\"");
    const std::size_t source = m_blocks.text().size();
    const std::string file = "images/" + std::string(*name) + ".png";
    writeEscaped(file);
    if (m_facts != nullptr)
        noteImage(source, file, true);
    write("\" />");
}

} // namespace tavidoc
