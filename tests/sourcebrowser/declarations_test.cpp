#include "tests/support/header_text.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// The declarations of a header: the qualified name, and the text of functions, variables and enumerations.
std::string declared(const QString &text)
{
    SourceBrowserModel model;
    HeaderParser(model).parseText(text);
    QStringList lines;
    for (const SourceBrowserModel::Collection &collection : model.all()) {
        for (const SourceBrowserObject *object : collection) {
            const bool showsText = dynamic_cast<const SourceBrowserVariable *>(object) || object->phylum() == 0;
            lines << object->qualifiedName() + (showsText ? u" = "_s + object->description().simplified() : QString());
        }
    }
    return lines.join(u" ; "_s).toStdString();
}

struct Row
{
    const char16_t *header;
    const char *declarations;
};

/// Names a row by the words of its header.
void PrintTo(const Row &row, std::ostream *out)
{
    for (const char16_t *at = row.header; *at; ++at)
        *out << (QChar(*at).isLetterOrNumber() ? char(*at) : '_');
}

class Declarations : public testing::TestWithParam<Row>
{
};

TEST_P(Declarations, AreReadAndRendered)
{
    EXPECT_EQ(declared(QString::fromUtf16(GetParam().header)), GetParam().declarations)
        << QString::fromUtf16(GetParam().header).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Declarators, Declarations,
    testing::Values(
        Row{u"int a, *b, c[3];", "a = int a ; b = int *b ; c = int c[3]"},
        Row{u"extern const char *const names[2 | 4];", "names = const char *const names[2 | 4]"},
        Row{u"int f(void), g();", "f = int f(void) ; g = int g(void)"},
        Row{u"char *strdup(const char *, int n = 3);", "strdup = char *strdup(const char *, int n)"},
        Row{u"void (*signal(int sig, void (*func)(int)))(int);",
            "signal = void (*signal(int sig, void (*func)(int)))(int)"},
        Row{u"int (*p)[3]; int (*q[2])(void); int (*(*r)(int))(long);",
            "p = int (*p)[3] ; q = int (*q[2])(void) ; r = int (*(*r)(int))(long)"},
        Row{u"typedef int (*handler_t)( void );", "handler_t = typedef int (*handler_t)(void)"},
        Row{u"typedef int fn(int a), *pointer;", "fn = typedef int fn(int a) ; pointer = typedef int *pointer"},
        Row{u"lua_State *(lua_newstate) (lua_Alloc f, void *ud); int (f)(int);",
            "f = int f(int) ; lua_newstate = lua_State *lua_newstate(lua_Alloc f, void *ud)"},
        Row{u"int a(3), b = 1, c(2); static const T t(\"x\"); std::string s(\"y\", 2); int ATTRIBUTE(3); X(3);",
            "a = int a ; b = int b ; c = int c ; s = std::string s ; t = const T t"},
        Row{u"int sum(int n, ...), old();", "old = int old(void) ; sum = int sum(int n, ...)"},
        Row{u"int a = 1, d(3), e{4}, f; A<B *> head GUARDED_BY(m){nullptr}, tail; int g MACRO(m) { } int h;",
            "a = int a ; d = int d ; e = int e ; f = int f ; h = int h ; head = A<B *> head ; tail = A<B *> tail"},
        Row{u"int a = N == 0 ? N : f<N * 10, f<D, (1)>, N + 1>::v, b = c<d, e; int g = h<1, i = j>2, k;",
            "a = int a ; b = int b ; e = int e ; g = int g ; i = int i ; k = int k"},
        Row{u"unsigned long long x = 1, y = f(1, 2), z = { 1, 2 };",
            "x = unsigned long long x ; y = unsigned long long y ; z = unsigned long long z"},
        Row{u"int old(a, b) int a; char *b; { return 0; } int next;", "old = int old(a, b) ; next = int next"},
        Row{u"int f(g, a) int (*g)(); int a; { } int h(a, g) int a, (*g)(int); { } int (*a)(); extern NN(b) int "
            u"(*b)(); int c;",
            "f = int f(g, a) ; h = int h(a, g) ; a = int (*a)(void) ; b = int (*b)(void) ; c = int c"},
        Row{u"int f(void (*)(int), int (int), char a[static 3], char *const *v);",
            "f = int f(void (*)(int), int (int), char a[static 3], char *const *v)"},
        Row{u"int a[1], (b), ((c))[3], *(d), (e) = 1; int ((f))(int), (*(g))(int), (h(int)), *(i(int)); T *(j); f (k);",
            "f = int f(int) ; h = int h(int) ; i = int *i(int) ; a = int a[1] ; b = int b ; c = int c[3] ; d = int "
            "*d "
            "; "
            "e = int e ; g = int (*g)(int) ; j = T *j"},
        Row{u"int a(-1), b(+c, 2); T d(!e); static const int f(~1); int (*g)(int){0}, h; int i(T);",
            "i = int i(T) ; a = int a ; b = int b ; d = T d ; f = const int f ; g = int (*g)(int) ; h = int h"},
        Row{u"void f(int a(int), T b(T), HANDLE c(void), T CALLBACK d(), T *e(int) = 0, int UNUSED(g), T h unused(i), "
            u"A(j) k(int), int attr(l) m, T n(3), int o unused(p));",
            "f = void f(int a(int), T b(T), HANDLE c(void), T d(void), T *e(int), int, T h, A(j) k(int), int m, T, int "
            "o)"},
        Row{u"struct [[x]] a b; struct ::c d; const ::e::F g; T [[x]] h; i<const ::j> k; l :: m n; void o(struct ::p "
            u"q);",
            "o = void o(struct ::p q) ; b = struct a b ; d = struct ::c d ; g = const ::e::F g ; h = T h ; "
            "k = i<const ::j> k ; n = l::m n"}));

INSTANTIATE_TEST_SUITE_P(
    Macros, Declarations,
    testing::Values(
        Row{u"ZSTDLIB_API size_t f(void* dst);", "f = size_t f(void *dst)"},
        Row{u"extern int f (int x) __THROW __nonnull ((1, 2)) __wur;", "f = int f(int x)"},
        Row{u"GLIB_AVAILABLE_IN_ALL\ngchar *f (GType t) G_GNUC_CONST;", "f = gchar *f(GType t)"},
        Row{u"XMLPUBFUN int XMLCALL f(xmlDocPtr doc);", "f = int f(xmlDocPtr doc)"},
        Row{u"API(void *) f(int a);\nAPI(XML_Bool)\ng(void);", "f = API(void *) f(int a) ; g = API(XML_Bool) g(void)"},
        Row{u"PNG_EXPORT(1, png_uint_32, version, (void));\nFP_EXPORT(2, int, a, (int x))\nFP_EXPORT(3, int, b, (int "
            u"y))\n",
            "a = int a(int x) ; b = int b(int y) ; version = png_uint_32 version(void)"},
        Row{u"void h(int OF((char *)), unsigned int OF((void)), T OF(()), int a OF((int)), int NN((1)), T NN((1)));",
            "h = void h(int (char *), unsigned int (void), T (void), int a(int), int, T)"},
        Row{u"int f OF((int a)); typedef int (*g) OF((void));", "f = int f(int a) ; g = typedef int (*g)(void)"},
        Row{u"extern int REDIRECT (f, (int a), other); extern FILE *__REDIRECT (g, (int a), other) __wur;",
            "f = int f(int a) ; g = FILE *g(int a)"},
        Row{u"B\nREDIRECT(f, (int));\nBOOL REDIRECT(a, (int)); AA(x) HANDLE REDIRECT(b, (int), c);\nBEGIN FOO(d, "
            u"(int))\nint e;",
            "a = BOOL a(int) ; b = HANDLE b(int) ; e = int e"},
        Row{u"struct API a *f(int b), c; struct d API *g; struct API e h(); struct FOO *i, j; struct FOO API *u, v "
            u"PACKED; enum DECL(1) k l(void);"
            u" struct DECL(1) m *n(int o) { } struct DECL(p) *q; void r(struct DECL(1) s *, struct DECL(1) t);",
            "f = struct a *f(int b) ; h = struct e h(void) ; l = enum k l(void) ; n = struct m *n(int o) ; "
            "r = void r(struct s *, struct DECL(1) t) ; c = struct a c ; g = struct d *g ; i = struct FOO *i ; "
            "j = struct FOO j ; q = struct DECL(p) *q ; u = struct FOO *u ; v = struct FOO v"},
        Row{u"struct TAG(a, b) c; struct ALIGNED(8) d; struct e { struct TAG(a, (b)) f, *g; }; struct TAG(a, b) "
            u"h(int);",
            "e ; h = struct TAG(a, b) h(int) ; c = struct TAG(a, b) c ; e.f = struct TAG(a, (b)) f ; "
            "e.g = struct TAG(a, (b)) *g"},
        Row{u"extern FILE *out ATTRIBUTE(3); int errors ALIGNED;", "errors = int errors ; out = FILE *out"},
        Row{u"typedef void (WINAPI *call)(int); typedef int (API call2)(int);",
            "call = typedef void (*call)(int) ; call2 = typedef int call2(int)"},
        Row{u"BEGIN_DECLS\n\n/* c */\nint f(void);\nDEFINE_THING(a, b)\nint g(void);\nEND_DECLS",
            "f = int f(void) ; g = int g(void)"},
        Row{u"typedef int TYPE_ID;\nDECL TYPE_ID CALL f(void);", "f = TYPE_ID f(void) ; TYPE_ID = typedef int TYPE_ID"},
        Row{u"int f __attribute__((x)) (int) asm (\"g\") __packed; struct __attribute__((y)) s { int a; } PACKED;",
            "s ; f = int f(int) ; s.a = int a"},
        Row{u"STATIC_ASSERT(sizeof(int) == 4);\nstatic_assert(1, \"\");\nREMOVED(1, int, f, (void));\nFOO;\nBEGIN END",
            ""}));

// Words that C++ reserves are names where a name can stand; those of the keyword table, where nothing else can.
INSTANTIATE_TEST_SUITE_P(
    NamesOfC, Declarations,
    testing::Values(
        Row{u"int swap(int *old, int *new); int lookup(int class, int private);",
            "lookup = int lookup(int class, int private) ; swap = int swap(int *old, int *new)"},
        Row{u"void (*delete)(void *); int new, typename; int explicit[3], mutable = 1; void (*p)(int signals);",
            "delete = void (*delete)(void *) ; explicit = int explicit[3] ; mutable = int mutable ; new = int new ; "
            "p = void (*p)(int signals) ; typename = int typename"},
        Row{u"typedef unsigned char bool; typedef UINT16 char16_t; typedef enum { no, yes } wchar_t; bool f(bool, X "
            u"bool);",
            "f = bool f(bool, X bool) ; bool = typedef unsigned char bool ; char16_t = typedef UINT16 char16_t ; "
            "wchar_t = typedef enum { no, yes } wchar_t"},
        Row{u"struct s { int export, mutable, this; int new : 3; bool bool; };",
            "s ; s.bool = bool bool ; s.export = int export ; s.mutable = int mutable ; s.new = int new : 3 ; "
            "s.this = int this"},
        Row{u"struct class *f(struct class *a, union template b); struct private { struct class *c; };",
            "private ; f = struct class *f(struct class *a, union template b) ; private.c = struct class *c"},
        Row{u"void *new(size_t size); void delete(void *p); int concept(int); int f(int a), *static_assert;",
            "concept = int concept(int) ; delete = void delete(void *p) ; f = int f(int a) ; "
            "new = void *new(size_t size) ; static_assert = int *static_assert"},
        Row{u"int throw(int); int operator(int); char *throw(void), throw; void g() NOTHROW throw(int);",
            "g = void g(void) ; operator = int operator(int) ; throw = int throw(int) ; "
            "throw = char *throw(void) ; throw = char throw"},
        Row{u"void f(Foo class, char *template, void (*d)(int class), const char *using, int operator, int decltype);",
            "f = void f(Foo class, char *template, void (*d)(int class), const char *using, int operator, int "
            "decltype)"},
        Row{u"class A { public: explicit A(bool); mutable int a; void *operator new(size_t); A(int) = delete; private: "
            u"int b; "
            u"virtual bool c(bool = new A) = 0; constexpr explicit operator bool() const; };",
            "A ; A.A = A(bool) ; A.A = A(int) ; A.c = bool c(bool) ; A.operator bool = operator bool(void) ; "
            "A.operator new = void *operator new(size_t) ; A.a = int a ; A.b = int b"}));

INSTANTIATE_TEST_SUITE_P(
    MacrosAsTypes, Declarations,
    testing::Values(
        Row{u"EXTERN(JDIMENSION) f(j_ptr p,\n int a); EXTERN(VOID) g(void);\nDECLARE(AB)\nx(b); int h; lower(A) i(int "
            u"j); k(1) l(int m); k(n, o) p(int q);",
            "f = EXTERN(JDIMENSION) f(j_ptr p, int a) ; g = EXTERN(VOID) g(void) ; i = lower(A) i(int j) ; h = int h"},
        Row{u"typedef STACK_OF(X) XS; extern STACK_OF(X) *l; const STACK_OF(X) *f(STACK_OF(Y) *sk, const LHASH_OF(a) "
            u"*);",
            "f = const STACK_OF(X) *f(STACK_OF(Y) *sk, const LHASH_OF(a) *) ; XS = typedef STACK_OF(X) XS ; "
            "l = STACK_OF(X) *l"},
        Row{u"struct a { LIST_ENTRY(t) link, prev; TAILQ_HEAD(a, b) head; ALIGNED(8)\n int c; UNUSED(d) END };",
            "a ; a.c = int c ; a.head = TAILQ_HEAD(a, b) head ; a.link = LIST_ENTRY(t) link ; a.prev = LIST_ENTRY(t) "
            "prev"},
        Row{u"BOOL WINAPI f(HANDLE h); WINBASEAPI HANDLE WINAPI g(VOID); extern EXPORT HANDLE x; GLAPI GLenum APIENTRY "
            u"h();",
            "f = BOOL f(HANDLE h) ; g = HANDLE g(VOID) ; h = GLenum h(void) ; x = HANDLE x"},
        Row{u"int f(_In_ HANDLE h, _Out_opt_ LPDWORD, IN OUT PVOID p, _In_reads_(n) const char *s, OPTIONAL int n);",
            "f = int f(HANDLE h, LPDWORD, PVOID p, const char *s, int n)"},
        Row{u"long f(const __u8 __user *p, __le32 __force v, struct s __iomem *s, const char __user *const __user *q);",
            "f = long f(const __u8 *p, __le32 v, struct s *s, const char *const *q)"},
        Row{u"typedef unsigned WIDE_TYPE T; unsigned WIDE_TYPE f(unsigned WIDE_TYPE n, signed WIDE_TYPE); unsigned API "
            u"g();"
            u" typedef unsigned __bitwise flags_t; unsigned int WIDE h; unsigned const WIDE_TYPE w;",
            "f = unsigned WIDE_TYPE f(unsigned WIDE_TYPE n, signed WIDE_TYPE) ; g = unsigned g(void) ; "
            "T = typedef unsigned WIDE_TYPE T ; flags_t = typedef unsigned flags_t ; h = unsigned int h ; w = unsigned "
            "const WIDE_TYPE w"},
        Row{u"BOOL\nWINAPI\nf(\n  _In_ HANDLE h,\n  int (* & * 3), + 1\n);\n_Success_(return != 0) HANDLE "
            u"f2(_Out_writes_(3) PBYTE q);",
            "f = BOOL f(HANDLE h, int (*&*3), + 1) ; f2 = HANDLE f2(PBYTE q)"},
        Row{u"RET((A<B, C<D> >), (const E &)) f(T *n); RETVAL(f, Scalar) g(const Scalar &x); struct S { RET((A)) S(S "
            u"&s); "
            u"RET((A), (B)) h(T &t); RET(a, b) i(S); };",
            "S ; S.S = S(S &s) ; S.h = RET((A), (B)) h(T &t) ; "
            "f = RET((A<B, C<D>>), (const E &)) f(T *n) ; g = RETVAL(f, Scalar) g(const Scalar &x)"},
        Row{u"API(void)  FD_ZERO(set *s); API(PRInt32) FD_INIT(void); DECLARE(a) FOO(b); DECLARE(a)\nBAR();",
            "FD_INIT = API(PRInt32) FD_INIT(void) ; FD_ZERO = API(void) FD_ZERO(set *s)"},
        Row{u"S f MACRO(...) { } class C { static constexpr IN_NAMESPACE(C) (min)() { } };",
            "C ; C.min = IN_NAMESPACE(C) min(void) ; f = S f(...)"},
        Row{u"extern int __REDIRECT (a, (char *s, ...), b) __wur; extern FILE *__REDIRECT_NTH (c, (int d), e);",
            "a = int a(char *s, ...) ; c = FILE *c(int d)"}));

INSTANTIATE_TEST_SUITE_P(
    MacrosThatStandAlone, Declarations,
    testing::Values(
        Row{u"class W {\n Q_GADGET\n QML_ELEMENT\npublic:\n int a();\n P(W)\n A(x)\n B\nprotected:\n int b;\n A(x) "
            u"public: "
            u"int c;\n F\n A(x)\n BOOL f(HANDLE h);\n G\n Q_SIGNALS:\n void s();\n A(x)\n W();\n A(x)\n B\n};\nint z;",
            "W ; W.W = W(void) ; W.a = int a(void) ; W.f = BOOL f(HANDLE h) ; W.s = void s(void) ; W.b = int b ; "
            "W.c = int c ; z = int z"},
        Row{u"class C {\nA(x)\n~C();\nA(x)\nB\noperator int(); API virtual operator bool() const; API void *operator "
            u"new(size_t);"
            u"\nA(x)\nmine:\nint a;\nB\nyours:\nint b;\nUINT\nc : 3;\nUINT\nd : N;\n}; API C::~C() { }",
            "C ; C.operator bool = operator bool(void) ; C.operator int = operator int(void) ; "
            "C.operator new = void *operator new(size_t) ; C.~C = ~C(void) ; C.a = int a ; C.b = int b ; "
            "C.c = UINT c : 3 ; C.d = UINT d : N"},
        Row{u"G_BEGIN_DECLS\nUV_TYPES\n\nint f(void);\nA(x)\nB\nnamespace n { int k; }\nA(x)\nB\n\nBOOL g(void);\nB "
            u"A(x)",
            "n ; f = int f(void) ; g = BOOL g(void) ; n.k = int k"},
        Row{u"D(a)\nD_only(a, b)\nD(a)\n\nX *f(const S(X) *a);\nB\n#if Q\nA\n#else\nint g(void);\n#endif\nint h(void);",
            "f = X *f(const S(X) *a) ; g = int g(void) ; h = int h(void)"},
        Row{u"DEP(x)\nALL\ngchar *f(void);\nA(x)\nEXPORT(1, int, g, "
            u"(void));\nAPI(XML_Bool)\nh(void);\nS(X)\n*i(void);\nDEV\nRET(const a, NN(b))\nj(int);",
            "f = gchar *f(void) ; g = int g(void) ; h = API(XML_Bool) h(void) ; i = S(X) *i(void) ; j = RET(const a, "
            "NN(b)) "
            "j(int)"},
        Row{u"API\n#if A\nint\n#else\nlong\n#endif\nf(void); class C {\n C()\n#if A\n N\n#endif\n : a() {} };",
            "C ; C.C = C(void) ; f = int f(void)"}));

INSTANTIATE_TEST_SUITE_P(
    Heads, Declarations,
    testing::Values(
        Row{u"class U_API It U_FINAL : B { It(); }; struct packet PACKED { }; struct s ALIGNED(8) { int a; };",
            "It ; packet ; s ; It.It = It(void) ; s.a = int a"},
        Row{u"ALIGNED16(class) Vector { Vector(); }; enum class E UNDERLYING(unsigned char) { A };"
            u" enum F UNDERLYING(unsigned char) { B };",
            "Vector ; Vector.Vector = Vector(void) ; E = typedef enum { A } E ; F = typedef enum { B } F"},
        Row{u"BEGIN\n\ntemplate <class T>\nclass [[nodiscard]] C { enum : int { A }; mine: int a; };",
            "C ; C.a = int a ; C.(Anonymous) = typedef enum { A } (Anonymous)"},
        Row{u"struct s ALLOC(void) { } struct s FREE(int a) { }",
            "ALLOC = struct s ALLOC(void) ; FREE = struct s FREE(int a)"},
        Row{u"class Outer::Inner { Inner(int); API explicit Inner(); ~Inner(); };",
            "Outer::Inner ; Outer::Inner.Inner = Inner(int) ; Outer::Inner.Inner = Inner(void) ; "
            "Outer::Inner.~Inner = ~Inner(void)"},
        Row{u"struct a {\n int x;\ntypedef int y; // }\n int z;\n};\nint end;",
            "a ; a.x = int x ; a.y = typedef int y ; a.z = int z ; end = int end"},
        Row{u"extern \"C\" {\nstruct a {\n int x; /* } */\n\ntypedef int y;\n#if 1\nstruct b {\n#else\nstruct b "
            u"{\n#endif\n};\n}",
            "a ; b ; a.x = int x ; y = typedef int y"}));

INSTANTIATE_TEST_SUITE_P(
    TokensWithoutMeaning, Declarations,
    testing::Values(
        Row{u"int @ $ a | ( int % b ) ; int x = 1 | 2, y[2 | 4]; int operator|(int c);",
            "a = int a(int b) ; operator| = int operator|(int c) ; x = int x ; y = int y[2 | 4]"},
        Row{u"int f(int a = 1 | 2, B<3 | 4> b, int % c); S<1 | 2> s;",
            "f = int f(int a, B<3 | 4> b, int c) ; s = S<1 | 2> s"},
        Row{u"\"text\" int z; class Q { \"str\" int a; + int b; [ int c; ~ int d; 5 int e; public int f; , int g; :: "
            u"int h; @ "
            u"int i; }; public int p;",
            "Q ; Q.a = int a ; Q.b = int b ; Q.c = int c ; Q.d = int d ; Q.e = int e ; Q.f = int f ; Q.g = int g ; "
            "Q.h = int h ; Q.i = int i ; p = int p ; z = int z"},
        Row{u"struct f { int (n) : 3; unsigned (m) : W, (j) : 1; int k; }; class G { G(n) : x(1) { } int (l) : 2; };",
            "G ; f ; G.G = G(n) ; G.l = int l : 2 ; f.j = unsigned j : 1 ; f.k = int k ; f.m = unsigned m : W ; f.n = "
            "int n : 3"},
        Row{u"struct v { int class, private; int virtual; char *template; unsigned friend : 3; int using[2]; };",
            "v ; v.class = int class ; v.friend = unsigned friend : 3 ; v.private = int private ; "
            "v.template = char *template ; v.using = int using[2] ; v.virtual = int virtual"}));

INSTANTIATE_TEST_SUITE_P(
    Structures, Declarations,
    testing::Values(Row{u"typedef struct { int x, y; } Point, *PPoint;",
                        "Point ; PPoint = typedef Point *PPoint ; Point.x = int x ; Point.y = int y"},
                    Row{u"typedef struct tag { unsigned flags : 3, : 0; char n[16]; struct { int q; } in; } Name;",
                        "Name ; Name.(Anonymous) ; Name.(Anonymous).q = int q ; Name.flags = unsigned flags : 3 ; "
                        "Name.in = struct {...} in ; Name.n = char n[16]"},
                    Row{u"struct s; struct s *f(struct s v); struct s v; typedef struct s s_t;",
                        "f = struct s *f(struct s v) ; s_t = typedef struct s s_t ; v = struct s v"},
                    Row{u"struct a { int x; } v, *w; union u { int i; float f; };",
                        "a ; u ; a.x = int x ; u.f = float f ; u.i = int i ; v = struct a v ; w = struct a *w"},
                    Row{u"enum e { A, B = 1 | 2, C = 'x' } v; enum { D }; typedef enum t { E, } T; enum fwd;",
                        "v = enum e v ; e = typedef enum { A, B = 1 | 2, C = 'x' } e ; "
                        "(Anonymous) = typedef enum { D } (Anonymous) ; T = typedef enum { E } T"},
                    Row{u"struct s f(void) { return x; } struct API(8) t { int a; };",
                        "t ; f = struct s f(void) ; t.a = int a"}));

INSTANTIATE_TEST_SUITE_P(
    CPlusPlus, Declarations,
    testing::Values(
        Row{u"class API Foo final : public Bar<int> { Foo(int a) : x(a), y{3} {} ~Foo(); explicit Foo(); };",
            "Foo ; Foo.Foo = Foo(int a) ; Foo.Foo = Foo(void) ; Foo.~Foo = ~Foo(void)"},
        Row{u"class F { bool operator==(const F &o) const = 0; operator bool() const; int operator()(int a);\n"
            u"F &operator+=(F &&); void *operator new[](size_t); F operator,(F a); };",
            "F ; F.operator bool = operator bool(void) ; F.operator new[] = void *operator new[](size_t) ; "
            "F.operator() = int operator()(int a) ; F.operator+= = F &operator+=(F &&) ; "
            "F.operator, = F operator,(F a) ; F.operator== = bool operator==(const F &o)"},
        Row{u"template <typename T, int N = (1 > 2)> std::vector<T> get(std::map<int, T> m = {}) noexcept;",
            "get = std::vector<T> get(std::map<int, T> m)"},
        Row{u"auto f(int *) -> A<int, sizeof(int) != 0>; template <int N, bool B = N >= 3, int M = N << 1> S<N << 1> "
            u"g(T... t);"
            u" template <class T> struct h<T, If<T::a == 3>> : B<(a > b)> { explicit MACRO h(); int b : sizeof(int); "
            u"};",
            "h ; f = A<int, sizeof(int) != 0> f(int *) ; g = S<N << 1> g(T... t) ; h.h = h(void) ; h.b = int b : "
            "sizeof(int)"},
        Row{u"template <class T> requires A<T>::x || (b > 1) && requires(T t) { t(); } auto f(T);"
            u" template <class T> class c { c() noexcept requires A<T> : a{1} { } int operator()[[x]](int) const; };",
            "c ; c.c = c(void) ; c.operator() = int operator()(int) ; f = auto f(T)"},
        Row{u"template <> struct hash<Foo> { int a; }; enum class E : char { A }; auto f() -> int;",
            "hash ; f = int f(void) ; hash.a = int a ; E = typedef enum { A } E"},
        Row{u"int f(const char *fmt...), g(int n ...); template <class... T> void h(T..., T *... t);",
            "f = int f(const char *fmt, ...) ; g = int g(int n, ...) ; h = void h(T..., T *... t)"},
        Row{u"int (C::*f)(int) const; struct C { void (C::*m)(int) const volatile; int (C::*n)() &; }; typedef int "
            u"F(int) const;",
            "C ; C.m = void (C::*m)(int) const volatile ; "
            "C.n = int (C::*n)(void) & ; F = typedef int F(int) const ; f = int (C::*f)(int) const"},
        Row{u"std::integral auto f(std::integral auto x, Same<int> auto &&y, const auto z); API auto g() -> int; "
            u"auto h(int a) -> void (*)(int);",
            "f = std::integral auto f(std::integral auto x, Same<int> auto &&y, const auto z) ; g = int g(void) ; "
            "h = void (*h(int a))(int)"},
        Row{u"[[nodiscard]] int f [[x]] (); namespace n { inline namespace v1 { int a; } } using T = int; namespace b "
            u"= n;",
            "n ; n.v1 ; f = int f(void) ; n.v1.a = int a"},
        Row{u"class A { public slots: void s(); Q_PROPERTY(int a READ b) friend class B; friend int g(A); Q_OBJECT };",
            "A ; A.s = void s(void) ; g = int g(A)"},
        Row{u"namespace n { class A { class B { friend int f(A); friend B g(B b) { } friend class C; friend int "
            u"C::h(); }; }; }",
            "n ; n.A ; n.A.B ; n.f = int f(A) ; n.g = B g(B b)"},
        Row{u"template <class T> concept C = requires(T a) { a + a; } && D<T, int>; template class V<int>; "
            u"extern template int f<int>(int); extern API template int g<int>(int); a(x)\ntemplate int h<int>(int);",
            "C = concept C"},
        Row{u"template <class T> class NODISCARD E; template <int N> struct OWNER ALIGNED(8) F; class API G; struct "
            u"API g;"
            u" API class [[nodiscard]] H; extern template class EXPORT I<float>; template class EXPORT J<int>; struct "
            u"API *h;",
            "g = struct API g ; h = struct API *h"},
        Row{u"struct A { template <class T, class = If<isEnum<T>{} && !isInt<T>{1}>> A(T e) : A(f(e)) {} };"
            u" template <class T> class B {}; template <int N = a < b> struct C { int c; };",
            "A ; B ; A.A = A(T e)"},
        Row{u"template <class T,\n#if A\nbool U = S<T>()>\n#else\nbool U = X<S<T, 1>>()>\n#endif\nstruct A { A(); };\n"
            u"template <class T\n#if A\n, int U = 1\n#else\n, int U = 2>\n#endif\n> struct B { B(); };\n#if A\nint c;\n"
            u"#else\nint d;\n#endif",
            "A ; B ; A.A = A(void) ; B.B = B(void) ; c = int c ; d = int d"},
        Row{u"extern \"C\" { int a; } extern \"C\" int b; int C::*member; const int M::x = 3;",
            "a = int a ; b = int b ; member = int C::* member"}));

INSTANTIATE_TEST_SUITE_P(
    Recovery, Declarations,
    testing::Values(
        Row{u"+ - ; ) } ] int a; @ int b; f(; int c; namespace d = int e;", "a = int a ; b = int b ; c = int c"},
        Row{u"#if A\nint f(int a) {\n#else\nint g(void) {\n#endif\n} int h;",
            "f = int f(int a) ; g = int g(void) ; h = int h"},
        Row{u"#ifdef A\nstruct a {\n#else\nstruct b {\n#endif\nint x; };\nint y;", "a ; b ; b.x = int x ; y = int y"},
        Row{u"#if A\nclass A : B {\n#elif B\nclass C {\n#else\nclass D {\n#endif\nA(); C(int); D(); e();\n};\nclass F "
            u"{ A(); };",
            "A ; C ; D ; F ; D.A = A(void) ; D.C = C(int) ; D.D = D(void)"},
        Row{u"#if A\nclass API A final : public B\n#else\ntemplate <> struct API C<D>\n#endif\n{\nA(int); explicit "
            u"C();\nF();\n};\n#if "
            u"A\nstruct a x\n#else\nstruct b x\n#endif\n;",
            "C ; C.A = A(int) ; C.C = C(void) ; x = struct a x ; x = struct b x"},
        Row{u"flags(As, A)\nAs *a;\nFLAGS(b)\nint b; int c(D) D e; int f;",
            "c = int c(D) ; a = As *a ; b = int b ; f = int f"},
        Row{u"int a = b(1; int c; int d = e[2; class F { F() : g(1; int h; }; using i = j(k; int l;",
            "F ; F.F = F(void) ; F.h = int h ; a = int a ; c = int c ; d = int d ; l = int l"},
        Row{u"struct a { }\nint b; enum c { D }\nint e; struct { int f; }int g; typedef enum { H } bool; typedef enum "
            u"{ I } wchar_t, *j;",
            "(Anonymous) ; a ; (Anonymous).f = int f ; b = int b ; e = int e ; g = int g ; j = typedef wchar_t *j ; "
            "c = typedef enum { D } c ; bool = typedef enum { H } bool ; wchar_t = typedef enum { I } wchar_t"},
        Row{u"#ifdef A\nint f(void) {\n#endif\nint g(void);\nint h;", "f = int f(void) ; g = int g(void) ; h = int h"},
        Row{u"struct a {\n int x;\n\ntypedef int y;\nint z;", "a ; a.x = int x ; y = typedef int y ; z = int z"},
        Row{u"int f(int a\n#if X\n, int b\n#else\n, long c\n#endif\n); int d;", "f = int f(int a, int b) ; d = int d"},
        Row{u"enum e { A = 1\n#if X\n, B };\n#else\n};\n#endif\nint d;", "d = int d ; e = typedef enum { A = 1, B } e"},
        Row{u"FP_EXPORT(2, break a, (int x))\nFP_EXPORT(3, int, A::~, (int)) A::~(; int b; A::~", "b = int b"},
        Row{u"int \"unclosed\nint a; 'b\nint c; /* open", "a = int a ; c = int c"}));

TEST(Declarations, TakeTheirOwnComments)
{
    const std::pair<const char16_t *, const char *> rows[] = {
        {u"/*c*/\nQ_GADGET\nint f();", "f=c "},
        {u"/*old*/\nA(x)\nB\n/*new*/\nint f();", "f=new "},
        {u"/*c*/ API /* exported */\nint f();", "f=c "},
        {u"API /*c*/ int f(); A(/*inner*/ x)\nint g();", "f=c "},
        {u"B\nA(x)\n/*c*/\nnamespace n { }", "n=c "},
        {u"class C {\nA(x)\n/*c*/\npublic:\nint f(); };", "C.f=c "},
        {u"/*c*/\nEXPORT(1, int, f, (void))\n/*d*/\nEXPORT(2, int, g, (void));", "f=c g=d "},
        {u"/*c*/ using A = B;\nint f();", ""},
        {u"/*c*/ struct s;\nint f();", ""},
        {u"/*c*/ template class V<int>;\nint f();", ""},
        {u"/*c*/ namespace a = b;\nint f();", ""},
        {u"class C { /*c*/ friend class D;\nint f(); /*g*/ friend int g(); };", "g=g "},
        {u"/*c*/ template <class T> concept K = A<T>;\nint f();", "K=c "},
        {u"/*c*/ A(x);\nint f();", "f=c "},
        {u"/*c*/\ntemplate <class T>\nMACRO\nstatic void f(T);", "f=c "},
        {u"A(x)\nB\n/*c*/\ntemplate <class T>\nMACRO\ntypename T::X f(T);", "f=c "},
        {u"/*c*/\n#if A\nclass X : public Y\n#else\nclass X\n#endif\n{ };", "X=c "},
        {u"/*c*/ API class [[nodiscard]] X;\nint f();\n/*d*/ template <class T> class API Y;\nint g();", ""},
    };
    for (const auto &[header, documented] : rows) {
        SourceBrowserModel model;
        HeaderParser(model).parseText(QString::fromUtf16(header));
        QString text;
        for (const SourceBrowserObject *object :
             model.chosen([](const auto &any) { return !any.documentation().isEmpty(); }))
            text += object->qualifiedName() + u'=' + object->documentation() + u' ';
        EXPECT_EQ(text.toStdString(), documented) << QString::fromUtf16(header).toStdString();
    }
}

TEST(Declarations, DeepAndLongInputEnds)
{
    const qsizetype count = 20000;
    const QStringList texts = {
        u"namespace a { "_s.repeated(count),
        u"struct a { "_s.repeated(count),
        u"("_s.repeated(count),
        u"int f"_s + u"("_s.repeated(count),
        u"a<"_s.repeated(count),
        u"int "_s + u"(*"_s.repeated(count),
        u"int "_s + u"("_s.repeated(count) + u"a"_s + u")"_s.repeated(count),
        u"#if x\n"_s.repeated(count),
        u"typedef enum { "_s.repeated(count),
        u"["_s.repeated(count),
        u"int a = {"_s.repeated(count),
        u"A(x) "_s.repeated(count),
        u"A(x)\n"_s.repeated(count),
        u"struct a {\n b;\ntypedef c;\n"_s.repeated(count),
        u"int f("_s + u"int (*a)("_s.repeated(count),
    };
    for (const QString &text : texts) {
        SourceBrowserModel model;
        HeaderParser(model).parseText(text + u"\n;int end;"_s);
        EXPECT_LE(model.containers().size(), 1000U) << text.left(20).toStdString();
    }
}

} // namespace
