#include "site/search/search_index.h"
#include "site/search/terms.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tavidoc {
namespace {

struct TermsRow
{
    const char *name;
    TermField field;
    const char *text;
    const char *terms; ///< each with its weight
};

void PrintTo(const TermsRow &row, std::ostream *stream)
{
    *stream << row.name;
}

std::string takenTerms(TermCollector &collector)
{
    std::string text;
    for (const RecordTerm &term : collector.takeTerms())
        text += (text.empty() ? "" : " ") + term.text + '/' + std::to_string(term.weight);
    return text;
}

class Terms : public testing::TestWithParam<TermsRow>
{
};

TEST_P(Terms, HaveTheWeightOfTheirPlace)
{
    TermCollector collector;
    collector.add(GetParam().field, GetParam().text);
    EXPECT_EQ(takenTerms(collector), GetParam().terms);
}

INSTANTIATE_TEST_SUITE_P(
    Search, Terms,
    testing::Values(
        TermsRow{"a name is there whole, with its owners, in parts and from each part on", TermField::Name,
                 "a::Ring::setFillColor",
                 "a/10 a::ring::setfillcolor/14 color/12 fill/12 fillcolor/11 ring/10 ring::setfillcolor/14 set/12 "
                 "setfillcolor/15"},
        TermsRow{"underscores and capitals divide names", TermField::Name, "parse_HTMLPage2",
                 "html/12 htmlpage2/11 page2/12 parse/12 parse_htmlpage2/15"},
        TermsRow{"scopes inside angle brackets are no owners", TermField::Name, "Map<a::b>::at",
                 "a/10 a::b/10 at/15 b/10 b>::at/14 map/10 map<a::b>::at/14"},
        TermsRow{"the symbol of an operator is there by itself", TermField::Name, "A::operator<<",
                 "<</10 a/10 a::operator<</14 operator/12 operator<</15"},
        TermsRow{"a title is there whole", TermField::Title, "The  file\tformats",
                 "file/10 formats/10 the/10 the file formats/13"},
        TermsRow{"accents are there with and without", TermField::Heading, "Größe naïve",
                 "grosse/8 grösse/8 naive/8 naïve/8"},
        TermsRow{"words of a body weigh by their number", TermField::Body, "a be be cd cd cd cd ef", "be/2 cd/3 ef/1"},
        TermsRow{"long numbers and words of a body are data", TermField::Body,
                 "1234 12345 x123456789012345678901234567890123456789012", "1234/1"},
        TermsRow{"ideographs are there in pairs", TermField::Brief, "\u6587\u6863\u751f \u5b57",
                 "\u5b57/6 \u6587\u6863/6 \u6863\u751f/6"},
        TermsRow{"bytes that are not UTF-8 separate", TermField::Brief,
                 "ab\xff"
                 "cd\xed\xa0\x80"
                 "ef\xc3",
                 "ab/6 cd/6 ef/6"},
        TermsRow{"an empty text has none", TermField::Name, "", ""}));

TEST(Search, TheBestPlaceOfATermCounts)
{
    TermCollector collector;
    collector.add(TermField::Body, "ring ring");
    collector.add(TermField::Brief, "A ring");
    EXPECT_EQ(takenTerms(collector), "a/6 ring/6");
    EXPECT_EQ(takenTerms(collector), "");
}

TEST(Search, LongTextsAreCut)
{
    TermCollector collector;
    collector.add(TermField::Title, std::string(100'000, 'a') + "::" + std::string(100'000, ':'));
    for (const RecordTerm &term : collector.takeTerms())
        EXPECT_EQ(term.text, std::string(64, 'a'));
}

/// The script divides queries as the index divides texts: both read the same table.
TEST(Search, TermsAreThoseOfTheScript)
{
    QFile file(QStringLiteral(TAVIDOC_SOURCE_DIR "/tests/site/search_terms.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonArray rows = QJsonDocument::fromJson(file.readAll()).array();
    ASSERT_FALSE(rows.isEmpty());
    for (const QJsonValue &row : rows) {
        TermCollector collector;
        collector.add(TermField::Heading, row[0].toString().toStdString());
        const std::vector<RecordTerm> terms = collector.takeTerms();
        for (const QJsonValue &expected : row[1].toArray())
            EXPECT_TRUE(std::ranges::binary_search(terms, expected.toString().toStdString(), {}, &RecordTerm::text))
                << row[0].toString().toStdString() << ": " << expected.toString().toStdString();
    }
}

using Files = std::map<std::string, std::string>;

struct Added
{
    std::vector<RecordTerm> terms;
    std::string excerpt;
    std::string name;
};

Files filesOf(const std::vector<Added> &pages)
{
    Files files;
    SearchIndex index([&files](const std::string &name, std::string_view bytes) {
        EXPECT_TRUE(files.emplace(name, bytes).second) << name;
    });
    for (const Added &page : pages) {
        const std::uint32_t number = index.addText(page.terms, page.excerpt);
        if (!page.name.empty())
            index.place(number, {.name = page.name, .kind = "page", .address = "a/x.htm", .where = "W"});
    }
    index.finish();
    return files;
}

TEST(SearchIndex, HoldsNamesTermsWordsAndExcerpts)
{
    const Files files = filesOf({{{{"ring", 15}, {"rings", 1}}, "Rings", "b::Ring"},
                                 {{{"gone", 15}}, "Gone", ""},
                                 {{{"ring", 2}}, "About", "About"}});
    EXPECT_EQ(files.at("n0.js"), "tavidocSearch.add(\"n0\",[\"W\ta/\t\",\"About\tAAC\tx\tb::Ring\tAAA\tx\"]);\n");
    EXPECT_EQ(files.at("t0.js"), "tavidocSearch.add(\"t0\",\"Aring\tfBSA\tEs\tRB\");\n");
    EXPECT_EQ(files.at("w0.js"), "tavidocSearch.add(\"w0\",\"Aring\");\n");
    EXPECT_EQ(files.at("b0.js"), "tavidocSearch.add(\"b0\",\"Agnir\");\n");
    EXPECT_EQ(files.at("x0.js"), "tavidocSearch.add(\"x0\",[\"Rings\",\n\"Gone\",\n\"About\",\n]);\n");
    EXPECT_TRUE(files.at("root.js").starts_with("tavidocSearch.add(\"root\",{pages:2,block:50000,version:"));
}

TEST(SearchIndex, TakesAnyBytesAndWritesAscii)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    const Files files = filesOf({{{{bytes, 15},
                                   {"", 1},
                                   {"\xf0\x9f\x98\x80\xee\x80\x80", 99},
                                   {std::string(300, 'a'), 1},
                                   {"\"</script>\\\xe2\x80\xa8", 3}},
                                  "</script>\"\\\xe2\x80\xa8\xed\xa0\x80" + bytes,
                                  "<b>\t\"" + bytes}});
    for (const auto &[name, text] : files)
        for (const char c : text)
            EXPECT_TRUE((c >= ' ' && c < 0x7f && c != '<') || c == '\t' || c == '\n') << name << ' ' << int{c};
    EXPECT_NE(files.at("t0.js").find("\"A\\\"\\u003c/script>\\\\\\u2028\tTA\t"), std::string::npos)
        << files.at("t0.js");
    EXPECT_NE(files.at("t0.js").find("A\\ud83d\\ude00\\ue000\tfA"), std::string::npos) << files.at("t0.js");
}

TEST(SearchIndex, KeepsTheThousandPagesWhereATermWeighsMost)
{
    std::vector<Added> pages;
    for (int i = 0; i < 3000; ++i)
        pages.push_back({{{"word", i % 3 == 0 ? 6U : 1U}}, "", "p" + std::to_string(10'000 + i)});
    const std::string shard = filesOf(pages).at("t0.js");
    // 1,000 pages at weight 6: 16006 is "m0P"; then the first page and differences of three.
    EXPECT_EQ(shard, "tavidocSearch.add(\"t0\",\"Aword\tm0PA" + std::string(999, 'D') + "\");\n");
}

TEST(SearchIndex, DividesSortedTermsIntoSmallFiles)
{
    std::vector<Added> pages;
    for (int i = 0; i < 20'000; ++i)
        pages.push_back({{{"term\"" + std::to_string(i * 7919 % 20'000), 15}}, std::string(3000, 'x'), "n"});
    const Files files = filesOf(pages);
    EXPECT_EQ(files, filesOf(pages));
    for (const auto &[name, text] : files) {
        const std::size_t limit = name.starts_with('x') ? 70'000 : name.starts_with('n') ? 1'000'000 : 25'000;
        EXPECT_LT(text.size(), limit) << name;
    }
    EXPECT_TRUE(files.contains("t3.js"));
    EXPECT_TRUE(files.contains("x624.js"));
}

TEST(SearchIndex, OfNoPagesIsComplete)
{
    const Files files = filesOf({});
    EXPECT_EQ(files.size(), 1U);
    EXPECT_TRUE(files.contains("root.js"));
}

} // namespace
} // namespace tavidoc
