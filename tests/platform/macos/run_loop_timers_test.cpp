// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "objective_c.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;
using namespace std::chrono_literals;

struct ScheduledTimer {
    Id timer;
    double due; ///< In seconds that the Mac is awake.
    void (^block)(Id);
};

double awake;
std::vector<ScheduledTimer> scheduled;

/// Goes on while the Mac sleeps.
class MacClock : public Clock {
public:
    Date now() const override { return {}; }
    Instant instant() const override
    {
        return Instant(
            std::chrono::round<std::chrono::nanoseconds>(std::chrono::duration<double>(awake + asleep)));
    }

    double asleep = 0;
};

class RunLoopTimersTest : public ::testing::Test {
protected:
    RunLoopTimersTest()
    {
        reset();
        awake = 0;
        scheduled.clear();
        implement(
            "timerWithTimeInterval:repeats:block:",
            +[](Id, const char*, double interval, bool, void (^block)(Id)) -> Id {
                scheduled.push_back({object(), awake + interval, keep(block)});
                return scheduled.back().timer;
            });
        implement(
            "addTimer:forMode:", +[](Id, const char*, Id, Id mode) {
                EXPECT_EQ(Value(mode).text(), "NSRunLoopCommonModes"); // also while a menu is open
            });
        implement(
            "invalidate", +[](Id timer, const char*) {
                std::erase_if(scheduled, [&](const ScheduledTimer& each) { return each.timer == timer; });
            });
        shared("sharedWorkspace").set("notificationCenter", object());
        timers = std::make_unique<RunLoopTimers>(clock);
    }

    static void advance(double seconds)
    {
        const double end = awake + seconds;
        while (!scheduled.empty()) {
            const auto next = std::ranges::min_element(scheduled, {}, &ScheduledTimer::due);
            if (next->due > end) break;
            awake = std::max(awake, next->due);
            const ScheduledTimer rings = *next;
            scheduled.erase(next);
            rings.block(rings.timer);
        }
        awake = end;
    }

    MacClock clock;
    std::unique_ptr<RunLoopTimers> timers;
    std::vector<double> fired; ///< The times.
    const std::function<void()> fire = [this] { fired.push_back(awake + clock.asleep); };
};

}

TEST_F(RunLoopTimersTest, FireOnceAfterTheirDelayUnlessDestroyed)
{
    const auto second = timers->once(1500ms, fire);
    const auto past = timers->once(-5s, fire);
    timers->once(1s, fire).reset();
    EXPECT_TRUE(fired.empty()); // never within the call
    advance(10);
    EXPECT_EQ(fired, (std::vector{0., 1.5}));
}

TEST_F(RunLoopTimersTest, ACallbackMayReplaceItsOwnTimer)
{
    std::unique_ptr<Timer> timer;
    timer = timers->once(1s, [&, held = std::vector(1000, 0.5)] {
        timer = timers->once(3s, fire);
        fired.push_back(held.back()); // the sanitizer sees it read after its end
    });
    advance(10);
    EXPECT_EQ(fired, (std::vector{0.5, 4.}));
}

TEST_F(RunLoopTimersTest, DelaysGoOnWhileTheMacSleeps)
{
    const auto missed = timers->once(60s, fire);
    const auto later = timers->once(90s, fire);
    timers->once(70s, fire).reset();
    advance(30);
    clock.asleep += 45;
    notify(shared("sharedWorkspace")["notificationCenter"], "NSWorkspaceDidWakeNotification");
    advance(40);
    EXPECT_EQ(fired, (std::vector{75., 90.}));
}

}
