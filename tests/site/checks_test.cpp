#include "site/record/checks.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

using namespace tavidoc;

namespace {

std::string manualPage(const std::string &name)
{
    std::ifstream file(TAVIDOC_SOURCE_DIR "/docs/manual/" + name + ".dg");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(Checks, AreFoundByTheirNames)
{
    std::set<std::string_view> names;
    for (const Check &check : checks()) {
        EXPECT_TRUE(names.insert(check.name).second) << check.name;
        ASSERT_TRUE(checkNamed(check.name));
        EXPECT_EQ(checkNamed(check.name)->level, check.level);
    }
    EXPECT_FALSE(checkNamed("dead-links"));
}

TEST(Checks, AreInTheManual)
{
    const std::string page = manualPage("site");
    const std::string messages = manualPage("messages");
    const std::string levels[] = {"off", "warning", "error"};
    for (const Check &check : checks()) {
        std::string row = "| \\tt{" + std::string(check.name) + "} | " + levels[static_cast<int>(check.level)] + " | ";
        row.append(check.finds).append("\n");
        EXPECT_NE(page.find(row), std::string::npos) << row;
        EXPECT_NE(messages.find("| \\tt{" + std::string(check.name) + "} | "), std::string::npos) << check.name;
    }
}
