#include "definitions/properties.h"

#include "definitions/xml_tree_reader.h"

#include <gtest/gtest.h>

using namespace tavidoc;

TEST(Properties, AreListedInOrderAndFoundByName)
{
    QDomDocument document;
    Properties properties;
    for (const char *text : {R"(<properties><property name="b" caption="B &amp; &lt;b>" type="&lt;int>">Is
 "b".</property><group><property name="stray"/></group><property/></properties>)",
                             R"(<properties><property name="b" caption="Later"/></properties>)"})
        properties.add(XmlTreeReader(document, text).read());

    ASSERT_TRUE(properties.caption("b"));
    EXPECT_EQ(*properties.caption("b"), "Later");
    EXPECT_FALSE(properties.caption("stray"));
    EXPECT_FALSE(properties.caption(""));
    EXPECT_EQ(properties.tableHtml(),
              R"(<table bgcolor="#f0f0f0" width="100%" cellpadding="2" cellspacing="0" border="0" cols="200pt 200pt">
<tr bgcolor="#cccccc"><th>Property</th><th>Description</th></tr>
<tr><td>B &amp; &lt;b&gt;<small><tt>b</tt>&nbsp;&ndash;&nbsp;&lt;int&gt;</small></td><td>Is
 &quot;b&quot;.</td></tr>
<tr><td><small><tt></tt>&nbsp;&ndash;&nbsp;</small></td><td></td></tr>
<tr><td>Later<small><tt>b</tt>&nbsp;&ndash;&nbsp;</small></td><td></td></tr>
</table>)");
}
