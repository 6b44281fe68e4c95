// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "mac_clock.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using namespace std::chrono_literals;

class RunLoopTimersTest : public ::testing::Test {
protected:
    MacClock clock;
    RunLoopTimers timers{clock};
};

}

TEST_F(RunLoopTimersTest, FireOnceAfterTheirDelayUnlessDestroyed)
{
    std::vector<int> fired;
    const auto second = timers.once(1500ms, [&] { fired.push_back(2); });
    const auto first = timers.once(-5s, [&] { fired.push_back(1); });
    auto never = timers.once(1s, [&] { fired.push_back(3); });
    never.reset();
    EXPECT_TRUE(fired.empty()); // never within the call
    mac::runLoop().advance(1499ms);
    EXPECT_EQ(fired, std::vector{1});
    mac::runLoop().advance(10s);
    EXPECT_EQ(fired, (std::vector{1, 2}));
    EXPECT_EQ(mac::runLoop().timers(), 0u);
}

TEST_F(RunLoopTimersTest, ACallbackMayDestroyItsOwnTimerAndStartAnother)
{
    std::vector<int> fired;
    std::unique_ptr<Timer> timer;
    const std::vector<int> held(1000, 7); // lives in the callback: the sanitizer sees it read after its end
    timer = timers.once(1s, [&, held] {
        timer = timers.once(3s, [&] { fired.push_back(2); });
        fired.push_back(held.back());
    });
    mac::runLoop().advance(20s);
    EXPECT_EQ(fired, (std::vector{7, 2}));
}

TEST_F(RunLoopTimersTest, DelaysGoOnWhileTheMacSleeps)
{
    std::vector<int> fired;
    const auto missed = timers.once(60s, [&] { fired.push_back(1); });
    const auto later = timers.once(90s, [&] { fired.push_back(2); });
    mac::runLoop().advance(30s);
    clock.sleep(45s); // 75 s
    mac::runLoop().advance(1s);
    EXPECT_EQ(fired, std::vector{1});
    mac::runLoop().advance(13s); // 89 s
    EXPECT_EQ(fired, std::vector{1});
    mac::runLoop().advance(1s);
    EXPECT_EQ(fired, (std::vector{1, 2}));
}

}
