// SPDX-License-Identifier: MIT
#include "harness/wait_until.h"
#include "platform/linux/session/boot_timers.h"
#include "platform/posix/posix_clock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

TEST(BootTimers, TickAgainAndAgainButNotEarlyAndFireOnce)
{
    BootTimers timers;
    const PosixClock clock;
    const Instant start = clock.instant();
    std::vector<Instant> ticks;
    int fired = 0;
    const auto repeating = timers.repeat(4ms, [&] { ticks.push_back(clock.instant()); });
    const auto single = timers.once(1ms, [&] { ++fired; });
    ASSERT_TRUE(waitUntil([&] { return ticks.size() == 5; }));
    EXPECT_EQ(fired, 1);
    for (std::size_t i = 0; i < ticks.size(); ++i)
        EXPECT_GE(ticks[i] - start, 4ms * (i + 1)) << i;
}

TEST(BootTimers, FallDueInOrderOfTime)
{
    BootTimers timers;
    std::vector<int> order;
    const auto third = timers.once(500ms, [&] { order.push_back(3); });
    const auto first = timers.once(0ms, [&] { order.push_back(1); });
    const auto second = timers.once(1ms, [&] { order.push_back(2); });
    ASSERT_TRUE(waitUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(BootTimers, ADestroyedTimerNeverTicks)
{
    BootTimers timers;
    int ticks = 0;
    bool later = false;
    std::unique_ptr<Timer> due;
    const auto destroyer = timers.once(0ms, [&] { due.reset(); });
    due = timers.repeat(1ms, [&] { ++ticks; });
    // Both are due when the loop comes round; the first to run destroys the other.
    const PosixClock clock;
    const Instant enough = clock.instant() + 2ms;
    while (clock.instant() < enough) {
    }
    const auto end = timers.once(10ms, [&] { later = true; });
    ASSERT_TRUE(waitUntil([&] { return later; }));
    EXPECT_EQ(ticks, 0);
}

TEST(BootTimers, ATickMayDestroyItsOwnTimerAndStartAnother)
{
    BootTimers timers;
    std::vector<int> ticks;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Timer> next;
    const std::vector<int> held(1000, 7); // lives in the closure: reading it afterwards finds a dead one
    timer = timers.repeat(1ms, [&, held] {
        timer.reset();
        next = timers.once(3ms, [&] { ticks.push_back(2); });
        ticks.push_back(held.back());
    });
    ASSERT_TRUE(waitUntil([&] { return ticks.size() == 2; }));
    EXPECT_EQ(ticks, (std::vector{7, 2}));
}

TEST(BootTimers, PeriodsMissedTogetherTickOnce)
{
    BootTimers timers;
    const PosixClock clock;
    int ticks = 0;
    const auto timer = timers.repeat(100ms, [&] { ++ticks; });
    const Instant enough = clock.instant() + 250ms;
    while (clock.instant() < enough) {
    } // the loop does not run, as in a machine that sleeps
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 1);
}

TEST(BootTimers, ShareOneDescriptor)
{
    const auto openDescriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    BootTimers timers;
    const auto before = openDescriptors();
    std::vector<std::unique_ptr<Timer>> many;
    many.reserve(1000);
    int ticks = 0;
    for (int i = 0; i < 1000; ++i)
        many.push_back(timers.once(std::chrono::milliseconds(i % 5), [&] { ++ticks; }));
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_TRUE(waitUntil([&] { return ticks == 1000; }));
}

}
}
