#include "codeedit/code_style.h"
#include "codeedit/ellipses.h"
#include "codeedit/languages.h"
#include "codeedit/lexer_factory.h"
#include "codeedit/listing.h"
#include "codeedit/spans.h"
#include "codeedit/styled_line.h"
#include "codeedit/word_lists.h"
#include "tests/support/styled_text.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <random>

using namespace tavidoc;

namespace {

using namespace std::string_literals;

std::string listed(std::string_view text, std::string_view language)
{
    std::string html;
    appendListing(html, text, language);
    return html;
}

/// The text of a listing: without its spans, and with its escapes undone.
std::string textOf(std::string_view html)
{
    static constexpr std::pair<std::string_view, std::string_view> escapes[] = {
        {"&amp;", "&"}, {"&gt;", ">"}, {"&lt;", "<"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&middot;", "\xC2\xB7"},
    };
    std::string text;
    while (!html.empty()) {
        const auto escape = std::ranges::find_if(escapes, [&](const auto &row) { return html.starts_with(row.first); });
        if (escape != std::end(escapes)) {
            text += escape->second;
            html.remove_prefix(escape->first.size());
        } else if (html.front() == '<') {
            html.remove_prefix(html.find('>') + 1);
        } else {
            text += html.front();
            html.remove_prefix(1);
        }
    }
    return text;
}

std::size_t count(std::string_view text, std::string_view part)
{
    std::size_t result = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size()))
        ++result;
    return result;
}

/// All names of languages.
const std::vector<std::string> &languages()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> result;
        for (const Language &language : Languages::all())
            result.insert(result.end(), language.names.begin(), language.names.end());
        return result;
    }();
    return names;
}

} // namespace

TEST(CodeStyles, TwelveIsAGapAndNothingFollowsSixteen)
{
    std::string names;
    for (unsigned style = 0; style < 40; ++style)
        names += std::string(styleName(style)) + ' ';
    EXPECT_EQ(names,
              "text literal comment keyword disassembly markup control operator register function fixme attention "
              " doc-keyword doc-argument doc-code attribute " +
                  std::string(23, ' '));
}

TEST(WordLists, AreComplete)
{
    EXPECT_EQ(WordLists::c.rows().size(), 139U);
    EXPECT_EQ(WordLists::javaScript.rows().size(), 56U);
    EXPECT_EQ(WordLists::basic.rows().size(), 319U);
    EXPECT_EQ(WordLists::registers.rows().size(), 38U);
}

struct ListingRow
{
    std::string sentence;
    std::string language;
    std::string text;
    std::string html;
};

class ListingSpans : public testing::TestWithParam<ListingRow>
{
};

TEST_P(ListingSpans, AreWritten)
{
    EXPECT_EQ(listed(GetParam().text, GetParam().language), GetParam().html) << GetParam().sentence;
}

INSTANTIATE_TEST_SUITE_P(
    Listings, ListingSpans,
    testing::Values(
        ListingRow{"an unknown language is escaped only", "plain", "<b> \\... 'x'\n",
                   "&lt;b&gt; \\... &apos;x&apos;\n"},
        ListingRow{"every line ends, the last empty one too", "c", "int\n\n",
                   "<span class=\"zkt-code-keyword\">int</span>\n\n\n"},
        ListingRow{"no text is one empty line", "c", "", "\n"},
        ListingRow{"a style without a name opens a bare span", "c", ";", "<span>;</span>\n"},
        ListingRow{"a span never crosses a line end", "c", "/* <\n*/",
                   "<span class=\"zkt-code-comment\">/* &lt;</span>\n<span class=\"zkt-code-comment\">*/</span>\n"},
        ListingRow{
            "characters with a meaning in styled lines are replaced, others kept", "basic",
            "\xEF\xB7\x90\0\xF0\x9F\x98\x80\xC2\xB7\xED\xA0\x80"s,
            "<span class=\"zkt-code-text\">\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80&middot;\xEF\xBF\xBD</span>\n"},
        ListingRow{
            "the last and first characters of each length are kept", "basic",
            "\x7E\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80",
            "<span class=\"zkt-code-text\">\x7E\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80</span>\n"},
        ListingRow{"each byte that is not part of a character is replaced, and none swallows the next", "basic",
                   "\xC3(\xE2\x82(\xC0\x80\xF4\x90\x80\x80",
                   "<span class=\"zkt-code-text\">\xEF\xBF\xBD(\xEF\xBF\xBD\xEF\xBF\xBD("
                   "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD</span>\n"},
        ListingRow{
            "line numbers of BASIC are left out", "basic", "10 PRINT\n 20  X\n30\t'  \n40 ' x\n50'y\n60",
            "<span class=\"zkt-code-keyword\">PRINT</span>\n<span class=\"zkt-code-text\"> X</span>\n\n"
            "<span class=\"zkt-code-comment\">&apos; x</span>\n<span class=\"zkt-code-comment\">&apos;y</span>\n\n"},
        ListingRow{"the other BASIC keeps its line numbers", "classic-basic", "10 '",
                   "<span class=\"zkt-code-literal\">10</span><span class=\"zkt-code-text\"> </span>"
                   "<span class=\"zkt-code-comment\">&apos;</span>\n"}));

TEST(Listing, EllipsisMarksAreReplacedInEveryLanguage)
{
    for (const std::string &language : languages()) {
        const std::string html = listed("\\vdots\na \\... \"\\hdots\" \\hdots\\...\\vdots \\hdotsb \\.. \\v", language);
        EXPECT_EQ(count(html, "&#x205e;"), 2U) << language;
        EXPECT_EQ(count(html, "&hellip;"), 5U) << language;
        EXPECT_EQ(count(html, "\\"), 2U) << language;
    }
}

/// \a styled with its marks joined. A "|" is a marker, with the digit after it for its style.
std::string joined(std::string styled)
{
    std::u16string units;
    for (std::size_t at = 0; at < styled.size(); ++at) {
        const bool isMarker = styled[at] == '|';
        units += isMarker ? s_styleMarker : static_cast<char16_t>(styled[at]);
        if (isMarker)
            units += static_cast<char16_t>(styled[++at] - '0');
    }
    Ellipses::join(units.data());
    std::string result;
    for (const char16_t *at = units.c_str(); *at != 0; ++at) {
        result += *at == s_styleMarker ? '|' : static_cast<char>(*at);
        if (*at == s_styleMarker)
            result += static_cast<char>('0' + *++at);
    }
    return result;
}

TEST(Ellipses, AreJoinedWhateverALexerMakesOfTheirCharacters)
{
    EXPECT_EQ(joined("|0a |1\\|7...|0;"), "|0a |1\\...|0;");
    EXPECT_EQ(joined("|1\\|3vdots(|1x"), "|1\\vdots|3(|1x");
    EXPECT_EQ(joined("|1\\|2h|3d|4o|5t|6s"), "|1\\hdots");
    EXPECT_EQ(joined("|1\\|2v|3dots|1b"), "|1\\vdotsb");
    EXPECT_EQ(joined("|1\\|2v|3dot|1s"), "|1\\vdots");
    EXPECT_EQ(joined("|1\\|7..|0a\\|1v|2"), "|1\\|7..|0a\\|1v"); // no marks
    EXPECT_EQ(joined(""), "");
}

TEST(Spans, EachMarkerOpensASpanAndClosesThePreviousOne)
{
    std::string html;
    Spans(html).appendLine(u"a\uFDD0\x000C"
                           u"b\uFDD0\x0003<\uFDD0\xFFFF\xDC00\xD800");
    EXPECT_EQ(html,
              "a<span>b</span><span class=\"zkt-code-keyword\">&lt;</span><span>\xEF\xBF\xBD\xEF\xBF\xBD</span>\n");
}

// Deliberate: the mode of the XML lexer is kept in the lexer, so a listing begins in the mode in which the last one ended.
TEST(XmlLexer, ModeCarriesFromListingToListing)
{
    listed("\"]>'\"-->]]>?>]>\">]>", "xml"); // closes whatever is open
    EXPECT_EQ(count(listed("<!-- a", "xml"), "comment"), 1U);
    EXPECT_EQ(listed("b --> c", "xml"),
              "<span class=\"zkt-code-comment\">b --&gt;</span><span class=\"zkt-code-text\"> c</span>\n");
}

// Deliberate: a comment counts like a start tag, and an empty element is not counted down again.
TEST(XmlLexer, StateWordCountsNesting)
{
    const std::unique_ptr<CodeEditParser> lexer = makeLexer("xml");
    quint32 state = 0;
    std::vector<quint32> counts;
    for (const char *const line : {"<a>", "<!-- <x> -->", "<b/><c", "d='</e>'>", "</c>", "<?x?><![CDATA[<y>]]></a>"}) {
        styledText(*lexer, QString::fromUtf8(line), state);
        counts.push_back(state);
    }
    EXPECT_EQ(counts, (std::vector<quint32>{1, 2, 4, 4, 3, 2}));
}

/// Parts of listings that open, close and join constructs.
const std::vector<std::string> &soup()
{
    static const std::vector<std::string> parts = {
        "\n",
        "\n",
        " ",
        "\t",
        "\\",
        "\\\n",
        "\"",
        "'",
        "`",
        "/",
        "/*",
        "*/",
        "//",
        "#",
        "# ",
        "@",
        "@a",
        ";",
        "R\"a(",
        ")a\"",
        "${",
        "{",
        "}",
        "(",
        ")",
        "[",
        "]",
        "<",
        "</",
        "<!--",
        "-->",
        "<!",
        "<?",
        "?>",
        "<![CDATA[",
        "]]>",
        "<!DOCTYPE a [",
        "&",
        "&amp;",
        "=",
        "+",
        ".",
        "..",
        ":",
        "a",
        "if",
        "REM",
        "DATA",
        "$TAB",
        "%",
        "0x1.e",
        "1'",
        "TODO",
        "/** \\code",
        "\\endcode",
        "int",
        "#include <",
        "#error ",
        "10 ",
        "u8",
        "_",
        "\xC3\xA9",
        "\xC2\xB7",
        "\xF0\x9F\x98\x80",
        "r0",
        "!",
    };
    return parts;
}

std::string randomText(std::mt19937 &random, bool anyBytes)
{
    std::string text;
    const std::size_t length = random() % 60;
    for (std::size_t index = 0; index < length; ++index) {
        if (anyBytes)
            text += QString(QChar(static_cast<char16_t>(random() % 255 + 1))).toStdString();
        else
            text += soup()[random() % soup().size()];
    }
    return text;
}

/// \a text as a listing of BASIC shows it: each line without its number.
std::string withoutNumbers(const std::string &text)
{
    QStringList lines = QString::fromStdString(text).split(u'\n');
    for (QString &line : lines) {
        line.replace(QRegularExpression(QStringLiteral("^[ \\t-\\r]*[0-9]*[ \\t-\\r]?")), QString());
        line.replace(QRegularExpression(QStringLiteral("^[ \\t-\\r]*'[ \\t-\\r]*$")), QString());
    }
    return lines.join(u'\n').toStdString();
}

/// True when each line closes the spans that it opens, one at a time.
bool hasBalancedLines(const std::string &html)
{
    for (const QString &line : QString::fromStdString(html).split(u'\n')) {
        const QStringList parts = line.split(QStringLiteral("<span"));
        const bool balanced = std::all_of(parts.begin() + 1, parts.end(), [](const QString &part) {
            return part.count(QStringLiteral("</span>")) == 1;
        });
        if (!balanced || parts.first().contains(u'<'))
            return false;
    }
    return true;
}

TEST(Listing, KeepsAnyText)
{
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(random, round % 4 == 0);
        const std::string &language = languages()[random() % languages().size()];
        const std::string html = listed(text, language);
        const std::string expected = language == "basic" ? withoutNumbers(text) : text;
        const bool hasEllipsis = html.find("&hellip;") != std::string::npos;
        ASSERT_TRUE(hasEllipsis || textOf(html) == expected + '\n') << language << ": " << text << "\n" << html;
        ASSERT_TRUE(hasBalancedLines(html)) << language << ": " << text << "\n" << html;
    }
}

TEST(Lexers, KeepTheRules)
{
    std::mt19937 random(2);
    std::vector<char16_t> styled;
    for (const std::string &language : languages()) {
        const std::unique_ptr<CodeEditParser> lexer = Languages::named(language)->makeLexer();
        quint32 state = 0;
        for (int round = 0; round < 3000; ++round) {
            const QString text = QString::fromStdString(randomText(random, round % 4 == 0));
            for (const QString &line : text.split(u'\n'))
                ASSERT_EQ(brokenRule(*lexer, line.toStdU16String(), styled, state), "") << text.toStdString();
        }
    }
}
