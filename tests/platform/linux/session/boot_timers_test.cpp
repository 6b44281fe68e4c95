// SPDX-License-Identifier: MIT
#include "harness/wait_until.h"
#include "platform/linux/session/boot_timers.h"
#include "platform/posix/posix_clock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
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
    Instant last;
    const auto third = timers.once(20ms, [&] {
        order.push_back(3);
        last = clock.instant();
    });
    const auto first = timers.once(-5s, [&] { order.push_back(1); });
    const auto second = timers.once(1ms, [&] { order.push_back(2); });
    EXPECT_EQ(order, std::vector<int>{}); // never within the call
    ASSERT_TRUE(waitUntil([&] { return order.size() >= 3; }));
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
    EXPECT_GE(last - start, 20ms);
}

TEST(BootTimers, ADestroyedTimerNeverFires)
{
    BootTimers timers;
    int fired = 0;
    bool later = false;
    std::unique_ptr<Timer> due;
    const auto destroyer = timers.once(0ms, [&] { due.reset(); });
    due = timers.once(1ms, [&] { ++fired; });
    // Both are due when the loop comes round; the first to run destroys the other.
    const PosixClock clock;
    const Instant enough = clock.instant() + 2ms;
    while (clock.instant() < enough) {
    }
    const auto end = timers.once(10ms, [&] { later = true; });
    ASSERT_TRUE(waitUntil([&] { return later; }));
    EXPECT_EQ(fired, 0);
}

TEST(BootTimers, ACallbackMayDestroyItsOwnTimerAndStartAnother)
{
    BootTimers timers;
    std::vector<int> fired;
    std::unique_ptr<Timer> timer;
    const std::vector<int> held(1000, 7); // lives in the callback: the sanitizer sees it read after its end
    timer = timers.once(1ms, [&, held] {
        timer = timers.once(0ms, [&] { fired.push_back(2); });
        fired.push_back(held.back());
    });
    ASSERT_TRUE(waitUntil([&] { return fired.size() == 2; }));
    EXPECT_EQ(fired, (std::vector{7, 2}));
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
    int fired = 0;
    for (int i = 0; i < 1000; ++i)
        many.push_back(timers.once(std::chrono::milliseconds(i % 5), [&] { ++fired; }));
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_TRUE(waitUntil([&] { return fired == 1000; }));
}

}
}
