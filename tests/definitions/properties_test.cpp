#include "definitions/properties.h"

#include "definitions/xml_tree_reader.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>

using namespace tavidoc;

TEST(Properties, AreListedInOrderAndFoundByName)
{
    std::deque<XmlTree> trees;
    Properties properties;
    for (const char *text :
         {R"(<properties><property name="b" caption="B &amp; &lt;b>" type="&lt;int>">Is
 <i>"b"</i>.</property><group><property name="stray"/></group><property/></properties>)",
          R"(<properties><property name="b" caption="Later"/></properties>)", R"(<property name="root"/>)"}) {
        std::optional<XmlTree> tree = XmlTreeReader(text).read();
        ASSERT_TRUE(tree) << text;
        trees.push_back(*std::move(tree));
        properties.add(trees.back().root());
    }

    ASSERT_TRUE(properties.find("b"));
    EXPECT_EQ(properties.find("b")->caption, "Later");
    for (const char *name : {"stray", "root", ""})
        EXPECT_FALSE(properties.find(name)) << name;
    std::string all;
    for (const Property &property : properties.all()) {
        for (const std::string_view field : {property.name, property.caption, property.type, property.description})
            all.append(field).append("|");
        all += '\n';
    }
    EXPECT_EQ(all, "b|B & <b>|<int>|Is\n \"b\".|\n||||\nb|Later|||\n");
}
