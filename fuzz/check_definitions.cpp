// Checks definitions of menus, keys, messages and properties.

#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "definitions/xml_pp.h"
#include "fuzz/promise.h"
#include "fuzz/scratch.h"
#include "fuzz/subjects.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// Looks up each name below \a root; the answers as one text.
std::string lookedUp(const XmlElement &root, const ActionNames &actions, const Properties &properties)
{
    constexpr int most = 100; // names: each path may be as long as the file
    std::string text(root.isNull() ? std::string_view() : root.text());
    for (const Property &property : properties.all())
        text.append(property.name).append(property.caption).append(property.type).append(property.description);
    int count = 0;
    for (XmlElement element = root; !element.isNull() && count < most; element = element.next(root)) {
        const std::string_view name = element.attribute("name");
        if (name.empty())
            continue;
        ++count;
        const ChoosePhrase phrase = actions.choosePhrase(name);
        text.append(phrase.path).append(phrase.key).append(phrase.error);
        text += actions.menuPath(name).path;
        text += actions.lookup(std::string(name) + ".tip");
        if (const Property *const property = properties.find(name))
            text += property->caption;
    }
    return text;
}

} // namespace

void checkDefinitions(std::string_view input)
{
    const QString file = Scratch::write(u"definitions.xml"_s, input);
    XmlPP document;
    const XmlPP::Loaded loaded = document.load(file);
    if (loaded.error) {
        // An XML reader may also end lines at a carriage return, and may read two bytes as one character.
        const auto ends = std::count_if(input.begin(), input.end(), [](char c) { return c == '\n' || c == '\r'; });
        promise(loaded.root.isNull() && loaded.error->line >= 1 && loaded.error->line <= ends + 1,
                "an error is on a line of the file", loaded.error->reason.toStdString());
        promise(!loaded.error->reason.contains(u'\n'), "a reason is one line");
        return;
    }
    ActionNames actions;
    Properties properties;
    if (!loaded.root.isNull()) {
        actions.add(loaded.root);
        properties.add(loaded.root);
    }
    const std::string answers = lookedUp(loaded.root, actions, properties);
    promise(QUtf8StringView(answers).isValidUtf8(), "answers are UTF-8", answers);
    promise(document.load(file).root.isNull(), "a file is loaded once");
}
