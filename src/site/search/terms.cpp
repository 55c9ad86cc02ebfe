#include "site/search/terms.h"

#include "site/search/characters.h"

#include <QString>

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

/// Body words that are longer are data, not words; the same goes for long numbers.
constexpr std::size_t s_longestBodyWord = 40;
constexpr std::size_t s_longestBodyNumber = 4;

bool isOneOf(char32_t character, std::u32string_view set)
{
    return set.find(character) != std::string_view::npos;
}

std::size_t skip(std::u32string_view text, std::size_t at, std::u32string_view set, std::size_t most)
{
    const std::size_t last = std::min(text.size(), at + most);
    while (at < last && isOneOf(text[at], set))
        ++at;
    return at;
}

std::size_t wordEnd(std::u32string_view text, std::size_t at)
{
    while (at < text.size() && isWordCharacter(text[at]))
        ++at;
    return at;
}

std::size_t ideographsEnd(std::u32string_view text, std::size_t at)
{
    while (at < text.size() && characterClass(text[at]) == CharacterClass::Ideograph)
        ++at;
    return at;
}

bool beginsWord(std::u32string_view text, std::size_t at)
{
    return at < text.size() && isWordCharacter(text[at]);
}

/// The start of the word that a joiner at \a at ("::", "::~", "." or "-") adds to the token; \a at if there is none.
std::size_t joinedWord(std::u32string_view text, std::size_t at)
{
    for (const std::u32string_view joiner : {U"::~", U"::", U".", U"-"})
        if (text.substr(at).starts_with(joiner) && beginsWord(text, at + joiner.size()))
            return at + joiner.size();
    return at;
}

/// The end of the symbol of an operator's name after the word "operator", which ends at \a at; \a at if there is none.
std::size_t operatorEnd(std::u32string_view text, std::size_t at)
{
    const std::size_t symbol = skip(text, at, U" ", 1);
    for (const std::u32string_view brackets : {U"()", U"[]"})
        if (text.substr(symbol).starts_with(brackets))
            return symbol + brackets.size();
    const std::size_t end = skip(text, symbol, U"-+*/%^&|~!=<>,", 3);
    return end > symbol ? end : at;
}

bool endsWithOperator(std::u32string_view text, std::size_t begin, std::size_t end)
{
    constexpr std::u32string_view word = U"operator";
    const std::u32string_view token = text.substr(begin, end - begin);
    return token.ends_with(word) &&
           (token.size() == word.size() || !isWordCharacter(token[token.size() - word.size() - 1]));
}

/// The end of the token whose first word begins at \a at; \a begin is before its sigil.
std::size_t tokenEnd(std::u32string_view text, std::size_t begin, std::size_t at)
{
    std::size_t end = wordEnd(text, at);
    for (std::size_t next = joinedWord(text, end); next > end; next = joinedWord(text, end))
        end = wordEnd(text, next);
    if (endsWithOperator(text, begin, end))
        return operatorEnd(text, end);
    for (const std::u32string_view suffix : {U"++", U"#"})
        if (text.substr(end).starts_with(suffix) && !beginsWord(text, end + suffix.size()))
            return end + suffix.size();
    return end;
}

/// Whether a part of an identifier begins at \a at, which is inside it: "setFill", "set_fill", "HTMLFill".
bool beginsPart(std::u32string_view word, std::size_t at)
{
    const CharacterClass here = characterClass(word[at]);
    const CharacterClass before = characterClass(word[at - 1]);
    if (here == CharacterClass::Underscore)
        return false;
    if (before == CharacterClass::Underscore)
        return true;
    if (here != CharacterClass::Upper)
        return false;
    const bool lowerFollows = at + 1 < word.size() && characterClass(word[at + 1]) == CharacterClass::Lower;
    return before != CharacterClass::Upper || lowerFollows;
}

std::size_t partEnd(std::u32string_view word, std::size_t at)
{
    while (at < word.size() && characterClass(word[at]) != CharacterClass::Underscore && !beginsPart(word, at))
        ++at;
    return at;
}

/// Where the last component of a qualified name begins; "::" inside angle brackets does not count.
std::size_t bareName(std::u32string_view name)
{
    std::size_t begin = 0;
    std::size_t depth = 0;
    for (std::size_t at = 0; at + 1 < name.size(); ++at) {
        if (endsWithOperator(name, begin, at))
            break;
        if (name[at] == U'<')
            ++depth;
        else if (name[at] == U'>' && depth > 0)
            --depth;
        else if (depth == 0 && name[at] == U':' && name[at + 1] == U':')
            begin = at + 2;
    }
    return begin;
}

std::uint32_t weightOf(TermField field)
{
    switch (field) {
    case TermField::Name:
    case TermField::Title:
        return TitleWord;
    case TermField::Heading:
        return HeadingWord;
    case TermField::Brief:
        return BriefWord;
    case TermField::Body:
        return BodyOnce;
    }
    return BodyOnce;
}

std::uint32_t bodyWeight(std::uint32_t times)
{
    return times >= 8 ? BodyMost : times >= 4 ? BodyOften : times >= 2 ? BodyTwice : BodyOnce;
}

/// Of a token: only an operator's symbol may have one before it.
std::u32string withoutSpaces(std::u32string_view text)
{
    std::u32string joined(text);
    std::erase(joined, U' ');
    return joined;
}

/// \a text with one space for each run of spaces and none at the ends.
std::u32string collapsed(std::u32string_view text)
{
    std::u32string result;
    for (const char32_t c : text) {
        if (characterClass(c) != CharacterClass::Space)
            result.push_back(c);
        else if (!result.empty() && result.back() != U' ')
            result.push_back(U' ');
    }
    if (result.ends_with(U' '))
        result.pop_back();
    return result;
}

bool isData(std::u32string_view word)
{
    return word.size() > s_longestBodyWord ||
           (word.size() > s_longestBodyNumber &&
            std::ranges::all_of(word, [](char32_t c) { return c >= U'0' && c <= U'9'; }));
}

} // namespace

std::string foldedTerm(std::u32string_view text)
{
    std::string folded;
    bool isAscii = true;
    for (const char32_t c : text.substr(0, s_longestTerm)) {
        isAscii = isAscii && c < 0x80;
        folded.push_back(static_cast<char>(c >= U'A' && c <= U'Z' ? c + 32 : c));
    }
    if (isAscii)
        return folded;
    const QString cut = QString::fromUcs4(text.data(), static_cast<qsizetype>(std::min(text.size(), s_longestTerm)));
    // Upper case first, so that "ß" is "ss"; the script does the same.
    QString lower = cut.toUpper().toLower().replace(QChar(0x3c2), QChar(0x3c3)).left(s_longestTerm);
    if (!lower.isEmpty() && lower.back().isHighSurrogate())
        lower.chop(1);
    return lower.toStdString();
}

std::string foldedTerm(std::string_view text)
{
    return foldedTerm(std::u32string_view(collapsed(codePoints(text))));
}

std::string withoutAccents(const std::string &folded)
{
    if (std::ranges::none_of(folded, [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; }))
        return folded;
    QString plain;
    for (const QChar c : QString::fromStdString(folded).normalized(QString::NormalizationForm_D))
        if (!c.isMark())
            plain.append(c);
    return plain.normalized(QString::NormalizationForm_C).toStdString();
}

void TermCollector::add(TermField field, std::string_view text)
{
    const std::u32string characters = codePoints(text);
    if (field == TermField::Name)
        addName(collapsed(characters));
    else if (field == TermField::Title)
        addTerm(WholeTitle, collapsed(characters));
    addTokens(field, characters);
}

void TermCollector::addName(std::u32string_view name)
{
    const std::size_t begin = bareName(name);
    const std::u32string_view bare = name.substr(begin);
    addTerm(WholeName, bare);
    for (std::size_t at = 0; at < begin; ++at)
        if (at == 0 || (name[at - 1] == U':' && at < begin && name[at] != U':'))
            addTerm(QualifiedName, name.substr(at));
    for (std::size_t at = 0; at < bare.size(); ++at) {
        if (!isWordCharacter(bare[at]) || (at > 0 && isWordCharacter(bare[at - 1]) && !beginsPart(bare, at)))
            continue;
        if (at > 0)
            addTerm(NameTail, bare.substr(at));
        const std::u32string_view part = bare.substr(at, partEnd(bare.substr(0, wordEnd(bare, at)), at + 1) - at);
        if (!part.starts_with(U'_'))
            addTerm(NamePart, part);
    }
}

void TermCollector::addTokens(TermField field, std::u32string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        if (characterClass(text[at]) == CharacterClass::Ideograph) {
            const std::size_t end = ideographsEnd(text, at);
            addPairs(weightOf(field), text.substr(at, end - at));
            at = end;
            continue;
        }
        const std::size_t word = skip(text, at, U"-#$\\@~", 2);
        if (!beginsWord(text, word)) {
            ++at;
            continue;
        }
        const std::size_t end = tokenEnd(text, at, word);
        addToken(field, text.substr(at, end - at));
        at = end;
    }
}

void TermCollector::addToken(TermField field, std::u32string_view token)
{
    if (token.size() != wordEnd(token, 0))
        addTerm(weightOf(field), withoutSpaces(token));
    for (std::size_t at = 0; at < token.size();) {
        const std::size_t end = wordEnd(token, at);
        if (end > at) {
            addWord(field, token.substr(at, end - at));
            if (endsWithOperator(token, 0, end))
                addTerm(weightOf(field), withoutSpaces(token.substr(end)));
        }
        at = std::max(at + 1, end);
    }
}

void TermCollector::addWord(TermField field, std::u32string_view word)
{
    if (field == TermField::Body && (word.size() < 2 || isData(word)))
        return;
    const std::uint32_t weight = weightOf(field);
    addTerm(weight, word);
    for (std::size_t at = 0; at < word.size();) {
        const std::size_t end = partEnd(word, at + 1);
        if (end - at < word.size() && end - at > 1 && word[at] != U'_')
            addTerm(weight, word.substr(at, end - at));
        at = end;
        while (at < word.size() && word[at] == U'_')
            ++at;
    }
}

void TermCollector::addPairs(std::uint32_t weight, std::u32string_view ideographs)
{
    if (ideographs.size() == 1)
        addTerm(weight, ideographs);
    for (std::size_t at = 0; at + 1 < ideographs.size(); ++at)
        addTerm(weight, ideographs.substr(at, 2));
}

void TermCollector::addTerm(std::uint32_t weight, std::u32string_view text)
{
    std::string term = foldedTerm(text);
    if (std::string plain = withoutAccents(term); plain != term)
        count(weight, std::move(plain));
    count(weight, std::move(term));
}

void TermCollector::count(std::uint32_t weight, std::string term)
{
    if (term.empty())
        return;
    Found &found = m_terms[std::move(term)];
    if (weight == BodyOnce)
        ++found.inBody;
    else
        found.weight = std::max(found.weight, weight);
}

std::vector<RecordTerm> TermCollector::takeTerms()
{
    std::vector<RecordTerm> terms;
    terms.reserve(m_terms.size());
    for (const auto &[text, found] : m_terms)
        terms.push_back({.text = text, .weight = std::max(found.weight, bodyWeight(found.inBody))});
    m_terms.clear();
    std::ranges::sort(terms, {}, &RecordTerm::text);
    return terms;
}

} // namespace tavidoc
