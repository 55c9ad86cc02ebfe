#include "site/search/search_index.h"

#include "site/search/index_text.h"
#include "site/search/terms.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <utility>

namespace tavidoc {

namespace {

constexpr std::size_t s_excerptsInBlock = 32;
constexpr std::size_t s_longestExcerpt = 2'000;

/// Up to this many pages have one file of names, which is loaded once; more have blocks of the smaller number.
constexpr std::size_t s_pagesInOneFile = 50'000;
constexpr std::size_t s_namesInBlock = 500;

/// A term keeps so many pages, those in which it weighs most.
constexpr std::size_t s_mostPages = 1'000;

/// Shorter words are not looked for when one is misspelt: one edit makes nearly any of any other.
constexpr std::size_t s_shortestWord = 3;

constexpr std::uint32_t s_weightBits = 4;
constexpr std::uint32_t s_weights = 1U << s_weightBits;
constexpr std::string_view s_suffix = ".htm";

std::size_t blockSize(std::size_t pages)
{
    return pages <= s_pagesInOneFile ? s_pagesInOneFile : s_namesInBlock;
}

std::string nameOf(char kind, std::size_t number)
{
    return kind + std::to_string(number);
}

/// Whether the files can hold \a term. Others cannot come from a TermCollector.
bool isTerm(const RecordTerm &term)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    return !term.text.empty() && term.text.size() <= TermTable::s_longest && std::ranges::none_of(term.text, isControl);
}

/// \a text for a field of a string: tabs separate fields.
std::string field(std::string_view text)
{
    std::string plain(text);
    std::ranges::replace(plain, '\t', ' ');
    return plain;
}

/// \a file without ".htm" at its end or before "#".
std::string withoutSuffix(std::string_view file)
{
    const std::size_t end = std::min(file.find('#'), file.size());
    std::string_view stem = file.substr(0, end);
    stem.remove_suffix(stem.ends_with(s_suffix) ? s_suffix.size() : 0);
    return std::string(stem).append(file.substr(end));
}

/// The file that the script assumes for a page called \a name.
std::string usualFile(std::string_view name)
{
    std::string file;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool isScope = name.substr(at).starts_with("::");
        file.push_back(isScope ? '.' : name[at]);
        at += isScope ? 1 : 0;
    }
    return file;
}

/// By what pages are numbered: the name without owners in lower case, so that names that begin alike are neighbours.
std::string orderKey(std::string_view name)
{
    const std::size_t scope = name.rfind("::");
    std::string key(name.substr(scope == std::string_view::npos ? 0 : scope + 2));
    for (char &c : key)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return key;
}

std::uint64_t checksum(std::uint64_t sum, std::string_view bytes)
{
    constexpr std::uint64_t factor = 0x9e3779b97f4a7c15;
    for (std::size_t at = 0; at < bytes.size(); at += sizeof sum) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, std::min(sizeof word, bytes.size() - at));
        sum = (sum ^ word) * factor;
        sum ^= sum >> 29U;
    }
    return sum;
}

/// The pages of one term as the script reads them: for each weight, the largest first, the weight and the number of
/// pages in one number, and the differences of the numbers of the pages.
std::string postingsText(std::span<const std::uint32_t> postings)
{
    std::array<std::uint32_t, s_weights> counts{};
    for (const std::uint32_t posting : postings)
        ++counts[posting % s_weights];
    std::string text;
    std::size_t left = s_mostPages;
    for (std::uint32_t weight = s_weights; weight-- > 0 && left > 0;) {
        const std::size_t count = std::min<std::size_t>(counts[weight], left);
        if (count == 0)
            continue;
        left -= count;
        appendNumber(text, count * s_weights + weight);
        std::uint32_t last = 0;
        std::size_t written = 0;
        for (auto posting = postings.begin(); written < count; ++posting) {
            if (*posting % s_weights != weight)
                continue;
            const std::uint32_t page = *posting / s_weights;
            appendNumber(text, page - last);
            last = page;
            ++written;
        }
    }
    return text;
}

/// Whether a term of this weight may be misspelt by a reader: a name, a part of one or a word of a title.
bool isWordWeight(std::uint32_t weight)
{
    return weight == TitleWord || weight == NamePart || weight == WholeTitle || weight == WholeName;
}

bool isWord(std::string_view term)
{
    return term.size() >= s_shortestWord && term.find(' ') == std::string_view::npos;
}

/// The characters of \a text in reverse.
std::string backward(std::string_view text)
{
    std::string reversed(text.rbegin(), text.rend());
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80; };
    for (auto at = reversed.begin(); at != reversed.end();) {
        const auto first = std::find_if_not(at, reversed.end(), continues);
        const auto end = first == reversed.end() ? first : first + 1;
        std::reverse(at, end);
        at = end;
    }
    return reversed;
}

std::vector<std::string> backward(const std::vector<std::string_view> &words)
{
    std::vector<std::string> reversed(words.size());
    std::ranges::transform(words, reversed.begin(), [](std::string_view word) { return backward(word); });
    return reversed;
}

} // namespace

SearchIndex::SearchIndex(SearchFileSink sink) : m_sink(std::move(sink)) {}

std::uint32_t SearchIndex::addText(std::span<const RecordTerm> terms, std::string_view excerpt)
{
    for (const RecordTerm &term : terms) {
        if (!isTerm(term))
            continue;
        const std::uint32_t weight = std::min(term.weight, s_weights - 1);
        const std::uint32_t number = m_terms.number(term.text);
        m_text.push_back(number << s_weightBits | weight);
    }
    m_pages.emplace_back().textEnd = m_text.size();
    m_excerpts.emplace_back(excerpt.substr(0, s_longestExcerpt));
    if (m_excerpts.size() == s_excerptsInBlock)
        writeExcerpts();
    return static_cast<std::uint32_t>(m_pages.size() - 1);
}

void SearchIndex::place(std::uint32_t number, const SearchPage &page)
{
    const std::size_t slash = page.address.rfind('/');
    const std::size_t split = slash == std::string_view::npos ? 0 : slash + 1;
    const std::string file = withoutSuffix(page.address.substr(split));
    const std::string name = field(page.name);
    Page &shown = m_pages[number];
    shown.name = kept(name);
    shown.file = usualFile(name) == file ? std::string_view() : kept(field(file));
    shown.kind = m_kinds.of(page.kind);
    shown.place = m_places.of(field(page.where) + '\t' + field(page.address.substr(0, split)));
    shown.isPlaced = true;
}

void SearchIndex::finish()
{
    writeExcerpts();
    const std::vector<std::uint32_t> order = pagesByName();
    writeNames(order);
    const std::vector<std::uint32_t> sorted = m_terms.sorted();
    const Postings postings = postingsByTerm(order);
    const std::string terms = writeTerms(sorted, postings);
    std::vector<std::string_view> words;
    for (const std::uint32_t term : sorted)
        if (postings.isWord[term] && isWord(m_terms.text(term)))
            words.push_back(m_terms.text(term));
    const std::string forward = writeWords('w', words);
    const std::vector<std::string> reversedWords = backward(words);
    std::vector<std::string_view> sortedBackward;
    const std::vector<std::string_view> views(reversedWords.begin(), reversedWords.end());
    for (const std::uint32_t word : sortedOrder(views))
        sortedBackward.push_back(views[word]);
    const std::string reversed = writeWords('b', sortedBackward);
    writeRoot(order.size(), terms, forward, reversed);
}

void SearchIndex::writeRoot(std::size_t pages, std::string_view terms, std::string_view words,
                            std::string_view reversed)
{
    std::string root = "{pages:" + std::to_string(pages) + ",block:" + std::to_string(blockSize(pages));
    root += ",version:" + std::to_string(m_version & 0xffffffffU) + ",kinds:[";
    for (const std::string &kind : m_kinds.texts()) {
        appendScriptString(root, kind);
        root.push_back(',');
    }
    root += "],t:";
    appendScriptString(root, terms);
    root += ",w:";
    appendScriptString(root, words);
    root += ",b:";
    appendScriptString(root, reversed);
    root.push_back('}');
    write("root", root);
}

std::uint32_t SearchIndex::Numbers::of(std::string_view text)
{
    const auto [found, isNew] = m_numbers.try_emplace(std::string(text), static_cast<std::uint32_t>(m_texts.size()));
    if (isNew)
        m_texts.emplace_back(text);
    return found->second;
}

std::string_view SearchIndex::kept(std::string_view text)
{
    if (text.empty())
        return {};
    char *bytes = static_cast<char *>(m_arena.allocate(text.size(), 1));
    // cppcheck-suppress danglingTemporaryLifetime ; a caller's temporary outlives the call
    // cppcheck-suppress invalidLifetime
    std::memcpy(bytes, text.data(), text.size());
    return {bytes, text.size()};
}

void SearchIndex::write(const std::string &name, const std::string &data)
{
    m_version = checksum(m_version, data);
    m_sink(name + ".js", "tavidocSearch.add(\"" + name + "\"," + data + ");\n");
}

void SearchIndex::writeExcerpts()
{
    if (m_excerpts.empty())
        return;
    std::string data = "[";
    for (const std::string &excerpt : m_excerpts) {
        appendScriptString(data, excerpt);
        data += ",\n";
    }
    data.push_back(']');
    write(nameOf('x', m_excerptBlocks), data);
    ++m_excerptBlocks;
    m_excerpts.clear();
}

std::vector<std::uint32_t> SearchIndex::pagesByName() const
{
    std::vector<std::uint32_t> placed;
    std::vector<std::string> keys;
    for (std::uint32_t page = 0; page < m_pages.size(); ++page) {
        if (!m_pages[page].isPlaced)
            continue;
        placed.push_back(page);
        keys.push_back(orderKey(m_pages[page].name));
    }
    std::vector<std::uint32_t> order = sortedOrder({keys.begin(), keys.end()});
    for (std::uint32_t &page : order)
        page = placed[page];
    return order;
}

void SearchIndex::writeNames(const std::vector<std::uint32_t> &order)
{
    const std::size_t size = blockSize(order.size());
    for (std::size_t first = 0; first < order.size(); first += size) {
        const std::size_t count = std::min(size, order.size() - first);
        write(nameOf('n', first / size), namesBlock(std::span(order).subspan(first, count)));
    }
}

/// Two strings with tabs: places and directories, numbered from 0 in each block; and of each page the name, three
/// numbers (place, kind, where its excerpt is) and the file.
std::string SearchIndex::namesBlock(std::span<const std::uint32_t> pages) const
{
    Numbers places;
    std::string rows;
    for (const std::uint32_t number : pages) {
        const Page &page = m_pages[number];
        if (!rows.empty())
            rows.push_back('\t');
        appendScriptText(rows, page.name);
        rows.push_back('\t');
        appendNumber(rows, places.of(m_places.texts()[page.place]));
        appendNumber(rows, page.kind);
        appendNumber(rows, number);
        rows.push_back('\t');
        appendScriptText(rows, page.file);
    }
    std::string data = "[\"";
    for (const std::string &place : places.texts()) {
        appendScriptText(data, place);
        data.push_back('\t');
    }
    return data.append("\",\"").append(rows).append("\"]");
}

SearchIndex::Postings SearchIndex::postingsByTerm(const std::vector<std::uint32_t> &order) const
{
    Postings postings;
    postings.begins.resize(m_terms.size() + 1);
    for (const std::uint32_t page : order)
        for (std::uint64_t at = textBegin(page); at < m_pages[page].textEnd; ++at)
            ++postings.begins[(m_text[at] >> s_weightBits) + 1];
    std::partial_sum(postings.begins.begin(), postings.begins.end(), postings.begins.begin());

    postings.pages.resize(postings.begins.back());
    postings.isWord.resize(m_terms.size());
    std::vector<std::uint64_t> next = postings.begins;
    for (std::uint32_t page = 0; page < order.size(); ++page) {
        for (std::uint64_t at = textBegin(order[page]); at < m_pages[order[page]].textEnd; ++at) {
            const std::uint32_t term = m_text[at] >> s_weightBits;
            const std::uint32_t weight = m_text[at] % s_weights;
            postings.pages[next[term]++] = page << s_weightBits | weight;
            if (isWordWeight(weight))
                postings.isWord[term] = true;
        }
    }
    return postings;
}

std::uint64_t SearchIndex::textBegin(std::uint32_t page) const
{
    return page == 0 ? 0 : m_pages[page - 1].textEnd;
}

std::string SearchIndex::writeTerms(const std::vector<std::uint32_t> &sorted, const Postings &postings)
{
    ShardWriter shards(
        [this](std::size_t number, const std::string &data) { write(nameOf('t', number), '"' + data + '"'); });
    for (const std::uint32_t term : sorted) {
        const std::uint64_t begin = postings.begins[term];
        const std::uint64_t count = postings.begins[term + 1] - begin;
        if (count > 0)
            shards.add(m_terms.text(term), postingsText(std::span(postings.pages).subspan(begin, count)));
    }
    return shards.finish();
}

std::string SearchIndex::writeWords(char kind, const std::vector<std::string_view> &words)
{
    ShardWriter shards(
        [this, kind](std::size_t number, const std::string &data) { write(nameOf(kind, number), '"' + data + '"'); });
    for (const std::string_view word : words)
        shards.add(word, {});
    return shards.finish();
}

} // namespace tavidoc
