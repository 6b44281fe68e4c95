// SPDX-License-Identifier: MIT
#include "platform/posix/random_device.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace chimewell::test {
namespace {

TEST(RandomDevice, UuidsAreOfVersionFourAndUnique)
{
    const std::regex form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    RandomDevice random;
    std::set<std::string> seen;
    for (int i = 0; i < 100; ++i) {
        const std::string uuid = random.uuid();
        EXPECT_TRUE(std::regex_match(uuid, form)) << uuid;
        seen.insert(uuid);
    }
    EXPECT_EQ(seen.size(), 100U);
}

TEST(RandomDevice, UnitsSpreadOverTheWholeRange)
{
    RandomDevice random;
    int quarters[4] = {};
    for (int i = 0; i < 1000; ++i) {
        const double unit = random.unit();
        ASSERT_GE(unit, 0.0);
        ASSERT_LE(unit, 1.0);
        ++quarters[std::min(3, static_cast<int>(unit * 4))];
    }
    for (const int count : quarters)
        EXPECT_GT(count, 150); // 250 expected; this low once in 10^13 runs
}

}
}
