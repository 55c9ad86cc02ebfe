#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

/// The rooms that a room may include, in addition to itself.
struct Rule
{
    std::string room;
    Names mayInclude;
};

const std::vector<Rule> &rules()
{
    static const std::vector<Rule> table = {
        {"base", {}},
        {"sourcebrowser", {"base"}},
        {"codeedit", {"base"}},
        {"definitions", {"base"}},
        {"reading", {"base"}},
        {"pages", {"base"}},
        {"markup", {"pages", "reading", "definitions", "codeedit", "base"}},
        {"apiref", {"markup", "pages", "reading", "definitions", "sourcebrowser", "base"}},
        {"docgen", {"apiref", "markup", "pages", "reading", "definitions", "base"}},
        {"driver", {"docgen", "pages", "base"}},
        {"site/record", {"base"}},
        {"site/search", {"site/record"}},
        {"site/compile", {"site/search", "site/record", "docgen", "apiref", "markup", "pages", "reading", "base"}},
        {"site/link", {"site/record", "base"}},
        {"site/exchange", {"site/link", "base"}},
        {"site/lexers", {}},
        {"site/render", {"site/lexers", "site/link", "site/record", "pages", "base"}},
        {"site/command",
         {"site/render", "site/exchange", "site/link", "site/compile", "site/search", "site/record", "base"}},
        {"tools", {"docgen", "markup", "reading", "codeedit", "base"}},
    };
    return table;
}

Names includesOf(const fs::path &file)
{
    const std::string opening = "#include \"";
    Names names;
    std::ifstream source(file);
    for (std::string line; std::getline(source, line);) {
        if (line.rfind(opening, 0) == 0)
            names.push_back(line.substr(opening.size(), line.find('"', opening.size()) - opening.size()));
    }
    return names;
}

/// The folder of a header: "markup", "site/link".
std::string roomOf(const std::string &header)
{
    return header.substr(0, header.rfind('/'));
}

/// All folders with sources, relative to "src".
Names rooms()
{
    const fs::path top = fs::path(TAVIDOC_SOURCE_DIR) / "src";
    Names names;
    for (const auto &folder : fs::recursive_directory_iterator(top)) {
        if (folder.is_directory() && folder.path().filename() != "site")
            names.push_back(fs::relative(folder.path(), top).string());
    }
    return names;
}

bool isAllowed(const Rule &rule, const std::string &room)
{
    return room == rule.room || std::ranges::find(rule.mayInclude, room) != rule.mayInclude.end();
}

} // namespace

TEST(Layering, EveryRoomIncludesTheRoomsOfItsRule)
{
    for (const std::string &room : rooms()) {
        const auto rule = std::ranges::find(rules(), room, &Rule::room);
        ASSERT_NE(rule, rules().end()) << "no rule for " << room;
        Names unused = rule->mayInclude;
        for (const auto &file : fs::directory_iterator(fs::path(TAVIDOC_SOURCE_DIR) / "src" / room)) {
            for (const std::string &header : includesOf(file.path())) {
                std::erase(unused, roomOf(header));
                EXPECT_TRUE(isAllowed(*rule, roomOf(header))) << file.path() << " includes " << header;
            }
        }
        EXPECT_TRUE(unused.empty()) << room << " does not use " << unused.front();
    }
}

TEST(Layering, HasNoCycles)
{
    // A room may use only rooms that precede it in the table, so there is no cycle.
    Names above;
    for (const Rule &rule : rules()) {
        for (const std::string &room : rule.mayInclude)
            EXPECT_NE(std::ranges::find(above, room), above.end()) << rule.room << " uses " << room;
        above.push_back(rule.room);
    }
}
