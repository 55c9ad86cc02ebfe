#pragma once

#include "site/record/record.h"
#include "site/search/term_table.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// How a page is shown among the results. Plain text, UTF-8.
struct SearchPage
{
    std::string_view name; ///< qualified name of a declaration, title of another page
    std::string_view kind; ///< "function", "page", ...
    std::string_view
        address;            ///< relative to the top of the site, with "/"; perhaps with "#" and the id of a place in it
    std::string_view where; ///< the document or header that holds it
};

/// Receives a finished file: its name without a directory, and its bytes, which are ASCII.
using SearchFileSink = std::function<void(const std::string &name, std::string_view bytes)>;

/// Makes the files of the search. Memory is 4 bytes for each term of a page, and names and terms once; excerpts
/// are passed on at once. Time is linear but for sorting names and terms.
///
/// Pages are numbered by name. Each file calls `tavidocSearch.add(name, data)`:
///   root.js  what the others hold, see finish()
///   n0.js    names of pages, in blocks
///   t0.js    terms with their pages, sorted: "shared prefix, rest, TAB, pages, TAB, ..."
///   w0.js    words of names and titles, sorted, without pages; for misspelt queries
///   b0.js    the same words backward
///   x0.js    excerpts, in blocks of pages as they were added
class SearchIndex
{
public:
    explicit SearchIndex(SearchFileSink sink);

    /// Adds what is in a page and returns its number here. May write a file.
    std::uint32_t addText(std::span<const RecordTerm> terms, std::string_view excerpt);
    /// How the page \a number is shown. Pages for which this is never called are not found.
    void place(std::uint32_t number, const SearchPage &page);
    /// Writes the files. Nothing can be added after that.
    void finish();

private:
    struct Page
    {
        std::string_view name;
        std::string_view file;     ///< of the address, after its last "/", without ".htm"; empty: made of the name
        std::uint32_t kind = 0;    ///< index in m_kinds
        std::uint32_t place = 0;   ///< index in m_places
        std::uint64_t textEnd = 0; ///< in m_text
        bool isPlaced = false;
    };

    /// Numbers equal texts alike.
    class Numbers
    {
    public:
        std::uint32_t of(std::string_view text);
        [[nodiscard]] const std::vector<std::string> &texts() const { return m_texts; }

    private:
        std::unordered_map<std::string, std::uint32_t> m_numbers;
        std::vector<std::string> m_texts;
    };

    /// The pages of all terms in one array.
    struct Postings
    {
        std::vector<std::uint64_t> begins; ///< of each term in `pages`, and the end
        std::vector<std::uint32_t> pages;  ///< number by name, shifted by four bits, and the weight
        std::vector<bool> isWord;          ///< of each term: of a name or a title
    };

    std::string_view kept(std::string_view text);
    void write(const std::string &name, const std::string &data);
    void writeExcerpts();
    [[nodiscard]] std::vector<std::uint32_t> pagesByName() const;
    void writeNames(const std::vector<std::uint32_t> &order);
    [[nodiscard]] std::string namesBlock(std::span<const std::uint32_t> pages) const;
    [[nodiscard]] Postings postingsByTerm(const std::vector<std::uint32_t> &order) const;
    [[nodiscard]] std::uint64_t textBegin(std::uint32_t page) const;
    [[nodiscard]] std::string writeTerms(const std::vector<std::uint32_t> &sorted, const Postings &postings);
    [[nodiscard]] std::string writeWords(char kind, const std::vector<std::string_view> &words);
    void writeRoot(std::size_t pages, std::string_view terms, std::string_view words, std::string_view reversed);

    SearchFileSink m_sink;
    std::pmr::monotonic_buffer_resource m_arena;
    TermTable m_terms;
    std::deque<std::uint32_t> m_text; ///< of all pages: the number of a term, shifted by four bits, and its weight
    std::vector<Page> m_pages;
    Numbers m_kinds;
    Numbers m_places; ///< document and directory, with a tab between
    std::vector<std::string> m_excerpts;
    std::uint32_t m_excerptBlocks = 0;
    std::uint64_t m_version = 0; ///< a checksum of all files
};

} // namespace tavidoc
