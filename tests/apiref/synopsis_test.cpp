#include "apiref/synopsis_source.h"
#include "tests/support/header_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// A header that was read, with what SynopsisSource knows of it.
class Header
{
public:
    explicit Header(const QString &text) : source(text.toUtf8(), read(text)) { source.attachTrailingComments(); }

    SourceBrowserModel model;
    SynopsisSource source;

private:
    SourceBrowserModel &read(const QString &text)
    {
        HeaderParser parser(model);
        parser.setComplete(true);
        parser.parseText(text);
        return model;
    }
};

std::string onOneLine(QString text)
{
    return text.replace(u'\n', u'|').toStdString();
}

struct Row
{
    const char *name;
    const char16_t *header;
    const char *object; ///< its qualified name
    const char *synopsis;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class Synopses : public testing::TestWithParam<Row>
{
};

TEST_P(Synopses, StateTheDeclaration)
{
    const Header header(QString::fromUtf16(GetParam().header));
    const SourceBrowserObject *const object = header.model.find(QString::fromUtf8(GetParam().object));
    ASSERT_NE(object, nullptr) << GetParam().name;
    EXPECT_EQ(header.source.synopsis(*object), GetParam().synopsis) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Functions, Synopses,
    testing::Values(
        Row{"words that the parser drops", u"[[nodiscard]] inline constexpr int f() const noexcept { return 1; }", "f",
            "[[nodiscard]] inline constexpr int f() const noexcept;"},
        Row{"an attribute before the first word", u"int a;\n__attribute__((pure)) alignas(8) inline int f(void);", "f",
            "__attribute__((pure)) alignas(8) inline int f(void);"},
        Row{"comments and white space", u"int  f (int a, /* one */ int b  // two\n );", "f", "int f(int a, int b);"},
        Row{"language linkage", u"extern \"C\" int f(void);", "f", "extern \"C\" int f(void);"},
        Row{"initialisers of a constructor", u"struct A { explicit A(int a) noexcept : b(a), c{1} {} int b, c; };",
            "A.A", "explicit A(int a) noexcept;"},
        Row{"a function block", u"struct A { A(int a) try : b(a) {} catch (...) {} int b; };", "A.A", "A(int a);"},
        Row{"defaulted and deleted", u"struct A { A() = default; A &operator=(const A &) = delete; };",
            "A.operator=", "A &operator=(const A &) = delete;"},
        Row{"a friend", u"class A { friend bool operator==(const A &, const A &) { return true; } };",
            "operator==", "friend bool operator==(const A &, const A &);"},
        Row{"a call operator", u"struct A { void operator () (int a); };", "A.operator()", "void operator () (int a);"},
        Row{"a template on one line", u"template <class T> auto f(T &&t) -> decltype(t.x());", "f",
            "template <class T> auto f(T &&t) -> decltype(t.x());"},
        Row{"long arguments",
            u"virtual void push(int a_long_argument_name, const std::map<std::string, int> &map = {}, unsigned c = "
            u"f(1, "
            u"2)) const override;",
            "push",
            "virtual void push(int a_long_argument_name,\n"
            "                  const std::map<std::string, int> &map = {},\n"
            "                  unsigned c = f(1, 2)) const override;"},
        Row{"a long head",
            u"template <class Something, class SomethingElse = std::enable_if_t<(N > 1), int>> int f(Something a);",
            "f",
            "template <class Something, class SomethingElse = std::enable_if_t<(N > 1), int>>\nint f(Something a);"},
        Row{"arguments that do not fit after the name",
            u"some_long_type_name *some_quite_long_function_name_indeed(const some_other_type_name *argument_one, int "
            u"b);",
            "some_quite_long_function_name_indeed",
            "some_long_type_name *some_quite_long_function_name_indeed(\n"
            "        const some_other_type_name *argument_one,\n        int b);"},
        Row{"constraints before and after a long function",
            u"template <class T, class U> requires std::regular<T> && (sizeof(U) > 4) [[nodiscard]] constexpr T f(T "
            u"&&t, U u) noexcept requires requires(T x) { x.g(); };",
            "f",
            "template <class T, class U>\nrequires std::regular<T> && (sizeof(U) > 4)\n"
            "[[nodiscard]] constexpr T f(T &&t, U u) noexcept\n    requires requires(T x) { x.g(); };"},
        Row{"constraints that fit", u"template <class T> requires n::C<T, 1> void f(T t) requires D<T>;", "f",
            "template <class T> requires n::C<T, 1> void f(T t) requires D<T>;"},
        Row{"a condition inside", u"int f(int a\n#ifdef B\n, int b\n#else\n, long b\n#endif\n);", "f",
            "int f(int a\n#ifdef B\n, int b\n#else\n, long b\n#endif\n);"},
        Row{"prefixes of literals",
            u"void f(const void *a = L\"x\", char b = u'y', const void *c = uR\"(z)\", int d = N \"w\");", "f",
            "void f(const void *a = L\"x\",\n       char b = u'y',\n       const void *c = uR\"(z)\",\n       int d = "
            "N \"w\");"},
        Row{"brackets that each branch closes",
            u"int f(int a\n#if B\n, int b)\n#else\n)\n#endif\n;\nint g(int a[3], int "
            u"bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb, "
            u"int ccccccccccccccccccccccccccccccccccc);",
            "g",
            "int g(int a[3],\n      int bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb,\n      int "
            "ccccccccccccccccccccccccccccccccccc);"},
        Row{"a macro that makes the declaration", u"PNG_EXPORT(1, int, f, (int a))\nint g;", "f",
            "PNG_EXPORT(1, int, f, (int a));"}));

INSTANTIATE_TEST_SUITE_P(
    Types, Synopses,
    testing::Values(
        Row{"a class with bases",
            u"template <typename T> class Buffer final : public Base<T>, virtual Other { int a; };", "Buffer",
            "template <typename T> class Buffer final : public Base<T>, virtual Other"},
        Row{"a constraint before a long class",
            u"template <class Something> requires std::integral<Something> || requires(Something s) { s.x; } struct A "
            u": B<Something> { A(); };",
            "A",
            "template <class Something>\nrequires std::integral<Something> || requires(Something s) { s.x; }\n"
            "struct A : B<Something>"},
        Row{"a structure of C", u"struct A { int a, b; /* c */ void (*f)(int, /* d */ int); union { int g; } h; };",
            "A", "struct A {\n    int a, b;\n    void (*f)(int, int);\n    union {\n        int g;\n    } h;\n};"},
        Row{"a union of C", u"union A { int a; float b; };", "A", "union A {\n    int a;\n    float b;\n};"},
        Row{"a structure with a method", u"struct A { int a; void f(); };", "A", "struct A"},
        Row{"a structure with a private part", u"struct A { int a; private: int b; };", "A", "struct A"},
        Row{"a condition in a structure", u"struct A {\n int a;\n#ifdef B\n  int b;\n#endif\n};", "A",
            "struct A {\n    int a;\n#ifdef B\n    int b;\n#endif\n};"},
        Row{"a typedef of a structure", u"typedef struct tag { int a; } A, *P;", "A",
            "typedef struct tag {\n    int a;\n} A;"},
        Row{"a pointer to a structure with a tag", u"typedef struct tag { int a; } A, *P;", "P",
            "typedef struct tag *P;"},
        Row{"a pointer to a structure without one", u"typedef struct { int a; } A, *P;", "P", "typedef A *P;"},
        Row{"a type before a variable", u"static const struct A { int a; } *const p, q;", "A",
            "struct A {\n    int a;\n};"},
        Row{"a variable of the type before it", u"static const struct A { int a; } *const p, q;", "q",
            "static const struct A q;"},
        Row{"a short enumeration", u"enum class Color : unsigned char { Red /* r */, Blue = 1 << 2, };", "Color",
            "enum class Color : unsigned char { Red, Blue = 1 << 2 };"},
        Row{"a long enumeration",
            u"typedef enum { AVeryLongEnumerator = f(1, 2), AnotherVeryLongEnumerator, YetAnotherEnumerator, } E;", "E",
            "typedef enum {\n    AVeryLongEnumerator = f(1, 2),\n    AnotherVeryLongEnumerator,\n    "
            "YetAnotherEnumerator\n} E;"},
        Row{"an alias", u"template <class T> using A = std::enable_if_t<B<T>{}, int>; int b;", "A",
            "template <class T> using A = std::enable_if_t<B<T>{}, int>;"},
        Row{"a deduction guide", u"template <class T> explicit A(T) -> A<T>; int b;", "A",
            "template <class T> explicit A(T) -> A<T>;"},
        Row{"a specialisation", u"template <class T> struct A { A(); }; template <> struct A<N::B> { A(int); };",
            "A<N::B>.A", "A(int);"},
        Row{"a nested namespace", u"namespace a::b { int c; } namespace a { namespace b { int d; } }", "a.b.d",
            "int d;"},
        Row{"a structure with members of a macro", u"typedef union { MEMBERS } A __attribute__((x));", "A",
            "typedef union {\n    MEMBERS\n} A __attribute__((x));"},
        Row{"a typedef after an extension", u"__extension__ typedef struct { int a; } A;", "A",
            "__extension__ typedef struct {\n    int a;\n} A;"},
        Row{"a definition in an enumeration", u"enum { A =\n#define A A\n  A,\n#if B\n C\n#endif\n};", "(Anonymous)",
            "enum {\n    A =\n#define A A\n    A,\n#if B\n    C\n#endif\n};"},
        Row{"const in a template head", u"template <class T, class U = A<const T>> struct B { B(); };", "B",
            "template <class T, class U = A<const T>> struct B"},
        Row{"a namespace", u"inline namespace tools { int a; }", "tools", "inline namespace tools"},
        Row{"a concept", u"template <class T> concept Small = sizeof(T) < 4 && requires(T t) { t.x(); };", "Small",
            "template <class T> concept Small = sizeof(T) < 4 && requires(T t) { t.x(); };"}));

INSTANTIATE_TEST_SUITE_P(
    Others, Synopses,
    testing::Values(
        Row{"the first of several", u"const int *a = 0, b[3], (*c)(int);", "a", "const int *a = 0;"},
        Row{"the second of several", u"const int *a = 0, b[3], (*c)(int);", "b", "const int b[3];"},
        Row{"the third of several", u"const int *a = 0, b[3], (*c)(int);", "c", "const int (*c)(int);"},
        Row{"bit fields", u"struct A { unsigned a : 1, b : 2; };", "A.b", "unsigned b : 2;"},
        Row{"a constant", u"inline constexpr int limit = 10;", "limit", "inline constexpr int limit = 10;"},
        Row{"a long value",
            u"static const int t[] = {1000000, 2000000, 3000000, 4000000, 5000000, 6000000, 7000000, 8000000};", "t",
            "static const int t[];"},
        Row{"a typedef of a function", u"typedef int (*handler) (int  a, void *b);", "handler",
            "typedef int (*handler) (int a, void *b);"},
        Row{"a macro with arguments", u"#define SQUARE(x, \\\n  y) ((x) * (x))", "SQUARE", "#define SQUARE(x, y)"},
        Row{"a macro with a value", u"#define LIMIT  512 ///< the limit", "LIMIT", "#define LIMIT 512"},
        Row{"a macro with a long value",
            u"#define TEXT \"................................................................................\"",
            "TEXT", "#define TEXT"}));

/// A row of a table of functions: a header, and the signatures of all that are named "f", "operator..." or "A".
struct SignatureRow
{
    const char *name;
    const char16_t *header;
    const char *signatures; ///< "TEMPLATE HEADS|ARGUMENTS|QUALIFIERS|CONSTRAINT; ..."
};

void PrintTo(const SignatureRow &row, std::ostream *out)
{
    *out << row.name;
}

class Signatures : public testing::TestWithParam<SignatureRow>
{
};

TEST_P(Signatures, AreSpelledAsInTheHeader)
{
    const Header header(QString::fromUtf16(GetParam().header));
    std::string text;
    for (const SourceBrowserObject *const object : header.model.all()[1]) {
        const auto *const method = dynamic_cast<const SourceBrowserMethod *>(object);
        ASSERT_NE(method, nullptr) << GetParam().name;
        const SynopsisSource::Signature signature = header.source.signature(*method);
        text += (text.empty() ? "" : "; ") + signature.templateHeads.toStdString() + '|' +
                signature.arguments.toStdString() + '|' + signature.qualifiers.toStdString() + '|' +
                signature.constraint.toStdString();
    }
    EXPECT_EQ(text, GetParam().signatures) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Functions, Signatures,
    testing::Values(
        SignatureRow{"white space and default values",
                     u"void f(U&& x,  const  T *y = g<1, 2>(a, b), bool (*z)(int, int) = nullptr, E e = (A < B));",
                     "|(U&& x, const T *y, bool (*z)(int, int), E e)||"},
        SignatureRow{"all qualifiers",
                     u"struct A { int f() &; int f() const &; int f() && noexcept(a && b); auto f() const volatile -> "
                     u"int &; int f() const && = delete; };",
                     "|()|&|; |()|const &|; |()|&&|; |()|const volatile|; |()|const &&|"},
        SignatureRow{"what follows initialisers and bodies",
                     u"struct A { A(int a) noexcept : b(a & 1) {} int f() const { return 1 & 2; } int b; };",
                     "|(int a)||; |()|const|"},
        SignatureRow{"constraints",
                     u"template <class T> requires C<T> void f(T t) requires (D<T> && sizeof(T) == 1); template <class "
                     u"T> void f(T t) requires E<T> = delete;",
                     "template <class T> requires C<T>|(T t)||requires (D<T> && sizeof(T) == 1); template <class T>|(T "
                     "t)||requires E<T>"},
        SignatureRow{"deduction guides", u"template <class T> A(const T *, int n = 1) -> A<T>;",
                     "template <class T>|(const T *, int n)||"},
        SignatureRow{"call operators and conversions",
                     u"struct A { bool operator ()(int a) const; explicit operator bool() const; };",
                     "|()|const|; |(int a)|const|"},
        SignatureRow{"arrays", u"void f(int a[3], U&& b);", "|(int a[3], U&& b)||"},
        SignatureRow{"two template heads", u"template <class T> template <class U> void f(U&& u);",
                     "template <class T> template <class U>|(U&& u)||"},
        SignatureRow{"void and names with underscores", u"int f(void); struct A { int f(void); int g(int __n); };",
                     "|(void)||; |(int __n)||; |(void)||"},
        SignatureRow{"arguments of a macro", u"int f OF((int a, char *b));", "|(int a, char *b)||"},
        SignatureRow{"conditions, which only the model can state", u"int f(int a\n#if B\n, int b\n#endif\n) const;",
                     "|(int a, int b)|const|"}));

TEST(Synopsis, CommentsAfterDeclarations)
{
    const Header header(uR"(#define A 1 /*!< macro */
enum E { one, ///< first
         two  /*!< second */ };
struct S { ///< structure
  int a, ///< member a
      b; //!< member b
         //!< and more
  int c(); /* none */ int d() { } ///< method
  /*!< still d?
   * more */
}; int e;
namespace n { int f(int a, ///< not of f
                    int b); /**< function */
}
#ifdef B
struct T {
#else
struct V {
#endif
  int f;
}; ///< branches that open a brace each
struct U {
#if B
  struct {
#if C
    int g;
#endif
  } h;
#else
  int i;
#endif
}; ///< a condition in a branch
)"_s);
    std::string text;
    for (const SourceBrowserModel::Collection &collection : header.model.all()) {
        for (const SourceBrowserObject *const object : collection) {
            if (!object->trailingComment().isEmpty())
                text += object->qualifiedName().toStdString() + " " + std::to_string(object->trailingCommentLine()) +
                        ": " + onOneLine(object->trailingComment()) + "\n";
        }
    }
    EXPECT_EQ(text,
              "S 4: structure\nT 21: branches that open a brace each\nU 32: a condition in a branch\n"
              "S.d 8: method|still d?|more\nn.f 13: function\nS.a 5: member a\nS.b 6: member b|and more\nA 1: macro\n");
}

TEST(Synopsis, Enumerators)
{
    const Header header(uR"(enum E : int {
  /*! before */ a,
  b = f(1, 2), /*!< after */
#ifdef C
  c = x<1, 2>::v, ///< one
                  ///< two
#endif
  d,
  e = x<1, T>::v,
  f = x<1, y<2>>::v
};)"_s);
    const auto *const enumeration = dynamic_cast<const SourceBrowserEnum *>(header.model.find(u"E"));
    ASSERT_NE(enumeration, nullptr);
    std::string text;
    for (const SynopsisSource::Enumerator &enumerator : header.source.enumerators(*enumeration)) {
        text += enumerator.name.toStdString() + "=" + enumerator.value.toStdString() + " " +
                std::to_string(enumerator.commentLine) + ": " + onOneLine(enumerator.comment) + "\n";
    }
    EXPECT_EQ(text, "a= 2: before\nb=f(1, 2) 3: after\nc=x<1, 2>::v 5: one|two\nd= -1: \ne=x<1, T>::v -1: \n"
                    "f=x<1, y<2>>::v -1: \n");
}

TEST(Synopsis, WordsOfADeclaration)
{
    const struct
    {
        const char16_t *header;
        const char *object; ///< its qualified name
        bool hasStatic;
    } rows[] = {
        {u"struct A { static int f(int a); };", "A.f", true},
        {u"struct A { int f(int a) { static int b; } static int c; };", "A.f", false},
        {u"struct A { int f(int a[static 3]); };", "A.f", false},
        {u"struct A { __attribute__((static)) int f(); };", "A.f", false},
        {u"struct A { __attribute__((pure)) static int f(); };", "A.f", true},
        {u"template <class T, class U = B<static T>> struct A { int f(); };", "A", false},
        {u"namespace a::b { static int c; }", "a", false},
    };
    for (const auto &row : rows) {
        const Header header(QString::fromUtf16(row.header));
        const SourceBrowserObject *const object = header.model.find(QString::fromUtf8(row.object));
        ASSERT_NE(object, nullptr) << row.object;
        EXPECT_EQ(header.source.hasWord(*object, u"static"), row.hasStatic)
            << onOneLine(QString::fromUtf16(row.header));
    }
}

TEST(Synopsis, KnowsGuidesArguments)
{
    const Header header(u"template <class T> explicit A(const T *first, int) -> A<T>;"_s);
    const auto *const guide = dynamic_cast<const SourceBrowserMethod *>(header.model.find(u"A"));
    ASSERT_NE(guide, nullptr);
    EXPECT_EQ(guide->description(), u"A(const T *first, int)"_s);
}

} // namespace
