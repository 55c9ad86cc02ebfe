// Checks definitions of menus, keys, messages and properties.

#include "base/source_text.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"
#include "definitions/xml_pp.h"
#include "fuzz/promise.h"
#include "fuzz/scratch.h"
#include "fuzz/subjects.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// Looks up every name below \a root. Returns the results as one text.
std::string lookedUp(const QDomElement &root, const ActionNames &actions, const Properties &properties)
{
    constexpr int most = 100; // names: each path may be as long as the file
    std::string text = properties.tableHtml() + textOf(root).toStdString();
    int count = 0;
    for (QDomElement element = root; !element.isNull() && count < most;
         element = nextElement(element, root, XmlChildren::Enter)) {
        if (!element.hasAttribute(u"name"_s))
            continue;
        ++count;
        const std::string name = element.attribute(u"name"_s).toStdString();
        text += actions.choosePhrase(name, "Choose ", "Press ").html;
        text += actions.menuPath(name).path;
        text += actions.lookup(name + ".tip");
        if (const std::string *const caption = properties.caption(name))
            text += *caption;
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
    promise(isUtf8(answers), "results are UTF-8", answers);
    promise(document.load(file).root.isNull(), "a file is loaded once");
}
