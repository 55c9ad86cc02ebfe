#include "definitions/xml_tree_reader.h"
#include "markup/file_commands.h"
#include "markup/page_titles.h"
#include "markup/translator.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

constexpr const char *s_definitions = R"(<definitions>
<definemenubar><definemenu caption="&amp;File"><item name="Both"/><item name="Path"/></definemenu></definemenubar>
<messagescheme>
 <item name="Both"><text>Save &lt;all&gt;</text><tip>Saves &amp; closes</tip></item>
 <item name="Path"><text>Print</text></item>
</messagescheme>
<keyscheme><item name="Both"><key>Ctrl+&lt;</key></item><item name="Key"><key>F1</key></item></keyscheme>
<properties><property name="b" caption="B &amp; c" type="&lt;int>">Is
 "b".</property><property/></properties>
</definitions>)";

/// The body of a page with the text \a markup, and the messages after it.
std::string translated(std::string_view markup)
{
    const std::optional<XmlTree> tree = XmlTreeReader(s_definitions).read();
    ActionNames actions;
    Properties properties;
    actions.add(tree->root());
    properties.add(tree->root());

    const std::string text = "\\split{p}\n" + std::string(markup);
    std::string messages;
    const MessageSink sink = [&messages](const Message &message) { messages += formatted(message); };
    SourceMap map;
    map.beginStretch(0, map.addFile(u"doc.dg"_s), 1);
    Report report(text, map, sink);
    std::string paragraphTag;
    HtmlBlocks blocks(paragraphTag);
    OutputRecords records;
    OutputRecorder recorder(records, u"out"_s);
    OutputQueue output(recorder);
    output.release();
    Pages pages(blocks, output, false);
    Contents contents;
    const TitleLists titles;
    const CrossReferences references(titles, nullptr);
    IconTable icons(u"out"_s);
    Translator(text, {.blocks = blocks,
                      .pages = pages,
                      .contents = contents,
                      .references = references,
                      .report = report,
                      .actions = actions,
                      .properties = properties,
                      .icons = icons,
                      .declarations = nullptr,
                      .outputFormat = {},
                      .baseHeadingLevel = 0,
                      .facts = nullptr})
        .translate();
    pages.flush();
    return (records.empty() ? std::string() : records.front().text.toStdString()) + messages;
}

} // namespace

TEST(FileCommands, AreFoundBeforeTranslation)
{
    struct Row
    {
        const char *text;
        std::optional<std::size_t> last;
    };
    for (const Row &row : {
             Row{"\\icon{A} \\icon{B} \\b{c}", 9},
             Row{"a \\b{\\present x}", 5},
             Row{"\\copyin x", 0},
             Row{"\\\\this", 1},
             Row{"\\ic\\thison", 3},
             Row{"", {}},
             Row{"\\", {}},
             Row{"icon", {}},
             Row{"\\item \\this \\xref{\\this}", {}},
             Row{"\\pre \\i{con} \\this", {}},
         })
        EXPECT_EQ(lastFileCommand(row.text), row.last) << row.text;
}

TEST(Lookups, AreEscapedAndPutTogether)
{
    struct Row
    {
        const char *name;
        const char *markup;
        const char *expected;
    };
    for (const Row &row : {
             Row{"path and key", "\\choose{Both}",
                 "<p>Choose <b>File &gt; Save &lt;all&gt;</b> or press <b>Ctrl+&lt;</b></p>"},
             Row{"path and key inside a sentence", "To save, \\choosing{Both}",
                 "<p>To save, choosing <b>File &gt; Save &lt;all&gt;</b> or pressing <b>Ctrl+&lt;</b></p>"},
             Row{"path only", "\\press{Path}", "<p>Choose <b>File &gt; Print</b></p>"},
             Row{"key only", "\\pressing{Key}",
                 "<p>Pressing <b>F1</b></p>warning: docgen: doc.dg:2: Can't find Key in message scheme\n"},
             Row{"neither; a name may span lines", "\\choose{No\nway}",
                 "<p>***ERROR***</p>warning: docgen: doc.dg:2: Can't find No way in message scheme\n"
                 "error: docgen: missing both menu path and accelerator for No way\n"},
             Row{"no action", "\\choose{}", "<p>***ERROR***</p>error: docgen: choose has empty action name\n"},
             Row{"a path", "\\menu{Both}", "<p><b>File &gt; Save &lt;all&gt;</b></p>"},
             Row{"a tip", "\\tip{Both}", "<p>Saves &amp; closes</p>"},
             Row{"a property", "\\property{b}", "<p><b>B &amp; c</b></p>"},
             Row{"all properties", "\\envpage",
                 "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" "
                 "cols=\"200pt 200pt\">\n<tr bgcolor=\"#cccccc\"><th>Property</th><th>Description</th></tr>\n"
                 "<tr><td>B &amp; c<small><tt>b</tt>&nbsp;&ndash;&nbsp;&lt;int&gt;</small></td><td>Is\n"
                 " &quot;b&quot;.</td></tr>\n<tr><td><small><tt></tt>&nbsp;&ndash;&nbsp;</small></td><td></td></tr>\n"
                 "</table>"},
         })
        EXPECT_EQ(translated(row.markup), row.expected) << row.name;
}
