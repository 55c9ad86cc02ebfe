#include "definitions/action_names.h"

#include "base/product.h"
#include "base/text_escape.h"
#include "definitions/xml_pp.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view s_error = "***ERROR***";

bool isMenu(const QString &tag)
{
    return tag == u"definemenu" || tag == u"menu";
}

bool isScheme(const QString &tag)
{
    return tag == u"messagescheme" || tag == u"keyscheme";
}

/// Puts the value of \a definition, "NAME=value", wherever \a text says "$(NAME)".
std::string expanded(std::string_view text, std::string_view definition)
{
    const std::size_t equals = definition.find('=');
    const std::string place = "$(" + std::string(definition.substr(0, equals)) + ")";
    std::string result;
    for (std::size_t at = text.find(place); at != std::string_view::npos; at = text.find(place)) {
        result.append(text.substr(0, at)).append(definition.substr(equals + 1));
        text.remove_prefix(at + place.size());
    }
    return result.append(text);
}

/// The texts of the menus around \a item, from the innermost outwards.
std::vector<std::string> captionsAround(const QDomElement &item, std::vector<std::string> &warnings)
{
    std::vector<std::string> captions;
    for (QDomNode node = item.parentNode(); node.isElement(); node = node.parentNode()) {
        const QDomElement element = node.toElement();
        if (!isMenu(element.tagName())) {
            // Deliberate: the bar is where every walk ends; it is not reported.
            if (element.tagName() != u"definemenubar")
                warnings.push_back("Unprocessed tag " + element.tagName().toStdString());
            break;
        }
        // Every "&" goes, the doubled one too that stands for an ampersand: this is wanted.
        captions.push_back(element.attribute(u"caption"_s).remove(u'&').toStdString());
    }
    return captions;
}

void appendBold(std::string &html, std::string_view text)
{
    html += " <b>";
    appendEscaped(html, text);
    html += "</b>";
}

std::string inLowerCase(std::string_view verb)
{
    std::string result(verb);
    std::transform(result.begin(), result.end(), result.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return result;
}

} // namespace

void ActionNames::add(const QDomElement &root)
{
    for (QDomElement element = root; !element.isNull();) {
        const QString tag = element.tagName();
        if (isMenu(tag))
            addMenu(element);
        else if (isScheme(tag))
            addScheme(element);
        const bool isDone = isMenu(tag) || isScheme(tag);
        element = nextElement(element, root, isDone ? XmlChildren::Skip : XmlChildren::Enter);
    }
}

void ActionNames::addMenu(const QDomElement &menu)
{
    for (QDomElement element = menu; !element.isNull(); element = nextElement(element, menu, XmlChildren::Enter)) {
        if (element.tagName() != u"item")
            continue;
        if (std::string action = element.attribute(u"name"_s).toStdString(); !action.empty())
            m_menuItems.try_emplace(std::move(action), element);
    }
}

/// Both kinds of scheme have one shape: items, with an element for each text.
void ActionNames::addScheme(const QDomElement &scheme)
{
    (scheme.tagName() == u"keyscheme" ? m_hasKeys : m_hasMessages) = true;
    const std::string definition = "WENDRIX_NAME=" + std::string(Product::displayName);
    const QString itemTag = u"item"_s;
    for (QDomElement item = scheme.firstChildElement(itemTag); !item.isNull();
         item = item.nextSiblingElement(itemTag)) {
        const std::string action = item.attribute(u"name"_s).toStdString();
        if (action.empty())
            continue;
        for (QDomElement entry = item.firstChildElement(); !entry.isNull(); entry = entry.nextSiblingElement())
            m_texts[action + "." + entry.tagName().toStdString()] = expanded(textOf(entry).toStdString(), definition);
    }
}

std::string_view ActionNames::lookup(std::string_view key) const
{
    const auto found = m_texts.find(key);
    return found == m_texts.end() ? std::string_view() : found->second;
}

const std::string *ActionNames::text(std::string_view action, std::string_view tag) const
{
    std::string key(action);
    key.append(".").append(tag);
    const auto found = m_texts.find(key);
    return found == m_texts.end() ? nullptr : &found->second;
}

MenuPath ActionNames::menuPath(std::string_view action) const
{
    MenuPath result;
    const std::string name(action);
    const std::string *ownText = text(action, "text");
    if (!ownText) {
        result.warnings.push_back("Can't find " + name + " in message scheme");
        return result;
    }
    const auto item = m_menuItems.find(action);
    if (item == m_menuItems.end()) {
        result.warnings.push_back("Can't find " + name + " in any menu");
        return result;
    }
    std::vector<std::string> captions = captionsAround(item->second, result.warnings);
    std::ranges::reverse(captions);
    for (const std::string &caption : captions)
        result.path.append(caption).append(" > ");
    result.path += *ownText;
    return result;
}

ChoosePhrase ActionNames::choosePhrase(std::string_view action, std::string_view menuVerb,
                                       std::string_view keyVerb) const
{
    if (action.empty())
        return {std::string(s_error), "error: docgen: choose has empty action name\n", {}};
    MenuPath menu = menuPath(action);
    const std::string *key = text(action, "key");
    const bool hasKey = key && !key->empty();
    ChoosePhrase phrase{{}, {}, std::move(menu.warnings)};
    if (!menu.path.empty()) {
        phrase.html += menuVerb;
        appendBold(phrase.html, menu.path);
    }
    if (hasKey) {
        phrase.html += menu.path.empty() ? std::string(keyVerb) : " or " + inLowerCase(keyVerb);
        appendBold(phrase.html, *key);
    }
    if (phrase.html.empty()) {
        phrase.html = s_error;
        phrase.errorLine = "error: docgen: missing both menu path and accelerator for " + std::string(action);
        std::ranges::replace(phrase.errorLine, '\n', ' '); // a name may run over lines, a message does not
        phrase.errorLine += '\n';
    }
    return phrase;
}

} // namespace tavidoc
