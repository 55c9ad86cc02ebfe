#include "sourcebrowser/declaration_text.h"

#include <gtest/gtest.h>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

SourceBrowserMethod &read(SourceBrowserMethod &method)
{
    method.setType({u"ssize_t"_s, -1});
    std::vector<SourceBrowserArgument> arguments;
    arguments.push_back({{u"int"_s, -1}, u"__fd"_s, {}});
    arguments.push_back({{u"void *"_s, -1}, u"_buf"_s, u"0"_s});
    arguments.push_back({{u"int (*)( void )"_s, 6}, u"__f"_s, {}});
    method.setArguments(std::move(arguments));
    return method;
}

TEST(DeclarationText, WritesPrototypesByTheirFlags)
{
    const struct
    {
        unsigned flags;
        QString text;
    } rows[] = {
        {0, u"read (int __fd, void *_buf, int (*__f)(void))"_s},
        {1, u"ssize_t read (int __fd, void *_buf, int (*__f)(void))"_s},
        {1 | 2 | 16, u"ssize_t read(int fd, void *_buf, int (*f)(void))"_s},
        {2 | 4, u"read(int __fd,\n     void *_buf,\n     int (*__f)(void))"_s},
        // Deliberate: the line of the return type counts for the column too.
        {1 | 2 | 8 | 4 | 16, u"ssize_t\nread(int fd,\n             void *_buf,\n             int (*f)(void))"_s},
    };
    SourceBrowserMethod method(u"read"_s);
    for (const auto &row : rows)
        EXPECT_EQ(read(method).description(row.flags), row.text) << row.flags;
}

TEST(DeclarationText, KeepsOneVoidAndNoBlankAfterAsterisks)
{
    SourceBrowserMethod method(u"strdup"_s, {u"char *"_s, -1});
    EXPECT_EQ(method.description(1 | 2), u"char *strdup(void)"_s);
    method.setArguments({{{u"void"_s, -1}, {}, {}}});
    EXPECT_EQ(method.description(1), u"char *strdup (void)"_s);
    method.setArguments({{{u"int &"_s, -1}, u"r"_s, {}}, {{u"..."_s, -1}, {}, {}}});
    EXPECT_EQ(method.description(2), u"strdup(int &r, ...)"_s);
    SourceBrowserMethod callOperator(u"operator()"_s, {u"int"_s, -1});
    EXPECT_EQ(callOperator.description(1 | 2), u"int operator()(void)"_s);
    callOperator.setArguments({{{u"int"_s, -1}, u"a"_s, {}}, {{u"int"_s, -1}, u"b"_s, {}}});
    EXPECT_EQ(callOperator.description(1 | 2 | 4), u"int operator()(int a,\n               int b)"_s);
}

TEST(DeclarationText, WritesVariablesAndTypedefs)
{
    const auto text = [](SourceBrowserObject::Phylum phylum, const QString &name, const QString &type, int insertion) {
        return SourceBrowserVariable(phylum, name, {type, insertion}).description();
    };
    EXPECT_EQ(text(SourceBrowserObject::Typedef, u"handler_t"_s, u"int ( * )()"_s, 7),
              u"typedef int (*handler_t)(void)"_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u"p"_s, u"char *"_s, -1), u"char *p"_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u""_s, u"int"_s, -1), u"int "_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u"a"_s, u"int [3]"_s, 4), u"int a[3]"_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u"a"_s, u"[3] "_s, 0), u"a[3] "_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u"a"_s, u"int"_s, 3), u"int a"_s);
    EXPECT_EQ(text(SourceBrowserObject::Variable, u"a"_s, u"int"_s, 9), u"int a"_s)
        << "an index outside the text is ignored";
}

TEST(DeclarationText, WritesEnumerationsAndStructures)
{
    SourceBrowserEnum colours(SourceBrowserObject::Unknown, u"Colour"_s);
    colours.append(u"Red"_s);
    EXPECT_EQ(colours.description(), u"typedef enum {\n  Red\n} Colour"_s);
    colours.append(u"Blue = 4"_s);
    EXPECT_EQ(colours.description(), u"typedef enum {\n  Red,\n  Blue = 4\n} Colour"_s);

    SourceBrowserContainer structure(SourceBrowserObject::Structure, u"S"_s);
    EXPECT_EQ(structure.description(), u"typedef struct {\n} S"_s);
    structure.add(std::make_unique<SourceBrowserVariable>(SourceBrowserObject::Variable, u"__p"_s,
                                                          SourceBrowserType{u"const char *"_s, -1}));
    structure.add(std::make_unique<SourceBrowserMethod>(u"method"_s));
    EXPECT_EQ(structure.description(), u"typedef struct {\n  const char *__p;\n} S"_s);
}

} // namespace
