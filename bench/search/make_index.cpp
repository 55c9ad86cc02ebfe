// Makes the index of the search of a set of pages, and queries for it.
// usage: search_index PAGES COPIES OUTPUT; PAGES is what make_pages.mjs writes. Copies of a page have names made of the
// parts of other names, the same for the same arguments.

#include "site/search/search_index.h"
#include "site/search/terms.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <sys/resource.h>

using namespace tavidoc;

namespace {

constexpr std::size_t s_queriesOfKind = 250;

struct Page
{
    std::string name; ///< qualified, or a title
    std::string title;
    std::string kind;
    std::string where;
    std::string folder;
    std::string file;
    std::string brief;
    std::string excerpt;
    std::vector<RecordTerm> terms; ///< without those of the name
};

/// Numbers that are the same with every library.
class Random
{
public:
    std::size_t below(std::size_t end) { return m_engine() % end; }

private:
    std::mt19937 m_engine{20261};
};

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Page pageOf(const QByteArray &line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const auto text = [&object](const char *key) {
        return object.value(QLatin1StringView(key)).toString().toStdString();
    };
    Page page;
    page.name = text("name");
    page.title = text("title");
    page.kind = text("kind");
    page.where = text("where");
    page.folder = text("folder");
    page.file = text("file");
    page.brief = text("brief");
    const std::string body = text("body");
    page.excerpt = (page.brief + ' ' + body).substr(0, 2000);
    TermCollector terms;
    terms.add(TermField::Title, page.title);
    terms.add(TermField::Brief, page.brief);
    terms.add(TermField::Body, body);
    page.terms = terms.takeTerms();
    return page;
}

std::vector<Page> readPages(const char *file)
{
    QFile source(QString::fromLocal8Bit(file));
    if (!source.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read the pages");
    std::vector<Page> pages;
    while (!source.atEnd())
        pages.push_back(pageOf(source.readLine()));
    return pages;
}

std::string bareName(const std::string &name)
{
    const std::size_t scope = name.rfind("::");
    return scope == std::string::npos ? name : name.substr(scope + 2);
}

bool isLetter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

/// Where the parts of an identifier begin.
std::vector<std::size_t> partsOf(const std::string &name)
{
    std::vector<std::size_t> begins;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isUpper = std::isupper(static_cast<unsigned char>(name[i])) != 0;
        const bool wasLower = i > 0 && std::islower(static_cast<unsigned char>(name[i - 1])) != 0;
        if (isLetter(name[i]) && (i == 0 || !isLetter(name[i - 1]) || (isUpper && wasLower)))
            begins.push_back(i);
    }
    return begins;
}

std::string partAt(const std::string &name, const std::vector<std::size_t> &begins, std::size_t i)
{
    std::size_t end = i + 1 < begins.size() ? begins[i + 1] : name.size();
    while (end > begins[i] && !isLetter(name[end - 1]))
        --end;
    return name.substr(begins[i], end - begins[i]);
}

/// \a name with each of its parts, or the same number of others, taken from names of the set.
std::string varied(const std::string &name, const std::vector<std::string> &vocabulary, Random &random)
{
    if (std::ranges::any_of(name, [](char c) { return !isLetter(c) && c != '_'; }))
        return name; // an operator
    const std::vector<std::size_t> begins = partsOf(name);
    std::string result = name.substr(0, begins.empty() ? name.size() : begins[0]);
    for (std::size_t i = 0; i < begins.size(); ++i) {
        const std::string part = partAt(name, begins, i);
        const std::size_t end = i + 1 < begins.size() ? begins[i + 1] : name.size();
        const bool isKept = begins.size() > 1 && random.below(3) == 0;
        result += isKept ? part : vocabulary[random.below(vocabulary.size())];
        result += name.substr(begins[i] + part.size(), end - begins[i] - part.size());
    }
    return result;
}

std::vector<std::string> vocabularyOf(const std::vector<Page> &pages)
{
    std::vector<std::string> parts;
    for (const Page &page : pages) {
        const std::string name = bareName(page.name);
        const std::vector<std::size_t> begins = partsOf(name);
        for (std::size_t i = 0; i < begins.size(); ++i)
            parts.push_back(partAt(name, begins, i));
    }
    return parts;
}

/// The terms of a page with those of its name.
std::vector<RecordTerm> withName(const std::vector<RecordTerm> &terms, const std::string &name)
{
    TermCollector collector;
    collector.add(TermField::Name, name);
    std::vector<RecordTerm> all = collector.takeTerms();
    all.insert(all.end(), terms.begin(), terms.end());
    std::ranges::sort(all, [](const RecordTerm &left, const RecordTerm &right) {
        return left.text != right.text ? left.text < right.text : left.weight > right.weight;
    });
    const auto rest = std::ranges::unique(all, {}, &RecordTerm::text);
    all.erase(rest.begin(), rest.end());
    return all;
}

std::string misspelt(std::string name, Random &random)
{
    const std::size_t at = random.below(name.size());
    const char letter = static_cast<char>('a' + random.below(26));
    switch (random.below(4)) {
    case 0:
        return name.insert(at, 1, letter);
    case 1:
        return name.erase(at, 1);
    case 2:
        name[at] = letter;
        return name;
    default:
        std::swap(name[at], name[at + 1 < name.size() ? at + 1 : at - 1]);
        return name;
    }
}

std::vector<std::string> longWords(const std::string &text)
{
    std::vector<std::string> words;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isLetter(text[end]))
            ++end;
        if (end - at > 3)
            words.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return words;
}

/// Draws queries of each kind from the names of a set.
class Queries
{
public:
    Queries(const std::vector<std::string> &names, const std::vector<Page> &pages) : m_names(names), m_pages(pages)
    {
        for (const std::string &name : names)
            m_folded.push_back(foldedTerm(std::string_view(bareName(name))));
        std::ranges::sort(m_folded);
    }

    QJsonArray drawn()
    {
        draw("exact", [](const std::string &name) { return bareName(name); });
        draw("qualified", [](const std::string &name) { return name.find("::") == name.npos ? std::string() : name; });
        draw("prefix", [](const std::string &name) { return prefixOf(bareName(name)); });
        draw("one edit", [this](const std::string &name) { return misspeltName(bareName(name)); });
        draw("inner words", [this](const std::string &name) { return innerWord(bareName(name)); });
        for (std::size_t left = s_queriesOfKind; left > 0;) {
            const std::size_t page = m_random.below(m_names.size());
            const std::vector<std::string> words = longWords(m_pages[page % m_pages.size()].brief);
            if (words.size() < 2 || m_names[page].empty())
                continue;
            const std::size_t first = m_random.below(words.size() - 1);
            const std::size_t second = first + 1 + m_random.below(words.size() - first - 1);
            append("two words", words[first] + ' ' + words[second], m_names[page]);
            --left;
        }
        return m_queries;
    }

private:
    template <typename Make> void draw(const char *kind, Make make)
    {
        for (std::size_t left = s_queriesOfKind; left > 0;) {
            const std::string &name = m_names[m_random.below(m_names.size())];
            const std::string query = make(name);
            if (query.empty())
                continue;
            append(kind, query, name);
            --left;
        }
    }

    static std::string prefixOf(const std::string &name)
    {
        return name.size() < 6 ? std::string() : name.substr(0, std::max<std::size_t>(4, (name.size() * 6 + 9) / 10));
    }

    /// Nothing if the misspelt name is a name as well or begins one.
    std::string misspeltName(const std::string &name)
    {
        if (name.size() < 5)
            return {};
        std::string query = misspelt(name, m_random);
        const std::string folded = foldedTerm(std::string_view(query));
        const auto next = std::ranges::lower_bound(m_folded, folded);
        return next != m_folded.end() && next->starts_with(folded) ? std::string() : query;
    }

    std::string innerWord(const std::string &name)
    {
        const std::vector<std::size_t> begins = partsOf(name);
        if (begins.size() < 2)
            return {};
        std::string part = partAt(name, begins, 1 + m_random.below(begins.size() - 1));
        return part.size() < 4 ? std::string() : part;
    }

    void append(const char *kind, const std::string &query, const std::string &name)
    {
        m_queries.append(QJsonObject{{QStringLiteral("kind"), QString::fromLatin1(kind)},
                                     {QStringLiteral("query"), QString::fromStdString(query)},
                                     {QStringLiteral("name"), QString::fromStdString(name)}});
    }

    const std::vector<std::string> &m_names;
    const std::vector<Page> &m_pages;
    std::vector<std::string> m_folded;
    Random m_random;
    QJsonArray m_queries;
};

/// Writes files and counts their bytes.
class Output
{
public:
    explicit Output(std::string folder) : m_folder(std::move(folder)) {}

    void write(const std::string &name, std::string_view bytes)
    {
        std::ofstream(m_folder + "/search/" + name, std::ios::binary) << bytes;
        m_bytes[static_cast<unsigned char>(name.starts_with("root") ? 'r' : name.front())] += bytes.size();
        ++m_files;
    }

    void report(std::size_t pages) const
    {
        double index = 0;
        for (const char kind : {'r', 'n', 't', 'w', 'b', 'x'}) {
            const double perPage =
                static_cast<double>(m_bytes[static_cast<unsigned char>(kind)]) / static_cast<double>(pages);
            std::printf(" %c %.0f", kind, perPage);
            index += kind == 'x' ? 0 : perPage;
        }
        std::printf(" bytes a page; without excerpts %.3f KB a page; %zu files\n", index / 1024, m_files);
    }

private:
    std::string m_folder;
    std::size_t m_bytes[256] = {};
    std::size_t m_files = 0;
};

void run(const char *file, std::size_t copies, const std::string &folder)
{
    const std::vector<Page> pages = readPages(file);
    const std::vector<std::string> vocabulary = vocabularyOf(pages);
    Output output(folder);
    SearchIndex index([&output](const std::string &name, std::string_view bytes) { output.write(name, bytes); });
    std::vector<std::string> names;
    Random random;
    double seconds = 0;
    for (std::size_t copy = 0; copy < copies; ++copy) {
        for (const Page &page : pages) {
            std::string name = page.name;
            if (copy > 0 && !name.empty())
                name = name.substr(0, name.size() - bareName(name).size()) + varied(bareName(name), vocabulary, random);
            const std::vector<RecordTerm> terms = page.name.empty() ? page.terms : withName(page.terms, name);
            const std::string address = std::to_string(copy) + '/' + page.folder + '/' +
                                        (page.file.empty() ? std::to_string(names.size()) : page.file) + ".htm";
            const auto start = std::chrono::steady_clock::now();
            const std::uint32_t number = index.addText(terms, page.excerpt);
            index.place(
                number,
                {.name = name.empty() ? page.title : name, .kind = page.kind, .address = address, .where = page.where});
            seconds += secondsSince(start);
            names.push_back(std::move(name));
        }
    }
    const auto start = std::chrono::steady_clock::now();
    index.finish();
    seconds += secondsSince(start);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%zu pages: index %.2f s, at most %ld MB;", names.size(), seconds, usage.ru_maxrss / 1024);
    output.report(names.size());
    QFile queries(QString::fromStdString(folder + "/queries.js"));
    if (!queries.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write the queries");
    queries.write("var queries = " + QJsonDocument(Queries(names, pages).drawn()).toJson(QJsonDocument::Compact) +
                  ";\n");
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 4) {
        std::fputs("usage: search_index PAGES COPIES OUTPUT\n", stderr);
        return 2;
    }
    run(argv[1], std::stoul(argv[2]), argv[3]);
    return 0;
}
