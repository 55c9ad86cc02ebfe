#include "tests/support/header_text.h"

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

std::string names(const SourceBrowserModel::Collection &collection)
{
    QStringList list;
    for (const SourceBrowserObject *object : collection)
        list << object->qualifiedName();
    return list.join(u' ').toStdString();
}

/// "NAME:COMMENT@LINE" of every documented declaration, in the order of the collections.
std::string documented(const QString &text)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(text);
    QStringList list;
    for (const SourceBrowserModel::Collection &collection : model.all()) {
        for (const SourceBrowserObject *object : collection) {
            if (!object->documentation().isEmpty())
                list << u"%1:%2@%3"_s.arg(object->qualifiedName(), object->documentation(),
                                          QString::number(object->documentationLine()));
        }
    }
    return list.join(u' ').toStdString();
}

struct Row
{
    const char *sentence;
    const char16_t *header;
    const char *documented;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.sentence;
}

class Comments : public testing::TestWithParam<Row>
{
};

TEST_P(Comments, Attach)
{
    EXPECT_EQ(documented(QString::fromUtf16(GetParam().header)), GetParam().documented);
}

INSTANTIATE_TEST_SUITE_P(
    Documentation, Comments,
    testing::Values(
        Row{"on the line before", u"/*a*/\nint f();", "f:a@1"},
        Row{"with one blank line between", u"/*a*/\n\nint f();", "f:a@1"},
        Row{"not with two blank lines between", u"/*a*/\n\n\nint f();", ""},
        Row{"the last comment counts and only once", u"/*a*/\n/*b*/\nint f();\nint g();", "f:b@2"},
        Row{"a line comment neither documents nor replaces", u"/*a*/\n// b\nint f();", "f:a@1"},
        Row{"macros take comments, continued ones too", u"/*a*/\n#  define X \\\n 1\n/*b*/\n\n\n#define Y", "X:a@1"},
        Row{"comments inside a declaration are dropped",
            u"/*a*/\nint f(int b /*b*/,\n int c /*c*/);\nint g(); int h();", "f:a@1"},
        Row{"comments inside a body are dropped", u"int f() {\n/*b*/ }\nint g();", ""},
        Row{"a definition is as near as the first line of its body", u"/*a*/\nint f()\n\n{ }\n/*b*/\nint g()\n{ }",
            "g:b@5"},
        Row{"only the first declarator takes the comment", u"/*a*/\nint x, y;\n/*b*/ typedef struct { int z; } A, *B;",
            "A:b@3 x:a@1"},
        Row{"every kind of declaration takes one",
            u"/*a*/ namespace n {\n/*b*/ class c {\n/*d*/ int d; };\n/*e*/ enum e { E };\n/*f*/ typedef int f; }",
            "n:a@1 n.c:b@2 n.c.d:d@3 n.f:f@5 n.e:e@4"},
        Row{"a comment on an earlier declaration documents nothing", u"int a; /*!< a */\nint b;", ""},
        Row{"a macro alone does not use the comment up", u"BEGIN\n\n/*a*/\nint f();\nGUARD(x)\n/*b*/ int g();",
            "f:a@3 g:b@6"},
        Row{"a comment that is never closed ends with the file", u"int a; /* b\n c", ""},
        Row{"the text keeps its lines", u"/*! a\n *\n * b*c\n **/\nint f();", "f:! a\n *\n * b*c\n *@1"}));

TEST(Model, KeepsFiveOrderedCollections)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(
        u"#define b\n#define a\nint z, y; namespace q { int f(long); void f(int); struct s {}; }\n"
        u"enum second { A }; enum first { B }; class Q { void g(); }; int f();"_s);
    EXPECT_EQ(names(model.containers()), "Q q q.s");
    EXPECT_EQ(names(model.functions()), "Q.g f q.f q.f");
    EXPECT_EQ(model.functions().back()->description(), u"void f(int)"_s) << "equal keys keep their order";
    EXPECT_EQ(names(model.variables()), "y z");
    EXPECT_EQ(names(model.enumerations()), "second first");
    EXPECT_EQ(names(model.macros()), "a b");
    EXPECT_EQ(model.find(u"q::s"), model.find(u"q.s"));
    EXPECT_EQ(model.find(u"f")->description(), u"int f(void)"_s) << "a qualified name is preferred to a bare one";
    EXPECT_EQ(model.find(u"g")->qualifiedName(), u"Q.g"_s);
    EXPECT_EQ(model.find(u"nothing"), nullptr);
    HeaderParser(model).parseText(u"enum n::e : int { E }; class o::i { int m; };"_s, u"b.h"_s);
    for (const char16_t *name : {u"n::e", u"n.e", u"o::i", u"o.i", u"o::i::m"})
        EXPECT_NE(model.find(name), nullptr) << QString::fromUtf16(name).toStdString();
}

TEST(Model, MergesContainersThatAreDeclaredAgain)
{
    SourceBrowserModel model;
    HeaderParser parser(model);
    parser.parseText(u"/*a*/ namespace n { int x; }\nclass C { int a; };"_s, u"one.h"_s);
    parser.parseText(u"namespace n { int y; }\n\n\n/*c*/ class C : B { int b; };"_s, u"two.h"_s);
    EXPECT_EQ(names(model.containers()), "C n");
    EXPECT_EQ(names(model.variables()), "C.a C.b n.x n.y");
    EXPECT_EQ(model.find(u"n")->documentation(), u"a"_s) << "an empty text replaces nothing";
    const auto *merged = dynamic_cast<const SourceBrowserContainer *>(model.find(u"C"));
    EXPECT_EQ(merged->documentation(), u"c"_s);
    EXPECT_EQ(merged->lines().first, 3);
    ASSERT_EQ(merged->baseClasses().size(), 1U);
    EXPECT_EQ(merged->baseClasses()[0].name, u"B"_s);

    parser.parseText(u"class C { int c; };"_s, u"two.h"_s);
    EXPECT_EQ(names(model.variables()), "C.a C.c n.x") << "a file that is read again replaces its declarations";
    parser.parseText({}, u"one.h"_s);
    parser.parseText({}, u"two.h"_s);
    EXPECT_EQ(names(model.containers()), "");
    EXPECT_EQ(names(model.variables()), "");
}

TEST(Model, MergesTypedefsOfOneName)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(
        u"#if A\n/*a*/ typedef struct { struct in { int x; } v; } T;\n#else\n"
        u"/*b*/ typedef struct { struct in { int y; } v; int z; } T, *P;\n#endif\n"
        u"struct o { typedef struct { struct i { int p; } q; } one; typedef struct { struct i { int r; } s; } two; };"_s);
    EXPECT_EQ(names(model.containers()), "T T.in o o.one o.one.i o.two o.two.i");
    EXPECT_EQ(names(model.variables()), "P T.in.x T.in.y T.v T.v T.z o.one.i.p o.one.q o.two.i.r o.two.s");
    EXPECT_EQ(model.find(u"T")->documentation(), u"b"_s);
    EXPECT_EQ(model.find(u"P")->description(), u"typedef T *P"_s);
}

TEST(Model, DefinitionsOutsideAClassGiveItTheirLinesAndComments)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(u"class A { void f(int); void f(char) const;\n/*own*/ void g(); };\n"
                                  u"/*int*/ void A::f(int a) { }\n/*char*/ void A::f(char) const\n{ }\n"
                                  u"/*lost*/ void A::g() { }\nvoid A::g() { }\nint last;"_s);
    ASSERT_EQ(names(model.functions()), "A.f A.f A.g");
    QString heard;
    for (const SourceBrowserObject *method : model.functions())
        heard +=
            u"%1@%2:%3 "_s.arg(method->documentation()).arg(method->documentationLine()).arg(method->lines().bodyFirst);
    EXPECT_EQ(heard, u"int@3:2 char@4:4 own@2:6 "_s);
    EXPECT_EQ(model.find(u"last")->documentation(), QString()) << "a comment of a definition is used up";
}

TEST(Model, DefinitionsOutsideClassTemplatesFindTheirOverload)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(u"template <class T> class V { V &operator=(V &&v); V &operator=(const V &v); "
                                  u"void f(V, int v); void f(); };\n"
                                  u"/*move*/ template <class T> V<T> &V<T>::operator=(V<T> &&v) { }\n"
                                  u"/*copy*/ template <class T> V<T> &V<T>::operator=(const V<T> &v) { }\n"
                                  u"/*f*/ template <class T> void V<T>::f(V<T>, int v) { }"_s);
    QString heard;
    for (const SourceBrowserObject *method : model.functions())
        heard += method->documentation() + u' ';
    EXPECT_EQ(heard, u"f  move copy "_s);
}

TEST(Model, LaterVirtualMethodsReplaceEarlierOnes)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(u"class A {\nint f() { }\nint g();\nvirtual int f(int a);\nvirtual int h();\n};\n"
                                  u"int A::g() {\n}\nstatic int s();"_s);
    EXPECT_EQ(names(model.functions()), "A.f A.g A.h s");
    const auto *method = dynamic_cast<const SourceBrowserMethod *>(model.find(u"A.f"));
    EXPECT_TRUE(method->isVirtual);
    EXPECT_EQ(method->lines().bodyFirst, 1) << "the body lines of the older one are kept";
    EXPECT_EQ(method->definitionFile(), u"a.h"_s);
    EXPECT_EQ(model.find(u"A.g")->lines().bodyFirst, 6);
    EXPECT_EQ(model.find(u"A.g")->lines().bodyLast, 7);
    EXPECT_EQ(model.find(u"A.g")->access(), SourceBrowserObject::Private);
    EXPECT_EQ(model.find(u"A")->lines().last, 5);
    EXPECT_TRUE(dynamic_cast<const SourceBrowserMethod *>(model.find(u"s"))->isStatic);
}

TEST(Model, GivesMembersTheirAccess)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(u"struct s { int a; protected: int b; }; typedef struct { int c; } t; int d;\n"
                                  u"class k { public: struct n { int e; }; int f; };\n#define m"_s);
    QString list;
    for (const char16_t *name : {u"a", u"b", u"c", u"d", u"e", u"f", u"m", u"n"})
        list += u"%1%2 "_s.arg(name).arg(model.find(name)->access());
    // Deliberate: a "struct" outside a typedef begins private like a "class".
    EXPECT_EQ(list, u"a4 b2 c1 d1 e4 f1 m1 n1 "_s);
    EXPECT_EQ(model.find(u"t.c")->scope(), u"t"_s) << "members have the name from the typedef in their scope";
}

TEST(Model, LookUpsFollowChanges)
{
    SourceBrowserContainer container(SourceBrowserObject::Class, u"C"_s);
    const auto add = [&container](auto member) -> auto &
    { // while the look-ups have been used before
        EXPECT_EQ(container.method(member->name()), nullptr);
        EXPECT_EQ(container.variable(member->name()), nullptr);
        EXPECT_EQ(container.containedContainer(member->name()), nullptr);
        return container.add(std::move(member));
    };
    auto &method = add(std::make_unique<SourceBrowserMethod>(u"m"_s));
    auto &variable = add(std::make_unique<SourceBrowserVariable>(SourceBrowserObject::Variable, u"v"_s));
    auto &nested = add(std::make_unique<SourceBrowserContainer>(SourceBrowserObject::Class, u"n"_s));
    const SourceBrowserMethod wanted(u"m"_s);
    EXPECT_EQ(container.method(wanted), &method);
    SourceBrowserMethod isConst(u"m"_s);
    isConst.isConst = true;
    auto overload = std::make_unique<SourceBrowserMethod>(u"m"_s);
    overload->isConst = true;
    const SourceBrowserObject &later = container.add(std::move(overload));
    EXPECT_EQ(container.method(isConst), &later);
    EXPECT_EQ(container.method(wanted), &method) << "the signature tells them apart";
    EXPECT_EQ(container.variable(u"v"_s), &variable);
    EXPECT_EQ(container.containedContainer(u"n"_s), &nested);
    EXPECT_EQ(SourceBrowserContainer(SourceBrowserObject::Class).take(variable), nullptr)
        << "another container's member";
    for (const SourceBrowserObject *member :
         std::initializer_list<const SourceBrowserObject *>{&later, &method, &variable, &nested}) {
        const auto taken = container.take(*member);
        EXPECT_EQ(taken.get(), member);
        EXPECT_EQ(taken->container(), nullptr);
    }
    EXPECT_EQ(container.method(wanted), nullptr);
    EXPECT_EQ(container.variable(u"v"_s), nullptr);
    EXPECT_EQ(container.containedContainer(u"n"_s), nullptr);
    container.settle();
    EXPECT_TRUE(container.members().empty());
    add(std::make_unique<SourceBrowserVariable>(SourceBrowserObject::Variable, u"v"_s));
    EXPECT_EQ(container.takeMembers().size(), 1U);
    EXPECT_EQ(container.variable(u"v"_s), nullptr);
}

TEST(Model, TextsThatAreEmptyStayEmpty)
{
    SourceBrowserContainer container(SourceBrowserObject::Class, u"C"_s);
    container.setDefinitionFile({});
    container.setDocumentation({}, 3);
    EXPECT_EQ(container.documentationLine(), -1);
    SourceBrowserContainer newer(SourceBrowserObject::Class, u"C"_s);
    newer.setLines({0, 0, -1, -1});
    newer.setDefinitionFile(u"d.h"_s);
    newer.setText(u"t"_s);
    container.update(newer);
    EXPECT_EQ(container.lines().first, 0);
    EXPECT_EQ(container.lines().last, 0);
    EXPECT_EQ(container.definitionFile(), u"d.h"_s);
    EXPECT_EQ(container.text(), u"t"_s);
    container.update(SourceBrowserContainer(SourceBrowserObject::Class, u"C"_s));
    EXPECT_EQ(container.lines().last, 0);
    EXPECT_EQ(container.definitionFile(), u"d.h"_s);
    container.setText({});
    EXPECT_EQ(container.text(), QString());
}

TEST(Model, ComparesObjects)
{
    const SourceBrowserVariable variable(SourceBrowserObject::Variable, u"a"_s, {u" int "_s, -1});
    const SourceBrowserVariable same(SourceBrowserObject::Typedef, u"a"_s);
    const SourceBrowserEnum enumeration(SourceBrowserObject::Unknown, u"a"_s);
    EXPECT_EQ(variable.type().text, u"int"_s);
    EXPECT_TRUE(variable.isEquivalent(same));
    EXPECT_FALSE(variable.isEquivalent(enumeration));
    EXPECT_FALSE(SourceBrowserObject().isEquivalent(SourceBrowserObject()));
}

} // namespace
