#include "definitions/action_names.h"

#include "definitions/xml_tree_reader.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>

using namespace tavidoc;

namespace {

constexpr const char *s_menus = R"(<definemenubar name="main">
 <item name="Loose"/>
 <definemenu name="file" caption="&amp;File">
  <item name="Open"/>
  <menu caption="Sa&amp;&amp;ve &lt;all&gt;"><item name="Save"/><item name="Both"/><item name="Mute"/></menu>
  <menu><item name="NoCaption"/></menu>
  <group><menu caption="Inner"><item name="Grouped"/></menu></group>
  <item/>
 </definemenu>
 <definemenu name="again" caption="Second"><item name="Open"/></definemenu>
</definemenubar>)";

constexpr const char *s_messages = R"(<schemes><messagescheme>
 <item name="Open"><text>Open &amp; go</text><tip>First</tip></item>
 <item name="Save"><text>Save</text></item>
 <item name="Both"><text>Both</text></item>
 <item name="Mute"><text/></item>
 <item name="NoCaption"><text>Text</text></item>
 <item name="Grouped"><text>Grouped</text></item>
 <item name="Loose"><text>Loose</text></item>
 <item name="Hidden"><text>Hidden</text></item>
 <item name="About"><text> About <b>$(WENDRIX_NAME)</b>, $(NAME) $(WENDRIX_NAME</text></item>
 <item><tip>lost</tip></item>
</messagescheme>
<messagescheme><item name="Open"><tip>Later</tip></item></messagescheme></schemes>)";

constexpr const char *s_keys = R"(<keyscheme>
 <item name="Both"><key>Ctrl+&lt;</key></item>
 <item name="Hidden"><key>F1</key></item>
 <item name="Open"><key></key></item>
</keyscheme>)";

struct Definitions
{
    Definitions()
    {
        for (const char *text : {s_menus, s_messages, s_keys}) {
            std::optional<XmlTree> tree = XmlTreeReader(text).read();
            if (!tree)
                continue;
            trees.push_back(*std::move(tree));
            names.add(trees.back().root());
        }
    }
    std::deque<XmlTree> trees; // the names refer to them
    ActionNames names;
};

std::string joined(std::string text, const std::vector<std::string> &lines)
{
    for (const std::string &line : lines)
        text += "|" + line;
    return text;
}

struct Row
{
    const char *name;
    const char *action;
    const char *expected; // the result, then each warning after a "|"
};

} // namespace

TEST(ActionNames, MenuPaths)
{
    const Definitions definitions;
    for (const Row &row : {
             Row{"the marks go from captions, not from the action's text", "Open", "File > Open & go"},
             Row{"a doubled mark goes too", "Save", "File > Save <all> > Save"},
             Row{"a missing caption is an empty level", "NoCaption", "File >  > Text"},
             Row{"an empty text is a text", "Mute", "File > Save <all> > "},
             Row{"an element other than a menu ends the walk", "Grouped", "Inner > Grouped|Unprocessed tag group"},
             Row{"an item that is in no menu", "Loose", "|Can't find Loose in any menu"},
             Row{"an action without an item", "Hidden", "|Can't find Hidden in any menu"},
             Row{"an unknown action", "open", "|Can't find open in message scheme"},
             Row{"an action without a name", "", "|Can't find  in message scheme"},
         }) {
        const MenuPath result = definitions.names.menuPath(row.action);
        EXPECT_EQ(joined(result.path, result.warnings), row.expected) << row.name;
    }
}

TEST(ActionNames, Texts)
{
    const Definitions definitions;
    EXPECT_EQ(definitions.names.lookup("Open.tip"), "Later");
    EXPECT_EQ(definitions.names.lookup("Open.text"), "Open & go") << "an entry replaces only its own";
    EXPECT_EQ(definitions.names.lookup("About.text"), " About Tavi, $(NAME) $(WENDRIX_NAME");
    EXPECT_EQ(definitions.names.lookup(".tip"), "") << "an item without a name defines nothing";
}

TEST(ActionNames, Phrases)
{
    const Definitions definitions;
    for (const Row &row : {
             Row{"path and key", "Both", "path File > Save <all> > Both, key Ctrl+<"},
             Row{"path only; an empty key is none", "Open", "path File > Open & go, key "},
             Row{"key only", "Hidden", "path , key F1|Can't find Hidden in any menu"},
             Row{"neither", "Nothing",
                 "path , key : missing both menu path and accelerator for Nothing"
                 "|Can't find Nothing in message scheme"},
             Row{"no action", "", "path , key : choose has empty action name"},
         }) {
        const ChoosePhrase phrase = definitions.names.choosePhrase(row.action);
        std::string text = "path " + phrase.path + ", key " + std::string(phrase.key);
        if (!phrase.error.empty())
            text += ": " + phrase.error;
        EXPECT_EQ(joined(text, phrase.warnings), row.expected) << row.name;
    }
}
