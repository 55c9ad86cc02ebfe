#include "site/exchange/help_project.h"
#include "site/exchange/inventory.h"
#include "site/exchange/tag_file.h"

#include "tests/site/link_text.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

/// A header with a class in a namespace without a page, and a document.
SharedLinks sampleShared()
{
    SiteSettings settings;
    settings.title = "Kettle\nWorks";
    settings.version = "2.1";
    const std::string records = R"(
        input b.h -> api
        header b_h | b.h
        class tools.Buffer | tools::Buffer
        function tools.Buffer.push | tools::Buffer::push
        function tools.spin | tools::spin
        function operatorslash | operator/
        macro SQUARE | SQUARE
        entry 0 b_h
        entry 1 tools.Buffer
        entry 2 tools.Buffer.push
        entry 1 tools.spin
        entry 1 operatorslash
        entry 1 SQUARE
        input a.dg
        page start | Ümlauts & <more>
        entry 0 start)";
    return linked(records, settings).shared;
}

TEST(Exchange, WritesAnInventory)
{
    const QByteArray file = inventoryFile(sampleShared());
    const QByteArray head = "# Sphinx inventory version 2\n# Project: Kettle Works\n# Version: 2.1\n"
                            "# The remainder of this file is compressed using zlib.\n";
    ASSERT_TRUE(file.startsWith(head));
    const QByteArray lines = qUncompress(QByteArray("\0\0\x10\0", 4) + file.sliced(head.size()));
    EXPECT_EQ(lines.toStdString(), "api/b_h std:doc 1 api/b_h.htm b.h\n"
                                   "tools::Buffer cpp:class 1 api/tools.Buffer.htm -\n"
                                   "operator/ cpp:function 1 api/operatorslash.htm -\n"
                                   "operator/ c:function 1 api/operatorslash.htm -\n"
                                   "tools::Buffer::push cpp:function 1 api/tools.Buffer.push.htm -\n"
                                   "tools::spin cpp:function 1 api/tools.spin.htm -\n"
                                   "SQUARE c:macro 1 api/SQUARE.htm -\n"
                                   "start std:doc 1 start.htm Ümlauts & <more>\n");
}

TEST(Exchange, WritesATagFile)
{
    std::string lines;
    std::istringstream file(tagFile(sampleShared()).toStdString());
    for (std::string line; std::getline(file, line);) {
        const std::string text = line.substr(std::min(line.find_first_not_of(' '), line.size()));
        if (text != "<type></type>" && text != "<anchor></anchor>" && text != "<arglist></arglist>")
            lines += text + '\n';
    }
    const auto member = [](const std::string &kind, const std::string &name, const std::string &address) {
        return "<member kind=\"" + kind + "\">\n<name>" + name + "</name>\n<anchorfile>" + address +
               "</anchorfile>\n</member>\n";
    };
    EXPECT_EQ(lines,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tagfile>\n"
              "<compound kind=\"file\">\n<name>b.h</name>\n<filename>api/b_h.htm</filename>\n" +
                  member("function", "operator/", "api/operatorslash.htm") +
                  member("define", "SQUARE", "api/SQUARE.htm") +
                  "</compound>\n<compound kind=\"class\">\n<name>tools::Buffer</name>\n"
                  "<filename>api/tools.Buffer.htm</filename>\n" +
                  member("function", "push", "api/tools.Buffer.push.htm") +
                  "</compound>\n<compound kind=\"page\">\n<name>start</name>\n<filename>start.htm</filename>\n"
                  "<title>Ümlauts &amp; &lt;more&gt;</title>\n</compound>\n"
                  "<compound kind=\"namespace\">\n<name>tools</name>\n<filename>api/tools.spin.htm</filename>\n" +
                  member("function", "spin", "api/tools.spin.htm") + "</compound>\n</tagfile>\n");
}

TEST(Exchange, WritesAHelpProject)
{
    const std::string records = R"(
        input b.h -> api
        header b_h | b.h
        class tools.Buffer | tools::Buffer
        macro SQUARE | SQUARE
        entry 0 b_h
        entry 1 tools.Buffer
        input a.dg
        page start | <More> & more
        group 0 Guide
        entry 1 start)";
    SiteSettings settings;
    settings.title = "Kettle / Works";
    settings.version = "2.1";
    const SharedLinks shared = linked(records, settings).shared;
    const std::string file =
        helpProjectFile(shared, {{"start.htm", "sta rt.htm"}}, {"a&b[1]*.png", "sta rt.htm"}).toStdString();
    std::string lines;
    std::istringstream stream(file);
    for (std::string line; std::getline(stream, line);)
        lines += line.substr(std::min(line.find_first_not_of(' '), line.size())) + '\n';
    EXPECT_EQ(lines, R"(<?xml version="1.0" encoding="UTF-8"?>
<QtHelpProject version="1.0">
<namespace>kettle-works.2.1</namespace>
<virtualFolder>doc</virtualFolder>
<filterSection>
<toc>
<section title="Kettle / Works" ref="api/b_h.htm">
<section title="b.h" ref="api/b_h.htm">
<section title="Buffer" ref="api/tools.Buffer.htm"/>
<section title="SQUARE" ref="api/SQUARE.htm"/>
</section>
<section title="Guide" ref="sta%20rt.htm">
<section title="&lt;More&gt; &amp; more" ref="sta%20rt.htm"/>
</section>
</section>
</toc>
<keywords>
<keyword name="&lt;More&gt; &amp; more" ref="sta%20rt.htm"/>
<keyword name="Buffer" ref="api/tools.Buffer.htm"/>
<keyword name="SQUARE" id="SQUARE" ref="api/SQUARE.htm"/>
<keyword name="b.h" ref="api/b_h.htm"/>
<keyword name="tools::Buffer" id="tools::Buffer" ref="api/tools.Buffer.htm"/>
</keywords>
<files>
<file>a&amp;b[[]1][*].png</file>
<file>sta rt.htm</file>
</files>
</filterSection>
</QtHelpProject>
)");
}

} // namespace
