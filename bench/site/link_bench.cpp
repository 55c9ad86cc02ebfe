// Links a set of generated records in memory and prints what it took: the processor time of link() itself, and the peak of the
// process before and after it.
//
//     link_bench PAGES [SHAPE]
//
// SHAPE is "plain" (documents of twelve pages that link to each other), "deep" (every entry below the one before),
// "chain" (every document includes the next one), "titles" (one title for all pages, and links to it) or "dead" (links
// to names that nobody has).

#include "site/link/link.h"

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

namespace {

using namespace tavidoc;

constexpr unsigned s_pagesOfRecord = 12;

double peakMegabytes()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

std::string qualifiedName(unsigned page)
{
    return "library" + std::to_string(page % 7) + "::Class" + std::to_string(page / s_pagesOfRecord) + "::member" +
           std::to_string(page);
}

class Generator
{
public:
    Generator(unsigned pageCount, std::string_view shape) : m_pageCount(pageCount), m_shape(shape) {}

    [[nodiscard]] std::vector<Record> records() const
    {
        std::vector<Record> records((m_pageCount + s_pagesOfRecord - 1) / s_pagesOfRecord);
        for (unsigned record = 0; record < records.size(); ++record)
            fill(records[record], record, static_cast<unsigned>(records.size()));
        return records;
    }

private:
    void fill(Record &record, unsigned index, unsigned count) const
    {
        record.folder = "part" + std::to_string(index / 50);
        record.input = record.folder + "/input" + std::to_string(index) + ".dg";
        record.title = "Document " + std::to_string(index);
        record.files = {{record.input, true}};
        for (unsigned i = 0; i < s_pagesOfRecord && index * s_pagesOfRecord + i < m_pageCount; ++i) {
            record.pages.push_back(page(index * s_pagesOfRecord + i));
            const unsigned depth = m_shape == "deep" ? i : i == 0 ? 0 : 1;
            record.contents.push_back(
                {RecordEntry::Kind::Page, false, depth, record.pages.back().stem, {}, {0, i + 1}});
        }
        if ((m_shape == "chain" || m_shape == "deep") && index + 1 < count) {
            const unsigned depth = record.contents.back().depth + 1;
            const std::string target = "input" + std::to_string(index + 1) + ".xml";
            record.contents.push_back({RecordEntry::Kind::Include, false, depth, target, {}, {0, 99}});
        }
    }

    [[nodiscard]] RecordPage page(unsigned number) const
    {
        RecordPage page;
        const bool isDeclaration = number % s_pagesOfRecord >= 4;
        page.stem = (isDeclaration ? "Class.member" : "chapter") + std::to_string(number);
        page.title = m_shape == "titles" ? "One title of all pages"
                     : isDeclaration     ? "member" + std::to_string(number)
                                         : "The chapter with the number " + std::to_string(number);
        if (isDeclaration) {
            page.kind = RecordPageKind::Declaration;
            page.declaration = "function";
            page.qualifiedName = qualifiedName(number);
        }
        page.place = {0, number % s_pagesOfRecord};
        for (unsigned i = 0; i < 3; ++i)
            page.headings.push_back({i * 100, 2, "heading-" + std::to_string(i), "Heading"});
        for (unsigned i = 0; i < 6; ++i)
            page.links.push_back(link(number, i));
        return page;
    }

    [[nodiscard]] RecordLink link(unsigned from, unsigned i) const
    {
        RecordLink link;
        link.place = {0, i};
        const unsigned to = (from * 31 + i * 7919 + 4) % m_pageCount;
        const bool isDeclaration = to % s_pagesOfRecord >= 4;
        link.target = (isDeclaration ? "Class.member" : "chapter") + std::to_string(to);
        if (isDeclaration && i % 2 == 1)
            link.target = i == 1 ? qualifiedName(to) : "member" + std::to_string(to);
        if (m_shape == "titles")
            link.target = "One title of all pages";
        if (m_shape == "dead")
            link.target = "nobody has the name " + std::to_string(to);
        return link;
    }

    unsigned m_pageCount;
    std::string_view m_shape;
};

} // namespace

int main(int argc, char *argv[])
{
    const int pageCount = argc > 1 ? std::atoi(argv[1]) : 0;
    if (pageCount <= 0) {
        std::fputs("usage: link_bench PAGES [plain|deep|chain|titles|dead]\n", stderr);
        return 2;
    }
    const std::vector<Record> records =
        Generator(static_cast<unsigned>(pageCount), argc > 2 ? argv[2] : "plain").records();
    const double recordsPeak = peakMegabytes();
    const std::clock_t start = std::clock();
    std::size_t entries = 0;
    const auto count = [&entries](std::size_t, RecordLinks links) {
        for (const PageLinks &page : links.pages)
            entries += page.navigation.size() + page.links.size();
    };
    const LinkSummary summary = link(records, {}, count);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    std::printf("%d pages: %.2f s of CPU, %.0f MB for records, %.0f MB at most, %zu findings, %zu entries and links\n",
                pageCount, seconds, recordsPeak, peakMegabytes(), summary.findings.size(), entries);
    return 0;
}
