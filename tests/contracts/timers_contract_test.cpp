// SPDX-License-Identifier: MIT
// What everybody expects of Timers: of the fake of the other tests, and of the real ones.
#include "harness/wait_until.h"
#include "platform/linux/session/boot_timers.h"
#include "platform/posix/posix_clock.h"
#include "support/fake_time.h"

#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

class TimersContract : public ::testing::TestWithParam<bool> {
protected:
    bool comesTrue(const std::function<bool()>& condition)
    {
        return waitUntil([&] {
            fake.advance(1ms);
            return condition();
        });
    }

    FakeTime fake;
    BootTimers boot;
    const PosixClock posix;
    Timers& timers = GetParam() ? static_cast<Timers&>(boot) : fake;
    const Clock& clock = GetParam() ? static_cast<const Clock&>(posix) : fake;
};

INSTANTIATE_TEST_SUITE_P(Time, TimersContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "Real" : "Fake"; });

TEST_P(TimersContract, FireOnceInOrderOfTimeAndNeverEarly)
{
    const Instant start = clock.instant();
    std::vector<int> order;
    const auto third = timers.once(20ms, [&] { order.push_back(3); });
    const auto first = timers.once(-5s, [&] { order.push_back(1); });
    const auto second = timers.once(1ms, [&] { order.push_back(2); });
    EXPECT_EQ(order, std::vector<int>{}); // never within the call
    ASSERT_TRUE(comesTrue([&] { return order.size() >= 3; }));
    EXPECT_GE(clock.instant() - start, 20ms);
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST_P(TimersContract, ACallbackMayDestroyItsOwnTimerAndOthersAndStartAnother)
{
    std::vector<int> fired;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Timer> due;
    timer = timers.once(1ms, [&] {
        due.reset();
        timer = timers.once(10ms, [&] { fired.push_back(2); });
        fired.push_back(1);
    });
    due = timers.once(2ms, [&] { fired.push_back(3); });
    for (const Instant both = clock.instant() + 3ms; clock.instant() < both;)
        fake.sleep(1ms); // the real one passes by itself
    ASSERT_TRUE(comesTrue([&] { return fired.size() >= 2; }));
    EXPECT_EQ(fired, (std::vector{1, 2}));
}

}
}
