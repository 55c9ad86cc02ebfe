#include "base/byte_search.h"
#include "base/text_escape.h"
#include "base/white_space.h"

#include <gtest/gtest.h>

using namespace tavidoc;

TEST(ByteSearch, FindsTheFirstOnAnySideOfABlock)
{
    for (std::size_t size = 0; size < 50; ++size) {
        for (std::size_t place = 0; place <= size; ++place) {
            std::string text(size, 'a');
            if (place < size)
                text[place] = '\xC2';
            if (place + 1 < size)
                text[place + 1] = '<';
            for (std::size_t from = 0; from <= place; ++from)
                ASSERT_EQ((findAnyOf<'<', '\xC2'>(text, from)), place) << size << ' ' << from;
        }
    }
}

TEST(TextEscape, EveryEntityOnceAndOnlyOnce)
{
    EXPECT_EQ(escapedText("a&lt;b <i> \"x\" 'y'"), "a&amp;lt;b &lt;i&gt; &quot;x&quot; &apos;y&apos;");
}

TEST(TextEscape, MiddleDotIsFoundAmongOtherLatinLetters)
{
    EXPECT_EQ(escapedText("\xC2\xB7\xC2\xA7\xC3\xB7\xC2"), "&middot;\xC2\xA7\xC3\xB7\xC2");
}

TEST(WhiteSpace, StaysBetweenWordsOnly)
{
    EXPECT_EQ(tightened(" a  z A\tZ 0 9 _ \xC3\xA4 { @ [ ` / : , "), "a z A Z 0 9 _ \xC3\xA4{@[`/:,");
}
