#include "site/link/addresses.h"
#include "site/link/page_names.h"

#include "tests/site/link_text.h"

#include <gtest/gtest.h>

#include <set>

using namespace tavidoc;

namespace {

struct NameRow
{
    std::string path;
    std::string name;
};

class Names : public testing::TestWithParam<NameRow>
{
};

TEST_P(Names, WorkInFileSystemsAndAddresses)
{
    EXPECT_EQ(encodedPath(GetParam().path), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Pages, Names,
                         testing::Values(NameRow{"Buffer.push_2-x", "Buffer.push_2-x"}, NameRow{"a/b/c", "a/b/c"},
                                         NameRow{"operator==", "operator~3d~3d"}, NameRow{"a b~c%", "a~20b~7ec~25"},
                                         NameRow{"\xc3\xbc\xff\n", "~c3~bc~ff~0a"}, NameRow{"con", "~63on"},
                                         NameRow{"a/LPT1.x/b", "a/~4cPT1.x/b"}, NameRow{"COM", "COM"},
                                         NameRow{"com10", "com10"}, NameRow{"console", "console"},
                                         NameRow{"../x", ".~2e/x"}, NameRow{"./x", "~2e/x"}, NameRow{"a./b", "a~2e/b"},
                                         NameRow{"a..", "a.~2e"}, NameRow{"", "~"}, NameRow{"/a//b/", "~/a/~/b/~"},
                                         NameRow{".hidden", ".hidden"}, NameRow{"x.htm/y", "x~2ehtm/y"},
                                         NameRow{"a\\b:c", "a~5cb~3ac"}));

TEST(Names, AreDifferentForDifferentPaths)
{
    const std::string parts[] = {"",
                                 ".",
                                 "..",
                                 "/",
                                 "a",
                                 "A",
                                 "~",
                                 "~2e",
                                 "con",
                                 "CON",
                                 "2e",
                                 ".htm",
                                 std::string(300, 'x'),
                                 std::string(299, 'x') + "y",
                                 std::string(120, '='),
                                 std::string(2'000, '/')};
    std::set<std::string> names;
    std::set<std::string> paths;
    for (const std::string &first : parts) {
        for (const std::string &second : parts) {
            for (const std::string &third : parts) {
                if (!paths.insert(first + second + third).second)
                    continue;
                const std::string name = encodedPath(first + second + third);
                EXPECT_TRUE(names.insert(name).second) << name;
                EXPECT_LE(name.size(), 1'100U);
                EXPECT_EQ(name.find("/../"), name.npos);
            }
        }
    }
}

TEST(Names, AreSeenFromPages)
{
    EXPECT_EQ(relativeAddress("x.htm", "y.htm"), "y.htm");
    EXPECT_EQ(relativeAddress("a/b/x.htm", "a/c/y.htm"), "../c/y.htm");
    EXPECT_EQ(relativeAddress("ab/x.htm", "a/y.htm"), "../a/y.htm");
    EXPECT_EQ(relativeAddress("x.htm", "x.htm"), "x.htm");
    EXPECT_EQ(joinedPath("a/b", "../c/./d"), "a/c/d");
    EXPECT_EQ(joinedPath("a", "../../c"), std::nullopt);
    EXPECT_EQ(joinedPath("a", "/c"), std::nullopt);
    EXPECT_EQ(cleanedPath("a", "../../c"), "../c");
    EXPECT_EQ(cleanedPath("/a", "../../c"), "/c");
}

/// What the pages of a set are named, and what is reported.
struct PagesRow
{
    std::string name;
    std::string records;
    std::string pages; ///< "ADDRESS=TITLE " for each that is written
    std::string findings;
};

class Pages : public testing::TestWithParam<PagesRow>
{
};

TEST_P(Pages, HaveAddressesOfTheirOwn)
{
    const LinkResult result = linked(GetParam().records);
    std::string pages;
    for (const RecordLinks &record : result.records) {
        for (const PageLinks &page : record.pages)
            pages += page.address + '=' + page.title + ' ';
    }
    EXPECT_EQ(pages, GetParam().pages);
    EXPECT_EQ(findingsOf(result), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(
    Set, Pages,
    testing::Values(
        PagesRow{"of one document the last page counts, of several the first", R"(
                input a.dg
                page x | One
                page x | Two
                entry 0 x
                input b.dg
                page x | Three
                page y | Four
                entry 0 x
                entry 0 y)",
                 "x.htm=Two y.htm=Four ",
                 "a.dg:2: page \"x\" replaces the page made at a.dg:1 [duplicate-page]\n"
                 "b.dg:1: page \"x\" is not written: it was made at a.dg:2 [duplicate-page]\n"},
        PagesRow{"a source that two inputs contain", R"(
                input a.dg
                page x | One
                entry 0 x
                input a.dg
                page x | One
                entry 0 x)",
                 "x.htm=One ",
                 "a.dg:1: page \"x\" is not written: it was made at a.dg:1, which is part of two inputs "
                 "[duplicate-page]\n"},
        PagesRow{"folders and stems may make one address", R"(
                input a.dg -> a
                page b | One
                entry 0 b
                input b.dg
                page a/b | Two)",
                 "a/b.htm=One ", "b.dg:1: page \"a/b\" is not written: it was made at a.dg:1 [duplicate-page]\n"},
        PagesRow{"names of the site's own are refused at the top only", R"(
                input a.dg
                page contents
                page names-A-2
                page names-of-things
                page search/x
                entry 0 names-of-things
                entry 0 search/x
                input b.dg -> b
                page search
                entry 0 search)",
                 "names-of-things.htm=names-of-things search/x.htm=search/x b/search.htm=search ",
                 "a.dg:1: page \"contents\": the site has a page of its own with this name [duplicate-page]\n"
                 "a.dg:2: page \"names-A-2\": the site has a page of its own with this name [duplicate-page]\n"},
        PagesRow{"of names that differ in case only the later ones get numbers", R"(
                input a.dg
                page Push
                page push
                page PUSH
                page Contents
                page Alone
                entry 0 Push
                entry 0 push
                entry 0 PUSH
                entry 0 Contents
                entry 0 Alone)",
                 "Push.htm=Push push-2.htm=push PUSH-3.htm=PUSH Contents-2.htm=Contents Alone.htm=Alone ",
                 "a.dg:2: \"push.htm\" differs from \"Push.htm\" in case only: written as \"push-2.htm\" [case-clash]\n"
                 "a.dg:3: \"PUSH.htm\" differs from \"Push.htm\" in case only: written as \"PUSH-3.htm\" [case-clash]\n"
                 "a.dg:4: \"Contents.htm\" differs from \"contents.htm\" in case only: written as "
                 "\"Contents-2.htm\" [case-clash]\n"},
        PagesRow{"numbers avoid all other pages, also in other case, and those of the site", R"(
                input a.dg -> Lib
                page x
                page x-3
                entry 0 x
                entry 0 x-3
                input b.dg -> lib
                page x
                page X
                page X-2
                entry 0 x
                entry 0 X
                entry 0 X-2
                input c.dg
                page Names
                entry 0 Names)",
                 "Lib/x.htm=x Lib/x-3.htm=x-3 lib/x-4.htm=x lib/X-5.htm=X lib/X-2.htm=X-2 Names-10.htm=Names ",
                 "b.dg:1: \"lib/x.htm\" differs from \"Lib/x.htm\" in case only: written as \"lib/x-4.htm\" "
                 "[case-clash]\n"
                 "b.dg:2: \"lib/X.htm\" differs from \"Lib/x.htm\" in case only: written as \"lib/X-5.htm\" "
                 "[case-clash]\n"
                 "c.dg:1: \"Names.htm\" differs from \"names.htm\" in case only: written as \"Names-10.htm\" "
                 "[case-clash]\n"},
        PagesRow{"a title is never empty", R"(
                input a.dg
                title Document
                page x
                page y | Y
                entry 0 x
                entry 0 y
                input b.dg
                page z
                entry 0 z)",
                 "x.htm=Document y.htm=Y z.htm=z ", ""}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

TEST(Names, AreListedFromAToZ)
{
    const LinkResult result = linked(R"(
        input b.h
        header b_h | b.h
        class Buffer | Buffer
        function Buffer.zero | Buffer::zero
        function operator~ | operator~
        entry 0 b_h
        entry 1 Buffer
        entry 2 Buffer.zero
        entry 1 operator~
        input a.dg
        title Guide
        page x | buffers
        entry 0 x)");
    std::string text;
    for (const NameEntry &entry : result.shared.names) {
        text += entry.name + " (" + entry.kind + ", " + entry.owner.title + " <" + entry.owner.address + ">) <" +
                entry.address + ">\n";
    }
    EXPECT_EQ(text, "b.h (header,  <>) <b_h.htm>\n"
                    "Buffer (class, b.h <b_h.htm>) <Buffer.htm>\n"
                    "buffers (page, Guide <>) <x.htm>\n"
                    "operator~ (function, b.h <b_h.htm>) <operator~7e.htm>\n"
                    "zero (function, Buffer <Buffer.htm>) <Buffer.zero.htm>\n");
    const std::vector<std::string> addresses = {"Buffer.htm", "Buffer.zero.htm", "b_h.htm", "operator~7e.htm", "x.htm"};
    EXPECT_EQ(result.shared.addresses, addresses);
    EXPECT_EQ(result.shared.firstPage, "b_h.htm");
}

} // namespace
