// Writes the index of the search of the pages that standard input lists, for the tests of the script.
// usage: write_search_index DIRECTORY. A page is a line with tabs: kind, qualified name, title, place, address, heading,
// brief, body. Bytes need not be UTF-8.

#include "site/search/search_index.h"
#include "site/search/terms.h"

#include <array>
#include <fstream>
#include <iostream>
#include <string>

namespace {

enum Column
{
    Kind,
    Name,
    Title,
    Where,
    Address,
    Heading,
    Brief,
    Body,
    Columns,
};

std::array<std::string, Columns> columnsOf(const std::string &line)
{
    std::array<std::string, Columns> columns;
    std::size_t column = 0;
    for (const char c : line) {
        if (c == '\t' && column + 1 < Columns)
            ++column;
        else
            columns[column].push_back(c);
    }
    return columns;
}

} // namespace

int main(int argc, char *argv[])
{
    using namespace tavidoc;
    if (argc != 2)
        return 2;
    const std::string folder = argv[1];
    SearchIndex index([&folder](const std::string &name, std::string_view bytes) {
        std::ofstream(folder + '/' + name, std::ios::binary) << bytes;
    });
    for (std::string line; std::getline(std::cin, line);) {
        const auto page = columnsOf(line);
        TermCollector terms;
        terms.add(TermField::Name, page[Name]);
        terms.add(TermField::Title, page[Title]);
        terms.add(TermField::Heading, page[Heading]);
        terms.add(TermField::Brief, page[Brief]);
        terms.add(TermField::Body, page[Body]);
        const std::uint32_t number = index.addText(terms.takeTerms(), page[Brief] + ' ' + page[Body]);
        index.place(number, {.name = page[Name].empty() ? page[Title] : page[Name],
                             .kind = page[Kind],
                             .address = page[Address],
                             .where = page[Where]});
    }
    index.finish();
    return std::cin.bad() ? 1 : 0;
}
