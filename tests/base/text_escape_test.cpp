#include "base/text_escape.h"

#include <gtest/gtest.h>

using namespace tavidoc;

TEST(TextEscape, EveryEntityOnceAndOnlyOnce)
{
    EXPECT_EQ(escapedText("a&lt;b <i> \"x\" 'y'"), "a&amp;lt;b &lt;i&gt; &quot;x&quot; &apos;y&apos;");
}

TEST(TextEscape, MiddleDotIsFoundAmongOtherLatinLetters)
{
    EXPECT_EQ(escapedText("\xC2\xB7\xC2\xA7\xC3\xB7\xC2"), "&middot;\xC2\xA7\xC3\xB7\xC2");
}
