#include "definitions/action_names.h"

#include "base/product.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

bool isMenu(std::string_view tag)
{
    return tag == "definemenu" || tag == "menu";
}

bool isScheme(std::string_view tag)
{
    return tag == "messagescheme" || tag == "keyscheme";
}

std::string dotted(std::string_view action, std::string_view tag)
{
    return std::string(action).append(".").append(tag);
}

/// Replaces each "$(NAME)" in \a text by the value of \a definition, "NAME=value".
std::string replaced(std::string_view text, std::string_view definition)
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

/// The captions of the menus around \a item, from the innermost outwards.
std::vector<std::string> captionsAround(const XmlElement &item, std::vector<std::string> &warnings)
{
    std::vector<std::string> captions;
    for (XmlElement element = item.parent(); !element.isNull(); element = element.parent()) {
        if (!isMenu(element.name())) {
            // Deliberate: every walk ends at the bar, which is not reported.
            if (element.name() != "definemenubar")
                warnings.push_back("Unprocessed tag " + std::string(element.name()));
            break;
        }
        std::string &caption = captions.emplace_back(element.attribute("caption"));
        std::erase(caption, '&'); // deliberate: also a doubled one, which shows as an ampersand in a menu
    }
    return captions;
}

} // namespace

void ActionNames::add(const XmlElement &root)
{
    for (XmlElement element = root; !element.isNull();) {
        const bool isOfMenu = isMenu(element.name());
        if (isOfMenu)
            addMenu(element);
        else if (isScheme(element.name()))
            addScheme(element);
        element = isOfMenu || isScheme(element.name()) ? element.nextAfterChildren(root) : element.next(root);
    }
}

void ActionNames::addMenu(const XmlElement &menu)
{
    for (XmlElement element = menu; !element.isNull(); element = element.next(menu)) {
        if (element.name() != "item")
            continue;
        if (const std::string_view action = element.attribute("name"); !action.empty())
            m_menuItems.try_emplace(action, element);
    }
}

/// Both kinds of scheme have the same structure: items, with an element for each text.
void ActionNames::addScheme(const XmlElement &scheme)
{
    (scheme.name() == "keyscheme" ? m_hasKeys : m_hasMessages) = true;
    for (XmlElement item = scheme.firstChild(); !item.isNull(); item = item.nextSibling()) {
        const std::string_view action = item.attribute("name");
        if (item.name() != "item" || action.empty())
            continue;
        for (XmlElement entry = item.firstChild(); !entry.isNull(); entry = entry.nextSibling())
            m_texts[dotted(action, entry.name())] = expanded(entry.text());
    }
}

/// \a text with the product's name in place of "$(WENDRIX_NAME)".
std::string_view ActionNames::expanded(std::string_view text)
{
    if (text.find("$(") == std::string_view::npos)
        return text;
    const std::string definition = "WENDRIX_NAME=" + std::string(Product::displayName);
    return m_expanded.emplace_back(replaced(text, definition));
}

std::string_view ActionNames::lookup(std::string_view key) const
{
    const auto found = m_texts.find(key);
    return found == m_texts.end() ? std::string_view() : found->second;
}

const std::string_view *ActionNames::text(std::string_view action, std::string_view tag) const
{
    const auto found = m_texts.find(dotted(action, tag));
    return found == m_texts.end() ? nullptr : &found->second;
}

MenuPath ActionNames::menuPath(std::string_view action) const
{
    MenuPath result;
    const std::string name(action);
    const std::string_view *ownText = text(action, "text");
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

ChoosePhrase ActionNames::choosePhrase(std::string_view action) const
{
    if (action.empty())
        return {{}, {}, "choose has empty action name", {}};
    MenuPath menu = menuPath(action);
    ChoosePhrase phrase{std::move(menu.path), lookup(dotted(action, "key")), {}, std::move(menu.warnings)};
    if (phrase.path.empty() && phrase.key.empty())
        phrase.error = "missing both menu path and accelerator for " + std::string(action);
    return phrase;
}

} // namespace tavidoc
