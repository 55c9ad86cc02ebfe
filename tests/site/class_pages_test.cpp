#include "site/record/html_tags.h"
#include "site/render/body.h"
#include "tests/site/compile_run.h"
#include "tests/site/link_text.h"
#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <string>

using namespace tavidoc;
using namespace Qt::StringLiterals;

namespace {

/// A row of a table about the relations of classes: records, what linksOf() makes of them.
struct RelationRow
{
    const char *name;
    const char *records;
    const char *links;
};

std::ostream &operator<<(std::ostream &stream, const RelationRow &row)
{
    return stream << row.name;
}

class Relations : public testing::TestWithParam<RelationRow>
{
};

/// The page of \a stem in the linked set of \a record alone, as HTML.
std::string siteBodyOf(const RecordWithBodies &record, const std::string &stem)
{
    const LinkResult result = link({record.head}, {});
    for (const PageLinks &links : result.records.front().pages) {
        const RecordPage &page = record.head.pages[links.page];
        if (page.stem == stem)
            return siteBody(bodyOf(record, page), page, links);
    }
    return "no page " + stem;
}

/// \a html as text: "# Heading", rows as "[address] cell | cell", bases and derived classes as "- name".
std::string outlineOf(std::string_view html)
{
    std::string text;
    std::size_t begin = 0;
    HtmlTags tags(html);
    while (tags.next()) {
        const HtmlTag &tag = tags.tag();
        text += html.substr(begin, tag.begin - begin);
        begin = tag.end;
        if (tag.isClosing)
            continue;
        if (tag.name == "h3" || tag.name == "li")
            text += tag.name == "h3" ? "# " : "- ";
        else if ((tag.name == "td" || tag.name == "th") && !text.ends_with('\n'))
            text += " | ";
        else if (tag.name == "a" && !attributeOf(tag, "class"))
            text += '[' + std::string(attributeOf(tag, "href").value_or("")) + "] ";
    }
    return text;
}

/// The outline of the page of \a stem from its first heading on.
std::string tablesOf(const RecordWithBodies &record, const std::string &stem)
{
    const std::string body = siteBodyOf(record, stem);
    return outlineOf(std::string_view(body).substr(std::min(body.find("<h3"), body.size())));
}

std::string documented(const std::string &declaration, const std::string &text = "Text.")
{
    return "/*!\n * " + text + "\n */\n" + declaration + "\n";
}

} // namespace

TEST_P(Relations, AreFoundOverTheSet)
{
    EXPECT_EQ(linksOf(linked(GetParam().records)), GetParam().links);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, Relations,
    testing::Values(RelationRow{"bases of other inputs know the classes that derive from them, by name", R"(
            input a.h -> a
            class n.B | n::B
            entry 0 n.B
            input b.h -> b
            class n.Z | n::Z
            base B
            class n.D | n::D
            base std::string
            base n::B
            entry 0 n.Z
            entry 0 n.D)",
                                "a/n.B.htm derived: n::D <b/n.D.htm>\na/n.B.htm derived: n::Z <b/n.Z.htm>\n"
                                "b/n.Z.htm base 0: ../a/n.B.htm\nb/n.D.htm base 1: ../a/n.B.htm\n"},
                    RelationRow{"the innermost scope counts, and then the nearest input", R"(
            input a.h -> a
            class B | B
            class n.B | n::B
            class n.D | n::D
            base B
            class n.m.E | n::m::E
            base B
            entry 0 B
            input b.h -> b
            class B | B
            class F | F
            base B
            entry 0 B)",
                                "a/n.B.htm derived: n::D <a/n.D.htm>\na/n.B.htm derived: n::m::E <a/n.m.E.htm>\n"
                                "a/n.D.htm base 0: n.B.htm\na/n.m.E.htm base 0: n.B.htm\n"
                                "b/B.htm derived: F <b/F.htm>\nb/F.htm base 0: B.htm\n"},
                    RelationRow{"what is no class or one of several leads nowhere", R"(
            input a.h -> a
            function B | B
            class C | C
            class D.C | D::C
            base ::C
            base C
            base B
            entry 0 B
            input b.h -> b
            class C | C
            entry 0 C
            input c.h -> c
            class E | E
            base C
            class E2 | E
            base E
            base E
            entry 0 E)",
                                "a/C.htm derived: D::C <a/D.C.htm>\na/D.C.htm base 0: C.htm\n"},
                    RelationRow{"a class that names a base twice is listed once, and never below itself", R"(
            input a.h
            class B | B
            base B
            typedef A | A
            class D | D
            base B
            base B
            base A
            entry 0 B
            entry 0 A
            entry 0 D)",
                                "B.htm derived: D <D.htm>\nA.htm derived: D <D.htm>\n"
                                "D.htm base 0: B.htm\nD.htm base 1: B.htm\nD.htm base 2: A.htm\n"}));

TEST(ClassPages, EndWithTheirMembersByAccessAndKind)
{
    const RecordWithBodies record =
        recordOf(u"a.h"_s, documented("class C\n{") + documented("int hidden;") + "public:\n" + documented("C();") +
                               documented("~C();") + documented("bool operator==(const C &) const;") +
                               documented("void f(int a);") + documented("void f();", "\\brief Other.") +
                               documented("static const int k = 1;") + documented("int data;") +
                               documented("struct Inner {};") + documented("enum E { A };") +
                               documented("union { int u; };") + "union {\n" + documented("int v;") + "};\n" +
                               "int none;\nprotected:\n" + documented("static void g();") + "};\n");
    EXPECT_EQ(tablesOf(record, "C"),
              "# Types\n\nstruct [C.Inner.htm] Inner | Text.\nenum [C.E.htm] E | Text.\n"
              "union [C.~28Anonymous~29.htm] (Anonymous) | Text.\n\n"
              "# Constructors and Destructor\n\n[C.C.htm] C() | Text.\n[C.~7eC.htm] ~C() | Text.\n\n"
              "# Functions\n\n[C.f.htm#f-int-a] f(int a) | Text.\n[C.f.htm#f] f() | Other.\n\n"
              "# Operators\n\n[C.operator~3d~3d.htm] operator==(const C &amp;) const | Text.\n\n"
              "# Data\n\n[C.data.htm] data | Text.\n[C.~28Anonymous~29.v.htm] v | Text.\n\n"
              "# Constants\n\nstatic [C.k.htm] k | Text.\n\n"
              "# Protected Functions\n\nstatic [C.g.htm] g() | Text.\n\n"
              "# Private Data\n\n[C.hidden.htm] hidden | Text.\n");
}

TEST(ClassPages, ListSignalsSlotsAndFriends)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, documented("class C : public QObject\n{\n    Q_OBJECT") + "signals:\n" +
                      documented("void changed(int a);") + "public Q_SLOTS:\n" + documented("void set(int a);") +
                      "public:\n" + documented("void f();") + documented("Q_SIGNAL void moved();") +
                      documented("friend bool operator==(const C &, const C &);") +
                      "friend class D;\n friend void none();\nprotected slots:\n" + documented("void reset();") +
                      "private:\n" + documented("int signals : 3;") + documented("void g();") + "};\n" +
                      documented("struct E { struct F {\n" + documented("friend void swap(F&, F&) { }") + "}; };"));
    EXPECT_EQ(tablesOf(record, "C"),
              "# Functions\n\n[C.f.htm] f() | Text.\n\n"
              "# Signals\n\n[C.changed.htm] changed(int a) | Text.\n[C.moved.htm] moved() | Text.\n\n"
              "# Slots\n\n[C.set.htm] set(int a) | Text.\n\n"
              "# Protected Slots\n\n[C.reset.htm] reset() | Text.\n\n"
              "# Private Functions\n\n[C.g.htm] g() | Text.\n\n"
              "# Private Data\n\n[C.signals.htm] signals | Text.\n\n"
              "# Friends\n\n[operator~3d~3d.htm] operator==(const C &amp;, const C &amp;) | Text.\n\n"
              "# Base Classes\n\n- QObject\n");
}

TEST(ClassPages, ListBasesAndDerivedClasses)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, documented("class B {};") + documented("template <class T> class L : public B, std::list<B> {};") +
                      documented("struct D : L<int>, protected virtual n::X {};"));
    EXPECT_EQ(tablesOf(record, "B"), "# Derived Classes\n\n- [L.htm] L\n");
    EXPECT_EQ(tablesOf(record, "L"), "# Base Classes\n\n- [B.htm] B\n- private std::list&lt;B&gt;\n\n"
                                     "# Derived Classes\n\n- [D.htm] D\n");
    EXPECT_EQ(tablesOf(record, "D"), "# Base Classes\n\n- [L.htm] L&lt;int&gt;\n- protected virtual n::X\n");
}

TEST(ClassPages, ListEnumeratorsWithValuesAndComments)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, documented("enum class E {\n A, //!< One.\n /*!\n  * Two \\b{bold}.\n  */\n B = 1 | 2, /**< Three.\n "
                             "goes on */\n C // none\n};") +
                      documented("enum { X };") + documented("enum F {};"));
    EXPECT_EQ(tablesOf(record, "E"), "# Enumerators\n\nName | Value | Description\nA |  | One.\n"
                                     "B | 1 | 2 | Three.\ngoes on\nC |  | \n");
    EXPECT_EQ(tablesOf(record, "(Anonymous)"), "# Enumerators\n\nName\nX\n");
    EXPECT_EQ(tablesOf(record, "F"), "");
}

TEST(ClassPages, HaveAnchorsForWhatHasNoPage)
{
    const RecordWithBodies record =
        recordOf(u"a.h"_s, "namespace n {\n" + documented("enum class E {\n A, //!< One \\b{bold}.\n B };") +
                               documented("enum F { C = 1 };") + documented("enum { D };") + documented("struct S {") +
                               "int a; ///< An \\xref{S.b}.\n" + documented("int b;") +
                               "union { int c; ///< In it.\n };\n" + "bool operator!() const; ///< Not.\n};\n#if X\n" +
                               documented("struct S {\nint a; ///< Again.\n};") + "#endif\n}\n");
    std::string text;
    for (const RecordPage &page : record.head.pages) {
        for (const RecordMember &member : page.members) {
            text += page.stem + '#' + member.anchor + ' ' + member.kind + ' ' + member.qualifiedName + " (" +
                    member.outerName + "): " + member.excerpt + " /";
            for (const RecordTerm &term : member.terms)
                text += ' ' + term.text;
            EXPECT_TRUE(std::ranges::binary_search(page.anchors, member.anchor)) << member.anchor;
            text += '\n';
        }
    }
    EXPECT_EQ(text,
              "n.E#enumerator.A enumerator n::E::A (): One bold. / a bold e e::a n n::e::a one\n"
              "n.E#enumerator.B enumerator n::E::B ():  / b e e::b n n::e::b\n"
              "n.F#enumerator.C enumerator n::F::C (n::C):  / c f f::c n n::f::c\n"
              "n.(Anonymous)#enumerator.D enumerator n::D ():  / d n n::d\n"
              "n.S#member.operator~21 function n::S::operator! (): Not. / ! n n::s::operator! not operator operator! s "
              "s::operator!\n"
              "n.S#member.a variable n::S::a (): An S.b. / a an b n n::s::a s s.b s::a\n"
              "n.S#member.c variable n::S::c (): In it. / c in it n n::s::c s s::c\n");
}

TEST(ClassPages, ShowEveryDeclarationOfANameWithItsComment)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, documented("class C {\npublic:") + documented("C() :\n  a(1),\n  b(2)\n{\n}", "Far.") +
                      documented("virtual void f(int a);", "Int.") + documented("virtual void f(char c);", "Char.") +
                      "};\n" + documented("template <class T> struct S {};", "Any.") +
                      documented("template <class T> struct S<T *> : C {};", "Pointer.") +
                      documented("template <> struct S<std::vector<int>> {};", "Vector."));
    std::string text;
    for (const RecordPage &page : record.head.pages) {
        text += page.stem + ": " + page.brief;
        for (const RecordHeading &heading : page.headings)
            text += " | " + heading.text;
        text += '\n';
    }
    EXPECT_EQ(text.substr(0, text.find("a_h")),
              "C.C: Far.\nC.f: Int. | f(int a) | f(char c)\nC: Text. | Constructors and Destructor | Functions\n"
              "S: Any.\nS<T *>: Pointer. | Base Classes\nS<std::vector<int>>: Vector.\n");
    EXPECT_EQ(findingsOf(record), "");
}

TEST(ClassPages, GiveEveryOverloadItsOwnHeading)
{
    const RecordWithBodies record = recordOf(
        u"a.h"_s, documented("struct C {") + documented("int &f() &;") + documented("int f() &&;") +
                      documented("int f() const;") + documented("template <class T> void g(T&& t) requires A<T>;") +
                      documented("template <class T> void g(T&& t);") + documented("auto h() -> int;") + "#if X\n" +
                      documented("long h();") + "#endif\n};\n" + documented("template <class T> C(T) -> C<T>;") +
                      documented("C(int, char) -> C<char>;"));
    std::string text;
    for (const RecordPage &page : record.head.pages) {
        for (const RecordHeading &heading : page.headings)
            text += page.stem + '#' + heading.id + ' ' + heading.text + '\n';
        for (const RecordOverload &overload : page.overloads)
            text += page.stem + '(' + overload.types + ") " + overload.qualifiers + " #" + overload.heading + '\n';
    }
    EXPECT_EQ(text.substr(0, text.find("a_h")),
              "C.f#f f() &\nC.f#f-2 f() &&\nC.f#f-const f() const\nC.f() & #f\nC.f() && #f-2\nC.f() const #f-const\n"
              "C.g#template-class-t-g-t-t-requires-a-t template <class T> g(T&& t) requires A<T>\n"
              "C.g#template-class-t-g-t-t template <class T> g(T&& t)\n"
              "C.g(T&&)  #template-class-t-g-t-t-requires-a-t\nC.g(T&&)  #template-class-t-g-t-t\n"
              "C.h#h-1-of-2 h() (1 of 2)\nC.h#h-2-of-2 h() (2 of 2)\nC.h()  #h-1-of-2\nC.h()  #h-2-of-2\n"
              "C#struct-c struct C\nC#functions Functions\nC#c-t C(T)\nC#c-int-char C(int, char)\nC(T)  #c-t\n"
              "C(int,char)  #c-int-char\n");
}

TEST(HeaderPages, FoldTheDeclarationsThatNoCommentDocuments)
{
    const RecordWithBodies record =
        recordOf(u"in-put.h"_s, "#ifndef IN_PUT_H\n#define IN_PUT_H\n#define N 1\nnamespace n {\nclass C {\n int a;\n"
                                "public:\n" +
                                    documented("void f();") + "void f(int a);\n};\n}\n" + documented("int g;") +
                                    "typedef int T;\nenum { A };\n#endif\n");
    const std::string body = siteBodyOf(record, "in-put_h");
    EXPECT_EQ(outlineOf(std::string_view(body).substr(body.find("<details"))),
              "Without documentation (5)\n\nN | macro | line 3\nn::C | class | line 5\n"
              "n::C::f(int a) | function | line 12\nT | typedef | line 19\n{ A } | enum | line 20\n");
    EXPECT_EQ(siteBodyOf(recordOf(u"a.h"_s, documented("int g;")), "a_h").find("<details"), std::string::npos);
}

/// The pages of the example as files of one text: each input is the name of a page, each output its body in the site.
TEST(ClassPages, OfTheExampleAreTheGoldenPages)
{
    const RecordWithBodies record = compiled(QStringLiteral(TAVIDOC_SOURCE_DIR "/examples/readings/readings.h"), {});
    checkGoldenFile(TAVIDOC_SOURCE_DIR "/tests/site/pages/readings.txt",
                    [&record](const std::string &stem) { return siteBodyOf(record, stem) + "\n"; });
}
