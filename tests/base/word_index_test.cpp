#include "base/word_index.h"

#include <gtest/gtest.h>

#include <string>

using namespace tavidoc;

namespace {

struct Unit
{
    std::string_view name;
    double inches;
};

constexpr Unit s_units[] = {{"in", 1}, {"cm", 1 / 2.54}, {"mm", 1 / 25.4}, {"\\", 0}, {"\xC3\xA9", 0}};
constexpr auto s_unitIndex = WordIndex<Unit, &Unit::name>::of<s_units>();

constexpr QStringView s_words[] = {u"abstract", u"abstraction", u"a", u"\u00E9"};
constexpr auto s_wordIndex = WordIndex<QStringView>::of<s_words>();

} // namespace

TEST(WordIndex, FindsEachRowByItsWordAndKeepsTheirOrder)
{
    for (const Unit &unit : s_units)
        EXPECT_EQ(s_unitIndex.find(unit.name), &unit) << unit.name;
    for (const QStringView &word : s_words)
        EXPECT_EQ(s_wordIndex.find(std::u16string_view(word.utf16(), std::size_t(word.size()))), &word);
    EXPECT_EQ(s_unitIndex.rows().data(), std::data(s_units));
    EXPECT_EQ(s_unitIndex.rows().size(), std::size(s_units));
}

TEST(WordIndex, FindsNothingElse)
{
    for (const char *const word : {"", "i", "cmm", "CM", "mc", "mn", "\xC3", "inches"})
        EXPECT_FALSE(s_unitIndex.contains(std::string_view(word))) << word;
    // Each differs from a word of the table only where the hash does not look.
    EXPECT_FALSE(s_wordIndex.contains(QStringView(u"axstract")));
    EXPECT_FALSE(s_wordIndex.contains(QStringView(u"abstractiox")));
    EXPECT_FALSE(s_wordIndex.contains(QStringView(u"")));
    EXPECT_FALSE(s_wordIndex.contains(QStringView(std::u16string(100'000, u'a'))));
}
