// A million levels of every construct that nests: no stack may grow with the depth, neither on entry nor on exit.

#include "tests/support/script_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int s_levels = 100'000;       // the sanitizer needs more time
constexpr const char *s_stack = "8192"; // and more stack
#else
constexpr int s_levels = 1'000'000;
constexpr const char *s_stack = "256"; // kilobytes; the usual limit is 8192
#endif

struct Nesting
{
    const char *name;
    const char *suffix;
    const char *begin; ///< of the file
    const char *opening;
    const char *closing;
    const char *pages;
};

void PrintTo(const Nesting &nesting, std::ostream *out)
{
    *out << nesting.name;
}

class Depth : public testing::TestWithParam<Nesting>
{
protected:
    void run(const QByteArray &source)
    {
        const Nesting &nesting = GetParam();
        const QString name = "doc"_L1 + QLatin1StringView(nesting.suffix);
        const QTemporaryDir directory;
        writeText(directory, name, source);
        const QString script = u"ulimit -s %1; $tavidoc -o out %2 > log"_s.arg(QLatin1StringView(s_stack), name);
        const ScriptResult result = runScript(directory, script);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.pages, nesting.pages);
    }
};

} // namespace

TEST_P(Depth, ClosedAndOpen)
{
    const Nesting &nesting = GetParam();
    const QByteArray open = nesting.begin + QByteArray(nesting.opening).repeated(s_levels);
    run(open);
    if (*nesting.closing != '\0')
        run(open + "x" + QByteArray(nesting.closing).repeated(s_levels));
}

#define PAGE "\\split{p}\nx\n"
#define COMMENT "/*!\ntext\n*/\n"

INSTANTIATE_TEST_SUITE_P(
    Markup, Depth,
    testing::Values(Nesting{"braces", ".dg", PAGE, "{", "}", "p.htm "},
                    Nesting{"styles", ".dg", PAGE, "\\b{", "}", "p.htm "},
                    Nesting{"labels", ".dg", PAGE, "\\item{", "}", "p.htm "},
                    Nesting{"links", ".dg", PAGE, "\\xref{", "}", "p.htm "},
                    Nesting{"contents groups", ".dg", PAGE, "\\begin{a}\n", "\\end\n", "p.htm "},
                    Nesting{"contents levels", ".dg", PAGE, "\\contents down\n", "\\contents up\n", "p.htm "},
                    Nesting{"tables", ".dg", PAGE, "\\table{*}\n| a\n", "\\endtable\n", "p.htm "},
                    Nesting{"conditionals that are true", ".dg", PAGE, "@arm\n", "\n@end\n", "p.htm "},
                    Nesting{"conditionals that are false", ".dg", PAGE, "@avr\n", "\n@end\n", "p.htm "},
                    Nesting{"listings", ".dg", PAGE, "\\code\n", "\n\\endcode\n", "p.htm "},
                    Nesting{"JavaScript templates", ".dg", PAGE "\\code{js}\n", "`${{(\n", ")}}`\n", "p.htm "},
                    Nesting{"XML elements", ".dg", PAGE "\\code{xml}\n", "<a>\n", "</a>\n", "p.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    Headers, Depth,
    testing::Values(
        Nesting{"braces", ".h", COMMENT "int a;", "{", "}", "a.htm doc_h.htm "},
        Nesting{"namespaces", ".h", COMMENT "int a;", "namespace n {\n", "}\n", "a.htm doc_h.htm "},
        Nesting{"classes", ".h", COMMENT "int a;", "class C {\n", "};\n", "a.htm doc_h.htm "},
        Nesting{"structures with names", ".h", COMMENT "int a;", "typedef struct {\n", "} T;\n", "a.htm doc_h.htm "},
        Nesting{"enumerations", ".h", COMMENT "int a;", "enum { A = ", "}\n", "a.htm doc_h.htm "},
        Nesting{"language blocks", ".h", COMMENT "int a;", "extern \"C\" {\n", "}\n", "a.htm doc_h.htm "},
        Nesting{"parentheses", ".h", COMMENT "int a;int f", "(", ")", "a.htm doc_h.htm "},
        Nesting{"functions in arguments", ".h", COMMENT "int a;int ", "f(int (*", ")(int)", "a.htm doc_h.htm "},
        Nesting{"brackets", ".h", COMMENT "int a;int f", "[", "]", "a.htm doc_h.htm "},
        Nesting{"pointers", ".h", COMMENT "int a;int ", "(*", ")(int)", "a.htm doc_h.htm "},
        Nesting{"template parameters", ".h", COMMENT "int a;", "template<", ">", "a.htm doc_h.htm "},
        Nesting{"template arguments", ".h", COMMENT "int a;", "A<", ">", "a.htm doc_h.htm "},
        Nesting{"initialisers", ".h", COMMENT "int a;int b = ", "{", "}", "a.htm doc_h.htm "},
        Nesting{"conditionals", ".h", COMMENT "int a;\n", "#if 1\n", "\n#endif\n", "a.htm doc_h.htm "},
        Nesting{"scopes", ".h", COMMENT "int a;", "A::", "", "a.htm doc_h.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });
