#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

/// An example in a golden file: a line "=== " with a sentence, the input, a line "---" and the
/// output, which ends with a line end. The line end before "---" is not part of the input.
struct GoldenExample
{
    std::string sentence;
    std::string input;
    std::string output;
};

/// The examples in the text of a golden file.
inline std::vector<GoldenExample> goldenExamples(std::string_view text)
{
    constexpr std::string_view heading = "=== ";
    constexpr std::string_view separator = "\n---\n";
    std::vector<GoldenExample> examples;
    while (text.starts_with(heading)) {
        const std::size_t end = text.find("\n=== ");
        std::string_view example = text.substr(heading.size(), end == text.npos ? end : end + 1 - heading.size());
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        const std::size_t inputBegin = example.find('\n') + 1;
        const std::size_t inputEnd = example.find(separator, inputBegin - 1);
        if (inputBegin == 0 || inputEnd == example.npos) {
            ADD_FAILURE() << "expected a sentence, an input and a line \"---\": " << example;
            break;
        }
        const std::size_t inputSize = inputEnd < inputBegin ? 0 : inputEnd - inputBegin;
        examples.push_back({std::string(example.substr(0, inputBegin - 1)),
                            std::string(example.substr(inputBegin, inputSize)),
                            std::string(example.substr(inputEnd + separator.size()))});
    }
    EXPECT_TRUE(text.empty()) << "expected \"=== \": " << text;
    return examples;
}

/// Expects \a outputOf to return for the input of each example in \a file the output that is
/// there. When TAVIDOC_UPDATE is set, the outputs in the file are replaced.
template <class Function> void checkGoldenFile(const std::string &file, Function outputOf)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::string updated;
    const std::vector<GoldenExample> examples = goldenExamples(text);
    EXPECT_FALSE(examples.empty()) << file;
    for (const GoldenExample &example : examples) {
        const std::string output = outputOf(example.input);
        updated += "=== " + example.sentence + "\n" + example.input + "\n---\n" + output;
        EXPECT_EQ(output, example.output) << example.sentence << "\n" << example.input;
    }
    if (std::getenv("TAVIDOC_UPDATE") != nullptr)
        std::ofstream(file, std::ios::binary) << updated;
}
