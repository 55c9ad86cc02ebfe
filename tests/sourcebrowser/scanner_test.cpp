#include "sourcebrowser/c_scanner.h"
#include "tests/support/header_text.h"

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

class TextLines : public SourceBrowserLineIterator
{
public:
    explicit TextLines(const QString &text) : m_lines(text.split(u'\n')) {}
    bool readLine(QString &line) override
    {
        line = m_lines.value(m_next);
        return m_next++ < m_lines.size();
    }

private:
    QStringList m_lines;
    qsizetype m_next = 0;
};

/// The tokens of a text, each as its code and text.
std::string tokens(const QString &text, bool keywordFree = false)
{
    TextLines lines(text);
    SourceBrowserLineStatistics statistics;
    SourceBrowserCScanner scanner(lines, u"a.h"_s, nullptr, nullptr, statistics, {});
    scanner.setKeywordFree(keywordFree);
    QStringList all;
    while (const int code = scanner.nextToken())
        all << u"%1 %2"_s.arg(QString::number(code), scanner.tokenText());
    return all.join(u", "_s).toStdString();
}

TEST(Scanner, GivesTokensTheirCodes)
{
    EXPECT_EQ(tokens(u"public slots: signals: inline Q_OBJECT x"_s), "258 public, 58 :, 258 signals, 58 :, 277 x");
    EXPECT_EQ(tokens(u"a | b # $ % @ ` \\ c$d é"_s), "277 a, 277 b, 277 c$d") << "unknown characters yield no token";
    EXPECT_EQ(tokens(u"1'000u .5 'a' L'\\'' '\\x41' 0x1p"_s), "279 1'000u, 46 ., 279 5, 279 'a', 279 L'\\'', "
                                                              "279 '\\x41', 279 0x1p");
    EXPECT_EQ(tokens(u"\"a\\\"b\" L\"c\" R\"x(\")\n)x\" \"open\ny"_s),
              "280 \"a\\\"b\", 280 L\"c\", 280 )x\", 280 \"open, 277 y");
    EXPECT_EQ(tokens(u"a::b:c ... . / ~ // x\n/* y\n# z */ d"_s),
              "277 a, 278 ::, 277 b, 58 :, 277 c, 276 ..., 46 ., 47 /, 126 ~, 277 d");
    EXPECT_EQ(tokens(u"class inline x"_s, true), "277 class, 277 inline, 277 x") << "no word is a keyword";
    EXPECT_EQ(tokens(u"#define a \\\n b /* c\n d */ e\nf"_s), "277 f") << "a directive has no tokens";
}

TEST(Scanner, ServesPushedBackTokensFirst)
{
    TextLines lines(u"c"_s);
    SourceBrowserLineStatistics statistics;
    SourceBrowserCScanner scanner(lines, u"a.h"_s, nullptr, nullptr, statistics, {});
    scanner.pushBack(277, u"a"_s);
    scanner.pushBack('(', u"("_s);
    QStringList texts;
    while (scanner.nextToken())
        texts << scanner.tokenText();
    EXPECT_EQ(texts, QStringList({u"a"_s, u"("_s, u"c"_s}));
}

struct Row
{
    const char *sentence;
    const char16_t *header;
    const char *heard; ///< without the begin and end of the group
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.sentence;
}

class Heard : public testing::TestWithParam<Row>
{
};

TEST_P(Heard, InOrder)
{
    SourceBrowserModel model;
    HeaderParser parser(model);
    parser.parseText(QString::fromUtf16(GetParam().header), u"src/io.h"_s, {u"FIXME"_s, u"todo"_s});
    ASSERT_GE(parser.heard.size(), 2);
    EXPECT_EQ(parser.heard.takeFirst(), u"Parsing io.h"_s);
    EXPECT_EQ(parser.heard.takeLast(), u"done"_s);
    EXPECT_EQ(parser.heard.join(u"; "_s).toStdString(), GetParam().heard);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, Heard,
    testing::Values(Row{"an empty file has no events", u"", ""},
                    Row{"a directive is reported with its continuation lines", u"\n  # define A \\\n    1\\\n  2",
                        "1 preprocessor 3 # define A \\\n   1\\\n   2"},
                    Row{"regions are reported as directives", u"/*! \\group some name */\n/*!\n\\endregion*/",
                        "0 preprocessor 0 #region some name; 2 preprocessor 0 #endregion"},
                    Row{"a fix-me word counts at the start of a line comment only",
                        u"// FIXME: x\n// a FIXME\n//todo\n// todos", "0 fixme FIXME; 2 fixme todo"}));

INSTANTIATE_TEST_SUITE_P(
    Events, Heard,
    testing::Values(
        Row{"a class reports its members in order",
            u"class X : public Y {\npublic:\n int m(int a);\nsignals:\n int v;\n};",
            "0 container 1 X | X |; 1 access 1; 2 container 2 m | int m(int a) |; end; 3 access 1; "
            "4 object 3 v | int v; end"},
        Row{"a structure outside a typedef is reported as a class", u"struct s { int a; };",
            "0 container 1 s | s |; 0 object 3 a | int a; end"},
        Row{"a structure after typedef is reported as one, with nested ones",
            u"typedef struct { union { int b; } u; } T;",
            "0 container 5 (Anonymous) | (Anonymous) |; 0 container 5 (Anonymous) | (Anonymous) |; "
            "0 object 3 b | int b; end; 0 object 3 u | union {...} u; end"},
        Row{"typedefs are objects, enumerations are silent", u"typedef int (*f)(void); enum e { A };",
            "0 object 4 f | typedef int (*f)(void)"},
        Row{"a branch begins with the braces open before its conditional",
            u"#if A\nstruct a {\n#else\nstruct b {\n#endif\nint x; };",
            "0 preprocessor 1 #if A; 1 container 1 a | a |; 2 preprocessor 2 #else; end; 3 container 1 b | b |; "
            "4 preprocessor 3 #endif; 5 object 3 x | int x; end"}));

INSTANTIATE_TEST_SUITE_P(
    Complaints, Heard,
    testing::Values(
        Row{"a stray token in a structure is reported once", u"typedef struct { int a;\n + int b; } S;",
            "0 container 5 (Anonymous) | (Anonymous) |; 0 object 3 a | int a; src/io.h:2: Bad struct declaration; "
            "1 object 3 b | int b; end"},
        Row{"each stray token of a namespace is reported", u"namespace A B C {\n}",
            "src/io.h:1: Bad namespace identifier; src/io.h:1: Bad namespace identifier; 0 container 7 A | A |; end"},
        Row{"a nested namespace is named first", u"namespace @ a::b {\nint c; }",
            "src/io.h:1: Bad namespace identifier; src/io.h:1: Bad namespace identifier; 0 container 7 a | a |; "
            "1 object 3 c | int c; end"},
        Row{"template arguments do not hide a class",
            u"class S { void f(); class I { I(); }; };\ntemplate <class T> void S<T>::f() { }\n"
            u"template <class T, class U> S<T>::I<U>::I() { }\ntemplate <class T> void S<T>::g();\nM<T>::M() { }",
            "0 container 1 S | S |; 0 container 2 f | void f(void) |; end; 0 container 1 I | I |; 0 container 2 I | "
            "I(void) "
            "|; end; end; end; 1 container 2 f | void f(void) |; end; 2 container 2 I | I(void) |; end; "
            "3 container 2 g | void g(void) |; end; src/io.h:4: Method g not found in class S; "
            "4 container 2 M | M(void) |; end; src/io.h:5: Class M not found"},
        Row{"a nameless namespace has the file's name", u"namespace { int a; }",
            "0 container 7 (io.h) | (io.h) |; 0 object 3 a | int a; end"},
        Row{"definitions outside a class are matched with it", u"class A { };\nint A::f() { }\nint B::g() { }",
            "0 container 1 A | A |; end; 1 container 2 f | int f(void) |; end; "
            "src/io.h:2: Method f not found in class A; 2 container 2 g | int g(void) |; end; "
            "src/io.h:3: Class B not found"}));

TEST(Scanner, CountsLines)
{
    SourceBrowserModel model;
    HeaderParser parser(model);
    parser.parseText(
        u"/* one\n\n two */\n\n// three\n#if A \\\n B\n#endif\nint a; /*! \\region r */\n/*! \\group q\n */"_s);
    const SourceBrowserLineStatistics expected{11, 2, 3 + 1 + 1 + 1, 3};
    EXPECT_EQ(parser.statistics(), expected) << "a region comment counts once";
    EXPECT_EQ(model.statistics().value(u"a.h"_s), expected);
}

TEST(Scanner, CountsWhereDocumentationBegins)
{
    SourceBrowserModel model;
    HeaderParser parser(model);
    parser.parseText(u"/*! text */\n/* plain */\n/*!\n\\fn f */\n/*!< a */\n/*!! b */ /*! \\region c */\n/*!*/"_s);
    EXPECT_EQ(parser.documentationLines(), (std::vector<int>{1, 3, 7}));
}

TEST(Scanner, CollectsTheOverview)
{
    SourceBrowserModel model;
    HeaderParser parser(model);
    parser.parseText(u"/*!! one */\nint a;\n/*! \\overview two\n three */\nint b;"_s);
    EXPECT_EQ(parser.overview(), u"one \\overview two\n three "_s);
    ASSERT_EQ(parser.overviewComments().size(), 2U);
    EXPECT_EQ(parser.overviewComments()[1].firstLine, 3);
    EXPECT_EQ(model.find(u"b")->documentation(), QString()) << "an overview comment documents nothing else";
}

} // namespace
