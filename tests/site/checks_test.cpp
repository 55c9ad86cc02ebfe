#include "site/record/checks.h"

#include <gtest/gtest.h>

#include <set>
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
