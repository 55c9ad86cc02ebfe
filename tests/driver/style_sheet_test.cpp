#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace {

using Colours = std::map<std::string, std::string>; // "ink-text" to "#1c2128"

std::string styleSheet()
{
    std::ifstream file(TAVIDOC_SOURCE_DIR "/share/tavidoc/default.css");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Returns the colours of the block after the first \a opening, which identifies light, dark or print.
Colours coloursAfter(const std::string &sheet, const std::string &opening)
{
    Colours colours;
    const std::size_t begin = sheet.find(":root {", sheet.find(opening));
    std::istringstream block(sheet.substr(begin, sheet.find('}', begin) - begin));
    for (std::string line; std::getline(block, line);) {
        const std::size_t name = line.find("--");
        const std::size_t colour = line.find(": #");
        if (name != std::string::npos && colour != std::string::npos)
            colours[line.substr(name + 2, colour - name - 2)] = line.substr(colour + 2, 7);
    }
    return colours;
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

TEST(StyleSheet, EveryInkIsReadableOnEveryGround)
{
    for (const char *opening : {":root", "prefers-color-scheme: dark", "@media print"}) {
        Colours colours = coloursAfter(styleSheet(), ":root");
        for (const auto &[name, colour] : coloursAfter(styleSheet(), opening))
            colours[name] = colour;
        for (auto ink = colours.lower_bound("ink-"); ink != colours.lower_bound("ink."); ++ink) {
            for (auto ground = colours.lower_bound("ground-"); ground != colours.lower_bound("ground."); ++ground)
                EXPECT_GE(contrast(ink->second, ground->second), 4.5)
                    << opening << ' ' << ink->first << " on " << ground->first;
        }
        EXPECT_EQ(colours.size(), 23u) << "colours were not found";
    }
}

TEST(StyleSheet, EveryStyleOfAListingHasItsRule)
{
    const std::string sheet = styleSheet();
    for (const char *style :
         {"text", "literal", "comment", "keyword", "disassembly", "markup", "control", "operator", "register",
          "function", "fixme", "attention", "doc-keyword", "doc-argument", "doc-code", "attribute"})
        EXPECT_NE(sheet.find(std::string(".zkt-code-") + style + " { color: var(--ink-"), std::string::npos) << style;
}
