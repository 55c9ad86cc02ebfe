#include "tests/site/link_text.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavidoc;

namespace {

struct LinkRow
{
    std::string name;
    std::string records;
    std::string links;
    std::string findings;
};

void PrintTo(const LinkRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class Links : public testing::TestWithParam<LinkRow>
{
};

TEST_P(Links, AreResolvedOverTheSet)
{
    const LinkResult result = linked(GetParam().records);
    EXPECT_EQ(linksOf(result), GetParam().links);
    EXPECT_EQ(findingsOf(result), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(
    Order, Links,
    testing::Values(
        LinkRow{"a page by name comes before a title", R"(
                input a.dg
                page x
                link setup
                entry 0 x
                input b.dg
                page setup | Installing
                page other | setup
                entry 0 setup
                entry 0 other)",
                "x.htm 0: setup.htm [Installing]\n", ""},
        LinkRow{"a title comes before a qualified name, exactly and whole", R"(
                input a.dg
                page x
                link ns::f
                link NS::f
                entry 0 x
                input b.dg
                page p | ns::f
                entry 0 p
                input c.h
                function q | ns::f
                entry 0 q)",
                "x.htm 0: p.htm [ns::f]\nx.htm 1: \n",
                "a.dg:3: no page, title or declaration is named \"NS::f\" [dead-link]\n"},
        LinkRow{"names of declarations keep what the writer wrote", R"(
                input a.dg
                page x
                link tools::Buffer::push
                link tools.Buffer.push()
                link Buffer::push
                link push
                captioned push
                entry 0 x
                input c.h
                function tools.Buffer.push | tools::Buffer::push
                entry 0 tools.Buffer.push)",
                "x.htm 0: tools.Buffer.push.htm [tools::Buffer::push]\n"
                "x.htm 1: tools.Buffer.push.htm [tools.Buffer.push()]\n"
                "x.htm 2: tools.Buffer.push.htm [Buffer::push]\n"
                "x.htm 3: tools.Buffer.push.htm [push]\n"
                "x.htm 4: tools.Buffer.push.htm [push]\n",
                ""},
        LinkRow{"the same document comes first, then the same folder", R"(
                input a.h -> api
                function A.f | A::f
                link f
                function B.g | B::g
                link h
                entry 0 A.f
                entry 0 B.g
                input b.h -> api
                function B.f | B::f
                function C.h | C::h
                entry 0 B.f
                entry 0 C.h
                input c.h -> lib
                function D.h | D::h
                entry 0 D.h)",
                "api/A.f.htm 0: A.f.htm [f]\napi/B.g.htm 0: C.h.htm [h]\n", ""},
        LinkRow{
            "several elsewhere are listed, five at most", R"(
                input a.dg
                page x
                link same
                link f
                entry 0 x
                input b.dg -> one
                page p1 | same
                page p2 | same
                page p3 | same
                page p4 | same
                page p5 | same
                page p6 | same
                function A.f | A::f
                input c.dg -> two
                page p1 | same
                function A.f | A::f)",
            "x.htm 0: \nx.htm 1: \n",
            "a.dg:2: \"same\" is a name of several pages: \"one/p1\", \"one/p2\", \"one/p3\", \"one/p4\", \"one/p5\" "
            "and 2 more [ambiguous-link]\n"
            "a.dg:3: \"f\" is a name of several pages: \"one/A.f\", \"two/A.f\" [ambiguous-link]\n"
            "b.dg:1: no contents entry and no link leads to page \"p1\" [unused-page]\n"
            "b.dg:2: no contents entry and no link leads to page \"p2\" [unused-page]\n"
            "b.dg:3: no contents entry and no link leads to page \"p3\" [unused-page]\n"
            "b.dg:4: no contents entry and no link leads to page \"p4\" [unused-page]\n"
            "b.dg:5: no contents entry and no link leads to page \"p5\" [unused-page]\n"
            "b.dg:6: no contents entry and no link leads to page \"p6\" [unused-page]\n"
            "b.dg:7: no contents entry and no link leads to page \"A.f\" [unused-page]\n"
            "c.dg:1: no contents entry and no link leads to page \"p1\" [unused-page]\n"
            "c.dg:2: no contents entry and no link leads to page \"A.f\" [unused-page]\n"},
        LinkRow{"a name may have directories: from its folder, its own directory, and the top", R"(
                input a.dg -> guide
                page sub/x
                link sub/y
                link y
                link ../lib/z.htm
                link lib/z
                link ../../z
                page sub/y | Y
                entry 0 sub/x
                entry 0 sub/y
                input b.h -> lib
                header z | Z
                entry 0 z)",
                "guide/sub/x.htm 0: y.htm [Y]\nguide/sub/x.htm 1: \nguide/sub/x.htm 2: ../../lib/z.htm [Z]\n"
                "guide/sub/x.htm 3: ../../lib/z.htm [Z]\nguide/sub/x.htm 4: \n",
                "a.dg:3: no page, title or declaration is named \"y\" [dead-link]\n"
                "a.dg:6: no page, title or declaration is named \"../../z\" [dead-link]\n"}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

INSTANTIATE_TEST_SUITE_P(
    Kinds, Links,
    testing::Values(
        LinkRow{"what its document resolved stays, unless the address is another one", R"(
                input a.dg
                page x
                resolved y
                resolved a b
                resolved con
                page y
                page a b
                page con
                entry 0 x
                entry 0 y
                entry 0 a b
                entry 0 con)",
                "x.htm 1: a~20b.htm\nx.htm 2: ~63on.htm\n", ""},
        LinkRow{"the page of a resolved link may be missing or made elsewhere", R"(
                input a.dg
                page x
                resolved empty
                resolved there
                entry 0 x
                input b.dg -> b
                page there | There
                entry 0 there)",
                "x.htm 0: \nx.htm 1: b/there.htm [There]\n",
                "a.dg:2: no page, title or declaration is named \"empty\" [dead-link]\n"},
        LinkRow{"anchors are headings of the page", R"(
                input a.dg
                page x
                heading here | Here it is
                link #here
                link y#there
                link y.htm#there
                link Why#there
                link y#gone
                link #gone
                link C#
                link y#Written
                link y.htm#Written
                entry 0 x
                page y | Why
                heading there | There
                anchor Written
                page sharp | C#
                entry 0 y
                entry 0 sharp)",
                "x.htm 0: #here [Here it is]\nx.htm 1: y.htm#there [There]\nx.htm 2: y.htm#there [There]\n"
                "x.htm 3: y.htm#there [There]\nx.htm 4: y.htm [y#gone]\nx.htm 5: x.htm [#gone]\n"
                "x.htm 6: sharp.htm [C#]\nx.htm 7: y.htm#Written [y#Written]\n"
                "x.htm 8: y.htm#Written [y.htm#Written]\n",
                "a.dg:7: page \"y\" has no heading with the id \"gone\" [dead-anchor]\n"
                "a.dg:8: page \"x\" has no heading with the id \"gone\" [dead-anchor]\n"},
        LinkRow{"relative addresses in HTML are checked and follow their page", R"(
                input a.dg -> f
                page x
                raw y.htm
                raw a%20b.htm?q#z
                raw ../top.htm
                raw contents.htm
                raw ../contents.htm
                raw file.zip
                raw ../../elsewhere/
                raw http://example.org/
                raw //example.org/
                raw mailto:a@example.org
                raw #top
                raw /absolute.htm
                raw y.htm?a=1&amp;b=2
                page y
                page a b
                anchor z
                entry 0 x
                entry 0 y
                entry 0 a b
                input b.dg
                page top
                entry 0 top)",
                "f/x.htm 1: a~20b.htm?q#z\n",
                "a.dg:5: \"contents.htm\" is neither a page nor an asset [dead-link]\n"
                "a.dg:7: \"file.zip\" is neither a page nor an asset [dead-link]\n"},
        LinkRow{"and so are their anchors", R"(
                input a.dg -> f
                page x
                heading here | Here
                anchor 100%25
                anchor a name
                raw #here
                raw #a%20name
                raw #100%25
                raw #
                raw #TOP
                raw ?q#gone
                raw #Here
                raw y.htm#there
                raw y.htm?a=1&amp;b=2#here
                raw ./y.htm#there:~:text=word
                raw y.htm#:~:text=word
                raw gone.htm#there
                raw ../contents.htm#anything
                raw http://example.org/y.htm#gone
                page y
                heading there | There
                entry 0 x
                entry 0 y)",
                "f/x.htm 9: y.htm#there:~:text=word\n",
                "a.dg:10: page \"x\" has no heading with the id \"gone\" [dead-anchor]\n"
                "a.dg:11: page \"x\" has no heading with the id \"Here\" [dead-anchor]\n"
                "a.dg:13: page \"y\" has no heading with the id \"here\" [dead-anchor]\n"
                "a.dg:16: \"gone.htm\" is neither a page nor an asset [dead-link]\n"},
        LinkRow{"other protocols and external links are left alone", R"(
                input a.dg
                page x
                link mailto:a@example.org
                external https://example.org/
                link std::string
                link javascript:alert(1)
                entry 0 x)",
                "x.htm 0: mailto:a@example.org [mailto:a@example.org]\nx.htm 2: \nx.htm 3: \n",
                "a.dg:4: no page, title or declaration is named \"std::string\" [dead-link]\n"
                "a.dg:5: no page, title or declaration is named \"javascript:alert(1)\" [dead-link]\n"},
        LinkRow{"a dead link names a known name one edit away", R"(
                input a.dg
                page start
                link strat
                link tart
                link sttart
                link stert
                link strut
                link
                entry 0 start)",
                "start.htm 0: \nstart.htm 1: \nstart.htm 2: \nstart.htm 3: \nstart.htm 4: \nstart.htm 5: \n",
                "a.dg:2: no page, title or declaration is named \"strat\"; did you mean \"start\"? [dead-link]\n"
                "a.dg:3: no page, title or declaration is named \"tart\"; did you mean \"start\"? [dead-link]\n"
                "a.dg:4: no page, title or declaration is named \"sttart\"; did you mean \"start\"? [dead-link]\n"
                "a.dg:5: no page, title or declaration is named \"stert\"; did you mean \"start\"? [dead-link]\n"
                "a.dg:6: no page, title or declaration is named \"strut\" [dead-link]\n"
                "a.dg:7: no page, title or declaration is named \"\" [dead-link]\n"},
        LinkRow{"a link to itself does not make a page used", R"(
                input a.dg
                page x
                link x
                page y
                link z
                page z)",
                "x.htm 0: x.htm [x]\ny.htm 0: z.htm [z]\n",
                "a.dg:1: no contents entry and no link leads to page \"x\" [unused-page]\n"
                "a.dg:3: no contents entry and no link leads to page \"y\" [unused-page]\n"},
        LinkRow{"findings of records come with those of linking, by line as a number, each once", R"(
                input b.dg
                page x
                link dead1
                finding markup not closed
                link 4
                link 5
                link 6
                link 7
                link 8
                link 9
                link dead10
                entry 0 x
                input a.dg
                finding markup-warning odd
                input a.dg
                finding markup-warning odd)",
                "x.htm 0: \nx.htm 1: \nx.htm 2: \nx.htm 3: \nx.htm 4: \nx.htm 5: \nx.htm 6: \nx.htm 7: \n",
                "a.dg:1: odd [markup-warning]\n"
                "b.dg:2: no page, title or declaration is named \"dead1\" [dead-link]\n"
                "b.dg:3: not closed [markup]\n"
                "b.dg:4: no page, title or declaration is named \"4\" [dead-link]\n"
                "b.dg:5: no page, title or declaration is named \"5\" [dead-link]\n"
                "b.dg:6: no page, title or declaration is named \"6\" [dead-link]\n"
                "b.dg:7: no page, title or declaration is named \"7\" [dead-link]\n"
                "b.dg:8: no page, title or declaration is named \"8\" [dead-link]\n"
                "b.dg:9: no page, title or declaration is named \"9\" [dead-link]\n"
                "b.dg:10: no page, title or declaration is named \"dead10\" [dead-link]\n"}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

INSTANTIATE_TEST_SUITE_P(
    Declarations, Links,
    testing::Values(
        LinkRow{"on the page of a declaration its scope comes first, then those around it", R"(
                input a.h -> a
                class t.Buffer | t::Buffer
                link push
                link clear()
                link Other
                link Buffer
                function t.Buffer.push | t::Buffer::push
                link push
                link clear
                entry 0 t.Buffer
                entry 0 t.Buffer.push
                input b.h -> b
                function t.Buffer.clear | t::Buffer::clear
                link push
                class t.Other | t::Other
                function t.Other.clear | t::Other::clear
                function push | push
                class Other | Other
                function t.Buffer.Buffer | t::Buffer::Buffer
                entry 0 t.Buffer.clear
                entry 0 t.Other
                entry 0 t.Other.clear
                entry 0 push
                entry 0 Other
                entry 0 t.Buffer.Buffer)",
                "a/t.Buffer.htm 0: t.Buffer.push.htm [push]\na/t.Buffer.htm 1: ../b/t.Buffer.clear.htm [clear()]\n"
                "a/t.Buffer.htm 2: ../b/t.Other.htm [Other]\na/t.Buffer.htm 3: t.Buffer.htm [Buffer]\n"
                "a/t.Buffer.push.htm 0: t.Buffer.push.htm [push]\n"
                "a/t.Buffer.push.htm 1: ../b/t.Buffer.clear.htm [clear]\n"
                "b/t.Buffer.clear.htm 0: ../a/t.Buffer.push.htm [push]\n",
                ""},
        LinkRow{"the name of a class is not that of its constructors", R"(
                input a.dg
                page x
                link Buffer
                link Buffer::Buffer
                entry 0 x
                input b.h
                class t.Buffer | t::Buffer
                function t.Buffer.Buffer | t::Buffer::Buffer
                entry 0 t.Buffer
                entry 0 t.Buffer.Buffer)",
                "x.htm 0: t.Buffer.htm [Buffer]\nx.htm 1: t.Buffer.Buffer.htm [Buffer::Buffer]\n", ""},
        LinkRow{"arguments choose an overload", R"(
                input a.dg
                page x
                link B::push(int)
                link B.push( const  char * )
                link push(int a)
                link push(void)
                link push()
                link push
                link push() const
                link B::operator()(int)
                link one(int)
                entry 0 x
                input b.h
                function B.push | B::push
                overload int | push-int
                overload const char* | push-text
                overload  | push
                overload const | push-const
                link push(int)
                function B.call | B::operator()
                overload int
                function one | one
                overload int
                entry 0 B.push
                entry 0 B.call
                entry 0 one)",
                "x.htm 0: B.push.htm#push-int [B::push(int)]\nx.htm 1: B.push.htm#push-text [B.push( const  char * )]\n"
                "x.htm 2: B.push.htm#push-int [push(int a)]\nx.htm 3: B.push.htm#push [push(void)]\n"
                "x.htm 4: B.push.htm#push [push()]\nx.htm 5: B.push.htm [push]\n"
                "x.htm 6: B.push.htm#push-const [push() const]\nx.htm 7: B.call.htm [B::operator()(int)]\n"
                "x.htm 8: one.htm [one(int)]\nB.push.htm 0: #push-int [push(int)]\n",
                ""},
        LinkRow{"qualifiers choose an overload, and without those it needs a link to several is ambiguous", R"(
                input a.dg
                page x
                link get(int) &
                link get(int)&&
                link get(int) const noexcept &&
                link get(int)
                link get()
                link get(char)
                link get(char) &
                entry 0 x
                input b.h
                function B.get | B::get
                overload int & | get-left
                overload int const & | get-const
                overload int && | get-right
                overload int const && | get-both
                overload & | none-left
                overload && | none-right
                overload char const & | only
                entry 0 B.get)",
                "x.htm 0: B.get.htm#get-left [get(int) &]\nx.htm 1: B.get.htm#get-right [get(int)&&]\n"
                "x.htm 2: B.get.htm#get-both [get(int) const noexcept &&]\nx.htm 3: \nx.htm 4: B.get.htm [get()]\n"
                "x.htm 5: B.get.htm#only [get(char)]\nx.htm 6: B.get.htm#only [get(char) &]\n",
                "a.dg:5: \"get(int)\" means several overloads of \"B::get\": expected \"get(int) &\", \"get(int) const "
                "&\", \"get(int) &&\", \"get(int) const &&\", \"get() &\" and 2 more [ambiguous-link]\n"},
        LinkRow{"what has a row on a page is found last, from the inside out", R"(
                input a.dg
                page x
                link n::Color::Red
                link Color.Red
                link Red
                link n::Green
                link Color::Green
                link Blue
                link Blue()
                link n.Color#row.Red
                link n::Purple
                entry 0 x
                input b.h
                enum n.Color | n::Color
                row n::Color::Red
                row n::Color::Green | n::Green
                row n::Color::Blue
                link Red
                enum n.Shade | n::Shade
                row n::Shade::Red | n::Red
                function n.Blue | n::Blue
                link Red
                entry 0 n.Color
                entry 0 n.Shade
                entry 0 n.Blue)",
                "x.htm 0: n.Color.htm#row.Red [n::Color::Red]\nx.htm 1: n.Color.htm#row.Red [Color.Red]\nx.htm 2: \n"
                "x.htm 3: n.Color.htm#row.Green [n::Green]\nx.htm 4: n.Color.htm#row.Green [Color::Green]\n"
                "x.htm 5: n.Blue.htm [Blue]\nx.htm 6: n.Blue.htm [Blue()]\n"
                "x.htm 7: n.Color.htm#row.Red [n.Color#row.Red]\nx.htm 8: \n"
                "n.Color.htm 0: #row.Red [Red]\nn.Blue.htm 0: n.Shade.htm#row.Red [Red]\n",
                "a.dg:4: \"Red\" is a name of several pages: \"n.Color#row.Red\", \"n.Shade#row.Red\" "
                "[ambiguous-link]\n"
                "a.dg:10: no page, title or declaration is named \"n::Purple\" [dead-link]\n"},
        LinkRow{"an overload that does not exist is a dead link", R"(
                input a.dg
                page x
                link push(char)
                link Buffer(int)
                link none(int)
                link ) const
                entry 0 x
                input b.h
                function B.push | B::push
                overload int | push-int
                overload const char*,int | push-text
                overload  | push-nothing
                overload int const | push-const
                overload a | a
                overload b | b
                class Buffer | Buffer
                entry 0 B.push
                entry 0 Buffer)",
                "x.htm 0: \nx.htm 1: \nx.htm 2: \nx.htm 3: \n",
                "a.dg:2: \"B::push\" has no overload \"push(char)\": expected \"push(int)\", \"push(const "
                "char*,int)\", \"push()\", \"push(int) const\", \"push(a)\" and 1 more [dead-link]\n"
                "a.dg:3: no page, title or declaration is named \"Buffer(int)\" [dead-link]\n"
                "a.dg:4: no page, title or declaration is named \"none(int)\" [dead-link]\n"
                "a.dg:5: no page, title or declaration is named \") const\" [dead-link]\n"}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

struct NamesRow
{
    std::string name;
    std::string uses; ///< lines of the page of t::Buffer::push in the folder "api"
    std::string links;
};

class NamesInCode : public testing::TestWithParam<NamesRow>
{
};

TEST_P(NamesInCode, AreResolvedIfTheyAreUnambiguous)
{
    const std::string records = R"(
        input a.h -> api
        class t.Buffer | t::Buffer
        row t::Buffer::Large
        function t.Buffer.push | t::Buffer::push
        member
        )" + GetParam().uses + R"(
        function t.Buffer.size | t::Buffer::size
        member
        function t.Buffer.Buffer | t::Buffer::Buffer
        member
        function size | size
        function one | one
        function api | api
        function t.two | t::two
        typedef Type | Type
        variable var | var
        input b.h -> lib
        class u.Stack | u::Stack
        function u.Stack.pop | u::Stack::pop
        member
        function u.Stack.top | u::Stack::top
        member
        function u.api | u::api
        input c.h -> more
        function v.Heap.top | v::Heap::top
        member
        function top | w::top)";
    SiteSettings settings;
    const LinkResult result = linked(records, settings);
    EXPECT_EQ(namesOf(records, result), GetParam().links) << GetParam().name;
    EXPECT_EQ(findingsOf(result).find("a.h:4"), std::string::npos);
    settings.autolink = false;
    EXPECT_EQ(namesOf(records, linked(records, settings)), "");
}

INSTANTIATE_TEST_SUITE_P(
    Uses, NamesInCode,
    testing::Values(
        NamesRow{
            "in text: scopes outwards, qualified names, bare names; never the page itself",
            "text size\ntext push\ntext t::Buffer::push\ntext two\ntext one\ntext pop\ntext Stack::pop\ntext Buffer",
            "api/t.Buffer.push.htm size: t.Buffer.size.htm\napi/t.Buffer.push.htm two: t.two.htm\n"
            "api/t.Buffer.push.htm one: one.htm\napi/t.Buffer.push.htm pop: ../lib/u.Stack.pop.htm\n"
            "api/t.Buffer.push.htm Stack::pop: ../lib/u.Stack.pop.htm\n"
            "api/t.Buffer.push.htm Buffer: t.Buffer.htm\n"},
        NamesRow{"what is ambiguous or unknown stays text; the same folder comes first",
                 "text top\ntext none\ntext std::size\ntext api", "api/t.Buffer.push.htm api: api.htm\n"},
        NamesRow{"in listings members are meant in their class, after dots, and with their class",
                 "code size\ncode pop\ndot pop\ncode Stack::pop\ndot one\ncode top\ndot size\ncode Stack",
                 "api/t.Buffer.push.htm size: t.Buffer.size.htm\napi/t.Buffer.push.htm pop: ../lib/u.Stack.pop.htm\n"
                 "api/t.Buffer.push.htm Stack::pop: ../lib/u.Stack.pop.htm\n"
                 "api/t.Buffer.push.htm top: ../more/top.htm\napi/t.Buffer.push.htm size: t.Buffer.size.htm\n"
                 "api/t.Buffer.push.htm Stack: ../lib/u.Stack.htm\n"},
        NamesRow{"what has a row on a page only needs a qualified name",
                 "text Large\ncode Buffer::Large\ndot Large\ntype t::Buffer::Large\ntext Buffer::Small",
                 "api/t.Buffer.push.htm Buffer::Large: t.Buffer.htm#row.Large\n"
                 "api/t.Buffer.push.htm t::Buffer::Large: t.Buffer.htm#row.Large\n"},
        NamesRow{"in synopses neither functions nor variables are meant",
                 "type size\ntype var\ntype one\ntype Type\ntype Stack\ntype Buffer",
                 "api/t.Buffer.push.htm Type: Type.htm\napi/t.Buffer.push.htm Stack: ../lib/u.Stack.htm\n"
                 "api/t.Buffer.push.htm Buffer: t.Buffer.htm\n"}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

class Files : public testing::TestWithParam<LinkRow>
{
};

TEST_P(Files, AreCopiedBesideThePages)
{
    SiteSettings settings;
    settings.assets = {{"web/logo.png", "logo.png"}, {"web/pics/a.png", "pics/a.png"}, {"web/data.zip", "data.zip"}};
    const LinkResult result = linked(GetParam().records, settings,
                                     {"doc/pics/a.png", "doc/my pic.png", "up.png", "other/pics/a.png", "web/logo.png",
                                      "doc/pics/A.png", "/abs/x.png", "doc/x.htm", "doc/new.png"});
    EXPECT_EQ(linksOf(result), GetParam().links);
    EXPECT_EQ(findingsOf(result), GetParam().findings);
}

const std::string s_unused = "web/data.zip: no page uses this file [unused-asset]\n"
                             "web/logo.png: no page uses this file [unused-asset]\n"
                             "web/pics/a.png: no page uses this file [unused-asset]\n";

INSTANTIATE_TEST_SUITE_P(
    Pictures, Files,
    testing::Values(
        LinkRow{"a picture beside the input goes beside the page, once for each record", R"(
                input doc/a.dg -> f
                page x
                image new.png
                image ./new.png
                image gone.png
                image https://example.org/x.png
                icon images/save.png
                page sub/y
                image new.png
                icon images/save.png
                entry 0 x
                entry 0 sub/y
                input doc/b.dg -> f
                page z
                image new.png
                entry 0 z)",
                "f/x.htm picture 1: new.png\nf/sub/y.htm picture 0: ../new.png\n"
                "f/sub/y.htm picture 1: ../images/save.png\ndoc/new.png => f/new.png\ndoc/new.png => f/new.png\n",
                "doc/a.dg:4: cannot read the picture \"doc/gone.png\" [missing-image]\n" + s_unused},
        LinkRow{"its address needs no escapes and stays in the site", R"(
                input doc/a.dg
                page x
                image my pic.png
                image ../up.png
                image /abs/x.png
                entry 0 x)",
                "x.htm picture 0: my~20pic.png\nx.htm picture 1: .~2e/up.png\nx.htm picture 2: ~/x.png\n"
                "doc/my pic.png => my~20pic.png\nup.png => .~2e/up.png\n/abs/x.png => ~/x.png\n",
                s_unused},
        LinkRow{"different files never share an address, whatever the case, nor replace pages and assets", R"(
                input doc/a.dg
                page x
                image pics/a.png
                image pics/A.png
                image x.htm
                entry 0 x
                input other/b.dg
                page y
                image pics/a.png
                entry 0 y)",
                "x.htm picture 0: ~2/pics/a.png\nx.htm picture 1: ~3/pics/A.png\nx.htm picture 2: x~2ehtm\n"
                "doc/pics/a.png => ~2/pics/a.png\ndoc/pics/A.png => ~3/pics/A.png\ndoc/x.htm => x~2ehtm\n"
                "y.htm picture 0: ~4/pics/a.png\nother/pics/a.png => ~4/pics/a.png\n",
                s_unused},
        LinkRow{"a picture may be an asset, by its address or by its file; links use assets too", R"(
                input f/a.dg -> f
                page x
                image ../pics/a.png
                image ../web/logo.png
                raw ../data.zip
                entry 0 x)",
                "f/x.htm picture 1: ../logo.png\n", ""},
        LinkRow{"a link by name leads to an asset beside the page or from the top, if to nothing else", R"(
                input f/a.dg -> f
                page x
                link ../data.zip
                link pics/a.png
                link logo
                entry 0 x
                input g.dg
                page logo
                entry 0 logo)",
                "f/x.htm 0: ../data.zip [../data.zip]\nf/x.htm 1: ../pics/a.png [pics/a.png]\nf/x.htm 2: ../logo.htm "
                "[logo]\n",
                "web/logo.png: no page uses this file [unused-asset]\n"}),
    [](const auto &row) { return "Row" + std::to_string(row.index); });

TEST(Redirects, LeadFromFreeNamesToPages)
{
    SiteSettings settings;
    settings.redirects = {{"old", "sub/new page"}, {"a b.htm", "x.htm"}, {"x", "y"},      {"gone", "nowhere"},
                          {"search", "x"},         {"loop", "loop"},     {"chain", "old"}};
    settings.redirectPlaces = {{"gone", {3, 1}}, {"search", {12, 5}}};
    const LinkResult result = linked(R"(
        input a.dg
        page x
        raw old.htm
        page sub/new page
        entry 0 x
        entry 0 sub/new page)",
                                     settings);
    const std::map<std::string, std::string> working = {{"old", "sub/new~20page"}, {"a~20b", "x"}};
    EXPECT_EQ(result.shared.settings.redirects, working);
    EXPECT_EQ(findingsOf(result),
              "site.toml: redirect from \"chain\" to \"old\", which does not exist [dead-link]\n"
              "site.toml: redirect from \"loop\" to \"loop\", which does not exist [dead-link]\n"
              "site.toml: redirect from \"x\": there is a page of this name [duplicate-page]\n"
              "site.toml:3:1: redirect from \"gone\" to \"nowhere\", which does not exist [dead-link]\n"
              "site.toml:12:5: redirect from \"search\": there is a page of this name [duplicate-page]\n");
    EXPECT_TRUE(result.shared.settings.redirectPlaces.empty());
}

/// Sets whose size would show in the time if linking were not linear.
TEST(Link, EndsSoonForHostileSets)
{
    constexpr int size = 20'000;
    std::string sameTitles = "input t.dg\n";
    std::string nested = "input n.dg\n";
    std::string chain;
    std::string samePictures;
    for (int i = 0; i < size; ++i) {
        const std::string number = std::to_string(i);
        sameTitles += "page p" + number + " | Same\nlink Same\nlink Semi\n";
        nested += "page n" + number + "\nlink #no\nentry " + number + " n" + number + "\n";
        chain += "input c" + number + ".dg\npage h" + number + "\ninclude 0 c" + std::to_string(i + 1) + ".xml\n";
        samePictures += "input " + number + "/same.dg\npage s" + number + "\nimage a.png\ninclude 0 same.xml\n";
    }
    EXPECT_EQ(linked(sameTitles).findings.size(), 3U * size);
    EXPECT_EQ(linked(nested).records.front().pages.back().ancestors.size(), 17U);
    EXPECT_EQ(linked(chain).shared.contents.size(), std::size_t(size));
    EXPECT_EQ(linked(samePictures).findings.size(), 3U * size);
}

TEST(Link, TakesAnyBytes)
{
    std::vector<Record> records(2);
    const std::string bytes("\0\n\xff../\"<>&\x7f", 12);
    for (Record &record : records) {
        record.input = bytes;
        record.folder = bytes;
        record.title = bytes;
        record.files = {{bytes, false}};
        RecordPage &page = record.pages.emplace_back();
        page.stem = &record == records.data() ? bytes : std::string();
        page.title = bytes;
        page.qualifiedName = "::" + bytes + "::";
        page.place = {99, -1};
        page.headings = {{0, 1, bytes, bytes}};
        for (const auto kind : {RecordLink::Kind::Resolved, RecordLink::Kind::Open, RecordLink::Kind::Raw})
            page.links.push_back({kind, false, 0, 0, bytes + '#' + bytes, bytes, {7, 1}});
        page.images = {{0, 0, bytes, false, {0, 1}}, {0, 0, "", false, {0, 1}}};
        record.contents = {{RecordEntry::Kind::Include, true, 0xffffffff, ".xml", bytes, {0, 1}},
                           {RecordEntry::Kind::Page, true, 0xffffffff, "", "", {0, 1}}};
    }
    const LinkResult result = link(records, {}, [](const std::string &) { return true; });
    for (const std::string &address : result.shared.addresses)
        EXPECT_TRUE(std::ranges::all_of(address, [](char c) { return c > ' ' && c <= '~' && c != '"'; })) << address;
    EXPECT_EQ(result.shared.addresses.size(), 2U);
    for (const Finding &finding : result.findings)
        EXPECT_EQ(finding.text.find_first_of(std::string_view("\0\n\x7f", 3)), std::string::npos) << finding.text;
}

} // namespace
