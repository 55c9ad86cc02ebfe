#include "site/record/checks.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

using namespace tavidoc;

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
    std::ifstream file(TAVIDOC_SOURCE_DIR "/docs/manual/site.dg");
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    const std::string levels[] = {"off", "warning", "error"};
    for (const Check &check : checks()) {
        std::string row = "| \\tt{" + std::string(check.name) + "} | " + levels[static_cast<int>(check.level)] + " | ";
        row.append(check.finds).append("\n");
        EXPECT_NE(page.find(row), std::string::npos) << row;
    }
}
