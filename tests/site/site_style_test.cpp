#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace {

/// A colour in the light and in the dark theme: "#1c2128".
using Pair = std::array<std::string, 2>;

std::string styleSheet()
{
    std::ifstream file(TAVIDOC_SOURCE_DIR "/share/site/site.css");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The colours whose names begin with \a prefix, from lines "--NAME: light-dark(#rrggbb, #rrggbb);".
std::map<std::string, Pair> colours(const std::string &sheet, const std::string &prefix)
{
    constexpr std::string_view opening = ": light-dark(#";
    std::map<std::string, Pair> found;
    for (std::size_t at = 0; (at = sheet.find("\n    --" + prefix, at)) != sheet.npos; ++at) {
        const std::size_t value = sheet.find(opening, at);
        if (value > sheet.find('\n', at + 1))
            continue;
        const std::size_t light = value + opening.size() - 1;
        found[sheet.substr(at + 7, value - at - 7)] = {sheet.substr(light, 7), sheet.substr(light + 9, 7)};
    }
    return found;
}

double luminance(const std::string &colour)
{
    const double weights[] = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = std::stoi(colour.substr(1 + 2 * i, 2), nullptr, 16) / 255.0;
        sum += weights[i] * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

double contrast(const std::string &one, const std::string &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

} // namespace

TEST(SiteStyle, EveryInkIsReadableOnEveryGroundInBothThemes)
{
    const std::string sheet = styleSheet();
    const auto inks = colours(sheet, "ink-");
    const auto grounds = colours(sheet, "ground-");
    EXPECT_EQ(inks.size(), 21U);
    EXPECT_EQ(grounds.size(), 3U);
    for (const auto &[ink, inkColours] : inks) {
        for (const auto &[ground, groundColours] : grounds) {
            for (std::size_t theme = 0; theme < 2; ++theme)
                EXPECT_GE(contrast(inkColours[theme], groundColours[theme]), 4.5) << ink << " on " << ground << theme;
        }
    }
}

/// The edges of fields must be seen, too.
TEST(SiteStyle, EdgesHaveAContrastOfThreeToOne)
{
    const std::string sheet = styleSheet();
    const Pair edge = colours(sheet, "edge").at("edge");
    for (const auto &[name, ground] : colours(sheet, "ground-p")) {
        for (std::size_t theme = 0; theme < 2; ++theme)
            EXPECT_GE(contrast(edge[theme], ground[theme]), 3.0) << name << theme;
    }
}

TEST(SiteStyle, EveryStyleOfAListingHasItsRule)
{
    const std::string sheet = styleSheet();
    for (const char *style : {"text", "literal", "comment", "keyword", "disassembly", "markup", "control", "operator",
                              "register", "function", "fixme", "attention", "doc-keyword", "doc-argument", "doc-code",
                              "attribute", "inserted", "deleted"})
        EXPECT_NE(sheet.find(std::string(".zkt-code-") + style + " { color: var(--ink-"), sheet.npos) << style;
}

/// Scripts and styles stay small, and nothing is loaded from elsewhere.
TEST(SiteStyle, FilesAreSmallAndNeedNoNetwork)
{
    std::ifstream file(TAVIDOC_SOURCE_DIR "/share/site/site.js");
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    EXPECT_LE(script.size(), 3U * 1024);
    for (const std::string &text : {script, styleSheet()}) {
        for (const char *address : {"//cdn", "http:", "https:", "@import", "url("})
            EXPECT_EQ(text.find(address), text.npos) << address;
    }
}
