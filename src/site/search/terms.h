#pragma once

#include "site/record/record.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Where a text is in a page, which decides the weight of its terms.
enum class TermField
{
    Name, ///< the qualified name of a declaration
    Title,
    Heading,
    Brief,
    Body,
};

/// The weights of terms. The script ranks by them, so search.js knows the same numbers; they have four bits.
enum TermWeight : std::uint32_t
{
    BodyOnce = 1,
    BodyTwice = 2, ///< two or three times
    BodyOften = 3, ///< four to seven times
    BodyMost = 4,
    BriefWord = 6,
    HeadingWord = 8,
    TitleWord = 10,
    NameTail = 11, ///< the end of a name from one of its inner parts on: "fillcolor" of "setFillColor"
    NamePart = 12, ///< one part of a name: "fill"
    WholeTitle = 13,
    QualifiedName = 14, ///< with one owner or more: "buffer::push"
    WholeName = 15,     ///< without owners: "push"
};

/// The longest term, in UTF-16 units. Longer ones are cut, here and in the script.
constexpr std::size_t s_longestTerm = 64;

/// The form in which texts are compared: upper and then lower case, spaces collapsed, cut to s_longestTerm units.
[[nodiscard]] std::string foldedTerm(std::u32string_view text);
[[nodiscard]] std::string foldedTerm(std::string_view text);

/// The same without accents and other marks. Equal to \a folded if it has none.
[[nodiscard]] std::string withoutAccents(const std::string &folded);

/// Collects the terms of one page: words, identifiers whole and in parts, tokens with punctuation whole, pairs of
/// ideographs. A term with accents is also there without them.
class TermCollector
{
public:
    /// \a text is plain text, UTF-8; bytes that are not count as separators.
    void add(TermField field, std::string_view text);

    /// The terms by text, each once. Leaves the collector empty.
    [[nodiscard]] std::vector<RecordTerm> takeTerms();

private:
    struct Found
    {
        std::uint32_t weight = 0; ///< of its best field, except for the body
        std::uint32_t inBody = 0; ///< how often
    };

    void addName(std::u32string_view name);
    void addTokens(TermField field, std::u32string_view text);
    void addToken(TermField field, std::u32string_view token);
    void addWord(TermField field, std::u32string_view word);
    void addPairs(std::uint32_t weight, std::u32string_view ideographs);
    void addTerm(std::uint32_t weight, std::u32string_view text);
    void count(std::uint32_t weight, std::string term);

    std::unordered_map<std::string, Found> m_terms;
};

} // namespace tavidoc
