#include "reading/source_map.h"

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

std::string text(const SourcePosition &position)
{
    return position.file.toStdString() + ':' + std::to_string(position.line);
}

} // namespace

TEST(SourceMap, AnswersInAnyOrder)
{
    constexpr std::string_view lines = "a\nb\nc\nd\ne\nf";
    // Two files, the second included between the first two lines of the first, each renumbered once.
    const std::string expected[] = {"a:10", "a:10", "a:50", "a:50", "b:1", "b:1", "b:7", "b:7", "a:51", "a:51", "a:52"};
    for (std::size_t first = 0; first < std::size(expected); ++first) {
        for (std::size_t second = 0; second < std::size(expected); ++second) {
            SourceMap map;
            const int outer = map.addFile(u"a"_s);
            const int inner = map.addFile(u"b"_s);
            map.beginStretch(0, outer, 10);
            map.beginStretch(4, inner, 1);
            map.beginStretch(8, outer, 12);
            map.renumber(lines, 2, 50);
            map.renumber(lines, 6, 7);
            EXPECT_EQ(text(map.position(lines, first)), expected[first]) << first;
            EXPECT_EQ(text(map.position(lines, second)), expected[second]) << first << ' ' << second;
            EXPECT_EQ(text(map.position(lines, 99)), "a:52"); // the end
        }
    }
}

TEST(SourceMap, KnowsNothingBeforeTheFirstStretch)
{
    SourceMap map;
    map.renumber("a", 0, 7);
    EXPECT_EQ(text(map.position("a", 0)), ":1");
    const int file = map.addFile(u"a"_s);
    map.beginStretch(2, file, 5);
    EXPECT_EQ(text(map.position("a\nb\n", 1)), "a:1");
    EXPECT_EQ(text(map.position("a\nb\n", 2)), "a:5");
}
