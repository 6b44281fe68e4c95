// SPDX-License-Identifier: MIT
#include "harness/wait_until.h"
#include "platform/linux/session/boot_timers.h"
#include "platform/posix/posix_clock.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

TEST(BootTimers, FireOnceInOrderOfTimeAndNeverEarly)
{
    BootTimers timers;
    const PosixClock clock;
    const Instant start = clock.instant();
    std::vector<int> order;
    const auto third = timers.once(20ms, [&] { order.push_back(3); });
    const auto first = timers.once(-5s, [&] { order.push_back(1); });
    const auto second = timers.once(1ms, [&] { order.push_back(2); });
    EXPECT_EQ(order, std::vector<int>{}); // never within the call
    ASSERT_TRUE(waitUntil([&] { return order.size() >= 3; }));
    EXPECT_GE(clock.instant() - start, 20ms);
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(BootTimers, ACallbackMayDestroyItsOwnTimerAndOthersAndStartAnother)
{
    BootTimers timers;
    std::vector<int> fired;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Timer> due;
    timer = timers.once(1ms, [&] {
        due.reset();
        timer = timers.once(10ms, [&] { fired.push_back(2); });
        fired.push_back(1);
    });
    due = timers.once(2ms, [&] { fired.push_back(3); });
    const PosixClock clock;
    for (const Instant both = clock.instant() + 3ms; clock.instant() < both;) {
    }
    ASSERT_TRUE(waitUntil([&] { return fired.size() >= 2; }));
    EXPECT_EQ(fired, (std::vector{1, 2}));
}

}
}
