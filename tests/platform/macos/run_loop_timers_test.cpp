// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "mac_clock.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using namespace std::chrono_literals;

class RunLoopTimersTest : public ::testing::Test {
protected:
    /// Notes the time of each tick, in seconds since the start.
    std::function<void()> note(std::vector<double>& ticks)
    {
        return [this, &ticks] {
            ticks.push_back(std::chrono::duration<double>(clock.instant() - start).count());
        };
    }

    MacClock clock;
    const Instant start = clock.instant();
    RunLoopTimers timers{clock};
};

}

TEST_F(RunLoopTimersTest, TickByTheirPeriodsUntilDestroyed)
{
    std::vector<double> repeated;
    std::vector<double> single;
    auto repeating = timers.repeat(1500ms, note(repeated));
    const auto once = timers.once(2s, note(single));
    auto never = timers.once(2s, note(single));
    never.reset();
    mac::runLoop().advance(1499ms);
    EXPECT_EQ(repeated, std::vector<double>{});
    mac::runLoop().advance(4s);
    EXPECT_EQ(repeated, (std::vector<double>{1.5, 3, 4.5}));
    repeating.reset();
    mac::runLoop().advance(10s);
    EXPECT_EQ(repeated.size(), 3u);
    EXPECT_EQ(single, std::vector<double>{2});
}

TEST_F(RunLoopTimersTest, ATickMayDestroyItsOwnTimerOrAnother)
{
    std::vector<int> ticks;
    std::unique_ptr<Timer> other;
    std::unique_ptr<Timer> next;
    const std::vector<int> held(1000, 7); // lives in the closure: reading it afterwards finds a dead one
    for (const bool repeats : {true, false}) {
        std::unique_ptr<Timer> own;
        other = timers.repeat(2s, [&] { ticks.push_back(1); });
        const auto tick = [&, held] {
            own.reset();
            other.reset();
            next = timers.once(3s, [&] { ticks.push_back(2); });
            ticks.push_back(held.back());
        };
        own = repeats ? timers.repeat(1s, tick) : timers.once(1s, tick);
        mac::runLoop().advance(1s);
        EXPECT_EQ(mac::runLoop().timers(), 1u); // those that were destroyed wake nobody
        mac::runLoop().advance(20s);
        EXPECT_EQ(std::exchange(ticks, {}), (std::vector{7, 2}));
    }
}

TEST_F(RunLoopTimersTest, PeriodsGoOnWhileTheMacSleepsAndThoseMissedTickOnce)
{
    std::vector<double> repeated;
    std::vector<double> single;
    const auto repeating = timers.repeat(60s, note(repeated));
    const auto once = timers.once(90s, note(single));
    mac::runLoop().advance(30s);
    clock.sleep(45s); // 75 s: one period has passed
    mac::runLoop().advance(1s);
    ASSERT_EQ(repeated.size(), 1u);
    EXPECT_NEAR(repeated[0], 75, 0.01);
    mac::runLoop().advance(20s); // 96 s
    ASSERT_EQ(single.size(), 1u);
    EXPECT_DOUBLE_EQ(single[0], 90);
    clock.sleep(234s); // 330 s: four periods together
    mac::runLoop().advance(60s);
    ASSERT_EQ(repeated.size(), 3u);
    EXPECT_NEAR(repeated[1], 330, 0.01);
    EXPECT_DOUBLE_EQ(repeated[2], 360); // back in step with the beginning
}

TEST_F(RunLoopTimersTest, AnyDelayIsAllowed)
{
    int ticks = 0;
    const auto now = timers.once(0ms, [&] { ++ticks; });
    const auto past = timers.once(-5s, [&] { ++ticks; });
    EXPECT_EQ(ticks, 0); // never within the call
    mac::runLoop().advance(1ms);
    EXPECT_EQ(ticks, 2);
    const auto fastest = timers.repeat(0ms, [&] { ++ticks; });
    mac::runLoop().advance(100ms);
    EXPECT_LE(ticks, 102);
}

}
