#include "site/link/navigation.h"

#include "tests/site/link_text.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

struct ContentsRow
{
    std::string name;
    std::string records;
    std::string contents;
    std::string findings;
};

void PrintTo(const ContentsRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class ContentsOfSet : public testing::TestWithParam<ContentsRow>
{
};

TEST_P(ContentsOfSet, AreJoined)
{
    const LinkResult result = linked(GetParam().records);
    EXPECT_EQ(contentsOf(result), GetParam().contents);
    EXPECT_EQ(findingsOf(result), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ContentsOfSet,
    testing::Values(
        ContentsRow{
            "an include is replaced, without its root when that has no page", R"(
                input docs/a.dg
                page x | X
                page y | Y
                entry 0 x
                include 1 b.xml
                include-all 1 c.xml
                include 1 d.xml
                entry 1 y
                input docs/b.dg
                page b1 | B1
                page b2 | B2
                group 0 Root
                entry 1 b1
                entry 2 b2
                input docs/c.dg
                page c1 | C1
                group 0 Root
                entry 1 c1
                input docs/d.h
                header d_h | d.h
                function f | f
                entry 0 d_h
                entry 1 f)",
            "X <x.htm>\n  B1 <b1.htm>\n    B2 <b2.htm>\n  Root\n    C1 <c1.htm>\n  d.h <d_h.htm>\n    f <f.htm>\n"
            "  Y <y.htm>\n",
            ""},
        ContentsRow{"members hang below what they follow, in the same order", R"(
                input a.h
                header a_h | a.h
                class n.C | n::C
                function n.C.D.f | n::C::D::f
                class n.C.E | n::C::E
                function n.C.E.g | n::C::E::g
                page p | P
                function n.C.h | n::C::h
                class n.Class | n::Class
                function n.Class.i | n::Class::i
                entry 0 a_h
                entry 1 n.C
                entry 1 n.C.D.f
                entry 1 n.C.E
                entry 1 n.C.E.g
                entry 1 p
                entry 1 n.C.h
                entry 1 n.Class
                entry 2 n.Class.i)",
                    "a.h <a_h.htm>\n  C <n.C.htm>\n    f <n.C.D.f.htm>\n    E <n.C.E.htm>\n      g <n.C.E.g.htm>\n"
                    "  P <p.htm>\n  h <n.C.h.htm>\n  Class <n.Class.htm>\n    i <n.Class.i.htm>\n",
                    ""},
        ContentsRow{"documents that nobody includes follow in the order of the inputs", R"(
                input c.dg
                page c | C
                entry 0 c
                input b.dg
                page b | B
                group 0 Root
                include 1 a.xml
                entry 1 b
                input a.dg
                page a | A
                entry 0 a)",
                    "C <c.htm>\nRoot\n  A <a.htm>\n  B <b.htm>\n", ""},
        ContentsRow{
            "pages without an entry hang below the first entry of their document", R"(
                input a.dg
                page x | X
                page y | Y
                page hung1 | H1
                page hung2 | H2
                link hung1
                link hung2
                entry 0 x
                entry 1 y
                entry 0 z | Gone
                input b.dg
                page loose | L
                link loose2
                page loose2 | L2
                link loose)",
            "X <x.htm>\n  Y <y.htm>\n  H1 <hung1.htm>\n  H2 <hung2.htm>\nGone\nL <loose.htm>\nL2 <loose2.htm>\n",
            "a.dg:4: no contents entry and no link leads to page \"hung2\" [unused-page]\n"
            "a.dg:9: the contents have an entry for page \"z\", which does not exist [missing-page]\n"},
        ContentsRow{
            "an input beside comes first, then one of the folder, then the only one", R"(
                input one/a.dg -> f
                include 0 b.xml
                include 0 c.xml
                include 0 d.xml
                include 0 e.xml
                include 0 sub/s.xml
                input two/b.dg -> f
                page b2
                entry 0 b2
                input one/b.h
                header b1
                entry 0 b1
                input two/c.dg -> f
                page c2
                entry 0 c2
                input three/c.dg
                page c3
                entry 0 c3
                input three/d.user.dg -> g
                page d3
                entry 0 d3
                input three/e.dg
                page e3
                entry 0 e3
                input four/e.dg
                page e4
                entry 0 e4
                input one/sub/s.dg
                page s
                entry 0 s)",
            "b1 <b1.htm>\nc2 <f/c2.htm>\nd3 <g/d3.htm>\ns <s.htm>\nb2 <f/b2.htm>\nc3 <c3.htm>\ne3 <e3.htm>\n"
            "e4 <e4.htm>\n",
            "one/a.dg:4: contents \"e.xml\": no input of this name, or several, in the set [missing-include]\n"},
        ContentsRow{"cycles end, also those that nobody includes, and what is included twice is once there", R"(
                input a.dg
                page a
                entry 0 a
                include 1 b.xml
                include 1 b.xml
                include 1 none.xml
                include 1 a.xml
                input b.dg
                page b
                entry 0 b
                include 1 a.xml
                input c.dg
                page c
                entry 0 c
                include 1 d.xml
                input d.dg
                page d
                entry 0 d)",
                    "a <a.htm>\n  b <b.htm>\nc <c.htm>\n  d <d.htm>\n",
                    "a.dg:4: contents \"b.xml\" are included already [contents-cycle]\n"
                    "a.dg:5: contents \"none.xml\": no input of this name, or several, in the set [missing-include]\n"
                    "a.dg:6: contents \"a.xml\" include themselves [contents-cycle]\n"
                    "b.dg:3: contents \"a.xml\" include themselves [contents-cycle]\n"},
        ContentsRow{
            "an entry may lead to a page made elsewhere, which keeps its own place", R"(
                input a.dg
                page x | X
                entry 0 x
                include 1 b_h.htm
                include 1 nowhere.htm
                entry 1 y
                input b.h -> api
                header b_h | b.h
                function f | f
                entry 0 b_h
                entry 1 f
                input c.dg -> c
                page y | Y)",
            "X <x.htm>\n  b.h <api/b_h.htm>\n  nowhere.htm\n  Y <c/y.htm>\nb.h <api/b_h.htm>\n  f <api/f.htm>\n",
            "a.dg:4: the contents have an entry for page \"nowhere.htm\", which does not exist [missing-page]\n"},
        ContentsRow{"levels that are left out count as one", R"(
                input a.dg
                page x | X
                page y | Y
                entry 7 x
                entry 9 y
                group 3 Z)",
                    "X <x.htm>\n  Y <y.htm>\n    Z\n", ""}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

/// What a page shows: "> " before ancestors, "* " before the page, "..." with its address for a gap.
std::string navigationOf(const LinkResult &result, const std::string &address)
{
    std::string text;
    for (const RecordLinks &record : result.records) {
        for (const PageLinks &page : record.pages) {
            if (page.address != address)
                continue;
            text += "previous " + (page.previous ? page.previous->address : "-") + ", next " +
                    (page.next ? page.next->address : "-") + "\n";
            for (const NavigationEntry &entry : page.navigation) {
                text += std::string(2 * std::size_t(entry.depth), ' ');
                text += entry.isAncestor ? "> " : entry.isCurrent ? "* " : entry.isGap ? "..." : "";
                text += (entry.isGap ? entry.target.address : entry.target.title) + '\n';
            }
        }
    }
    return text;
}

TEST(Navigation, ShowsWhatIsAroundThePage)
{
    const LinkResult result = linked(R"(
        input a.dg
        page top | Top
        page one | One
        page two | Two
        page deep | Deep
        page last | Last
        entry 0 top
        group 1 Group
        entry 2 one
        entry 2 two
        entry 3 deep
        entry 0 last)");
    EXPECT_EQ(navigationOf(result, "top.htm"), "previous -, next one.htm\n* Top\n  Group\nLast\n");
    EXPECT_EQ(navigationOf(result, "two.htm"),
              "previous one.htm, next deep.htm\n> Top\n  > Group\n    One\n    * Two\n      Deep\n");
    EXPECT_EQ(navigationOf(result, "last.htm"), "previous deep.htm, next -\nTop\n* Last\n");
}

/// A page with many siblings and children.
std::string wideContents(int siblings, int children)
{
    std::string pages = "input a.dg\n";
    std::string entries = "group 0 Root\n";
    const auto add = [&](const std::string &stem, int depth) {
        pages += "page " + stem + "\n";
        entries += "entry " + std::to_string(depth) + ' ' + stem + "\n";
    };
    for (int i = 0; i < siblings; ++i) {
        add("s" + std::to_string(i), 1);
        for (int child = 0; i == siblings / 2 && child < children; ++child)
            add("c" + std::to_string(child), 2);
    }
    return pages + entries;
}

struct BoundRow
{
    int siblings;
    int children;
    int shownSiblings; ///< with the page itself
    int shownChildren;
    int gaps;
};

TEST(Navigation, IsBounded)
{
    for (const BoundRow &row : {BoundRow{31, 0, 31, 0, 0}, BoundRow{16, 15, 16, 15, 0}, BoundRow{100, 100, 16, 15, 3},
                                BoundRow{1, 100, 1, 30, 1}, BoundRow{100, 3, 28, 3, 2}, BoundRow{5, 100, 5, 26, 1}}) {
        const LinkResult result = linked(wideContents(row.siblings, row.children));
        const std::string text = navigationOf(result, "s" + std::to_string(row.siblings / 2) + ".htm");
        const auto countOf = [&text](const std::string &what) {
            int count = 0;
            for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1))
                ++count;
            return count;
        };
        EXPECT_EQ(countOf("\n  s") + countOf("\n  * s"), row.shownSiblings) << text;
        EXPECT_EQ(countOf("\n    c"), row.shownChildren) << text;
        EXPECT_EQ(countOf("...contents.htm"), row.gaps) << text;
    }
}

TEST(Navigation, LeavesOutTheMiddleOfVeryDeepContents)
{
    std::string text = "input a.dg\n";
    for (int depth = 0; depth < 40; ++depth)
        text +=
            "page p" + std::to_string(depth) + "\nentry " + std::to_string(depth) + " p" + std::to_string(depth) + "\n";
    const LinkResult result = linked(text);
    const std::vector<LinkTarget> &ancestors = result.records.front().pages.back().ancestors;
    ASSERT_EQ(ancestors.size(), Navigation::s_mostAncestors + 1);
    EXPECT_EQ(ancestors[0].title, "p0");
    EXPECT_EQ(ancestors[1].address, "contents.htm");
    EXPECT_EQ(ancestors[2].title, "p24");
    EXPECT_EQ(ancestors.back().title, "p38");
    EXPECT_EQ(result.records.front().pages[16].ancestors.size(), 16U);
}

} // namespace
