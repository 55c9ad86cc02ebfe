// Tests links to names of other projects.

#include "base/hexception.h"
#include "site/exchange/inventory_reader.h"
#include "tests/site/site_run.h"

#include <gtest/gtest.h>

#include <random>

#include <zlib.h>

using namespace tavidoc;

namespace {

const QByteArray s_head =
    "# Sphinx inventory version 2\n# Project: Tea\n# Version: 1\n# The rest is compressed using zlib.\n";
const SiteInventory s_inventory = {"tea.inv", "https://tea.example/"};

QByteArray inventoryOf(const QByteArray &lines)
{
    return s_head + qCompress(lines).sliced(4);
}

/// What \a target leads to: "ADDRESS [TITLE]".
std::string found(const ForeignNames &names, const std::string &target)
{
    const ForeignName *const name = names.find(target);
    return name == nullptr ? "" : name->title.empty() ? name->address : name->address + " [" + name->title + "]";
}

std::string errorOf(QByteArrayView bytes)
{
    try {
        ForeignNames names;
        addInventory(names, 0, s_inventory, bytes);
    } catch (const HException &exception) {
        return exception.message().toStdString();
    }
    return "";
}

struct NameRow
{
    const char *name;
    const char *lines;
    const char *target;
    const char *found;
};

void PrintTo(const NameRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class InventoryNames : public testing::TestWithParam<NameRow>
{
};

} // namespace

TEST_P(InventoryNames, AreFound)
{
    ForeignNames names;
    addInventory(names, 0, s_inventory, inventoryOf(GetParam().lines));
    EXPECT_EQ(found(names, GetParam().target), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, InventoryNames,
    testing::Values(
        NameRow{"the name in place of a dollar sign", "brew py:function 1 api.html#$ -\n", "brew",
                "https://tea.example/api.html#brew"},
        NameRow{"a dollar sign elsewhere", "brew py:function 1 $api.html -\n", "brew", "https://tea.example/$api.html"},
        NameRow{"a function with parentheses", "tea::brew cpp:function 1 api.html#_CPPv4N3tea4brewEv -\n",
                "tea::brew()", "https://tea.example/api.html#_CPPv4N3tea4brewEv"},
        NameRow{"a label with spaces and a title", "green tea std:label -1 guide.html#$ All about: green 1 tea\n",
                "green tea", "https://tea.example/guide.html#green%20tea [All about: green 1 tea]"},
        NameRow{"a document without a title", "guide std:doc -1 guide.html -\n", "guide",
                "https://tea.example/guide.html [guide]"},
        NameRow{"C++ before C, whatever their order", "pot c:struct 1 c.html#$ -\npot cpp:class 1 cpp.html#$ -\n",
                "pot", "https://tea.example/cpp.html#pot"},
        NameRow{"the first of equals", "pot c:struct 1 a.html -\npot c:function 1 b.html -\n", "pot",
                "https://tea.example/a.html"},
        NameRow{"another domain", "brew js:function 1 api.html#$ -\n", "brew", ""},
        NameRow{"another type of the standard domain", "brew std:term 1 api.html#$ -\n", "brew", ""},
        NameRow{"lines that are none, and the last without an end",
                "\nbrew\nbrew c:function x a -\n 1 c:function 1 a -\nbrew "
                "c:function 1 a.html -",
                "brew", "https://tea.example/a.html"},
        NameRow{"line ends of Windows", "brew c:function 1 a.html -\r\npot std:doc 1 b.html The pot\r\n", "pot",
                "https://tea.example/b.html [The pot]"},
        NameRow{"what would end an address", "brew c:function 1 a.html#\"><b> -\n", "brew",
                "https://tea.example/a.html#%22%3E%3Cb%3E"},
        NameRow{"an address that begins at the top", "brew c:function 1 //a.html -\n", "brew",
                "https://tea.example/a.html"}));

TEST(Inventory, IsRefusedUnlessItIsWhole)
{
    const QByteArray whole = inventoryOf("brew c:function 1 a.html -\n");
    EXPECT_EQ(errorOf(whole), "");
    EXPECT_EQ(errorOf(""), "tea.inv: not an inventory of Sphinx, version 2");
    EXPECT_EQ(errorOf(QByteArray(whole).replace("version 2", "version 1")),
              "tea.inv: not an inventory of Sphinx, version 2");
    EXPECT_EQ(errorOf(s_head), "tea.inv: damaged");
    EXPECT_EQ(errorOf(inventoryOf(QByteArray((1 << 20) + 1, 'a'))), "tea.inv: too large");
    for (qsizetype size = s_head.size(); size < whole.size(); ++size)
        EXPECT_EQ(errorOf(whole.first(size)), "tea.inv: damaged");
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) { // must not crash
        QByteArray bytes = whole;
        bytes[std::uniform_int_distribution<qsizetype>(0, bytes.size() - 1)(random)] ^= static_cast<char>(random());
        errorOf(bytes);
    }
}

TEST(Inventory, MayNotGrowWithoutBound)
{
    QByteArray lines = (QByteArray(1023, 'a') + '\n').repeated(1024);
    QByteArray bytes(1 << 23, 0);
    z_stream stream = {};
    ASSERT_EQ(::deflateInit(&stream, 1), Z_OK);
    stream.next_out = reinterpret_cast<Bytef *>(bytes.data());
    stream.avail_out = static_cast<uInt>(bytes.size());
    for (int megabyte = 0; megabyte < 260; ++megabyte) {
        stream.next_in = reinterpret_cast<Bytef *>(lines.data());
        stream.avail_in = static_cast<uInt>(lines.size());
        ASSERT_EQ(::deflate(&stream, Z_NO_FLUSH), Z_OK);
        ASSERT_NE(stream.avail_out, 0U);
    }
    const qsizetype size = bytes.size() - static_cast<qsizetype>(stream.avail_out);
    ::deflateEnd(&stream);
    EXPECT_EQ(errorOf(s_head + bytes.first(size)), "tea.inv: too large");
}

TEST(Inventory, GivesNamesThatTheSetLacks)
{
    SiteDirectory directory;
    directory.run("mkdir tea cup");
    directory.write("tea/tea.h", "/*!\n * \\this\n * Brews.\n */\nint brew(void);\n/*!\n * \\this\n * Boils.\n */\nint "
                                 "boil(void);\n");
    directory.write("cup/cup.h", "/*!\n * \\this\n * Brews.\n */\nint brew(void);\n/*!\n * \\this\n * Sips.\n */\nint "
                                 "sip(void);\n");
    directory.write("site.toml", "[[input]]\nfiles = [\"manual.dg\", \"include/*.h\"]\n"
                                 "[[inventory]]\nfile = \"tea.inv\"\nurl = \"https://tea.example\"\n"
                                 "[[inventory]]\nfile = \"cup.inv\"\nurl = \"https://cup.example/x\"\n");
    directory.write("manual.dg",
                    "\\split{index}\n\\title{K}\n\\xref{boil} \\xref{brew()} \\xref{sip}{Sip it} \\xref{gulp}\n");
    ASSERT_EQ(
        directory.run("$site export inventory tea/tea.h -o tea.inv && $site export inventory cup/cup.h -o cup.inv"), 0);
    EXPECT_EQ(directory.run("$site build -o out"), 1);
    EXPECT_NE(directory.error.find("manual.dg:3: error: no page, title or declaration is named \"gulp\""),
              std::string::npos)
        << directory.error;
    const std::string links = "grep -o '<p>.*' out/index.htm";
    const std::string expected = "<p><a href=\"boil.htm\">boil</a> <a href=\"https://tea.example/brew.htm\">brew()</a> "
                                 "<a href=\"https://cup.example/x/sip.htm\">Sip it</a> ";
    EXPECT_EQ(directory.outputOf(links).substr(0, expected.size()), expected);
    EXPECT_EQ(
        directory.outputOf("$site compile manual.dg -o m.tdr; $site compile include/kettle.h -o k.tdr; $site link "
                           "site.toml m.tdr k.tdr -o link --depfile d; rm *.inv; $site render m.tdr --link link -o "
                           "steps; grep -o 'https://[a-z.]*' steps/index.htm; grep -c 'tea.inv' d"),
        "https://tea.example\nhttps://cup.example\n2\n");
}

TEST(Inventory, ThatChangedMakesTheLinksAgain)
{
    SiteDirectory directory;
    directory.write("site.toml", "[[input]]\nfiles = [\"manual.dg\", \"include/*.h\"]\n"
                                 "[[inventory]]\nfile = \"tea.inv\"\nurl = \"https://tea.example\"\n");
    directory.write("manual.dg", "\\split{index}\n\\title{K}\n\\xref{brew}\n");
    directory.write("tea.inv", inventoryOf("brew c:function 1 one.html -\n"));
    ASSERT_EQ(directory.run("$site build -o out"), 0) << directory.error;
    directory.write("tea.inv", inventoryOf("brew c:function 1 two.html -\n"));
    EXPECT_EQ(directory.run("$site build -o out"), 0);
    EXPECT_EQ(directory.error, "3 inputs (0 compiled), 19 files (1 written, 0 removed): no findings\n");
    EXPECT_EQ(directory.outputOf("grep -o 'https://[^\"]*' out/index.htm"), "https://tea.example/two.html\n");
    directory.write("tea.inv", "nonsense");
    EXPECT_EQ(directory.run("$site build -o out"), 1);
    EXPECT_EQ(directory.error, "error: tea.inv: not an inventory of Sphinx, version 2\n");
    EXPECT_EQ(directory.outputOf("grep -o 'https://[^\"]*' out/index.htm"), "https://tea.example/two.html\n");
}
