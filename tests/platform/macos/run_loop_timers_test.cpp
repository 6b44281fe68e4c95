// SPDX-License-Identifier: MIT
#include "platform/macos/run_loop_timers.h"

#include "objective_c.h"
#include "support/fake_time.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;
using namespace std::chrono_literals;

std::vector<Value> made; ///< Every timer of the run loop.

class RunLoopTimersTest : public ::testing::Test {
protected:
    RunLoopTimersTest()
    {
        reset();
        made.clear();
        implement(
            "timerWithTimeInterval:repeats:block:",
            +[](Id, const char*, double interval, bool, void (^block)(Id)) -> Id {
                made.push_back(
                    object({{"seconds", static_cast<long>(interval)}, {"block", Word(keep(block))}}));
                return made.back();
            });
        implement("invalidate", +[](Id timer, const char*) { Value(timer).set("isInvalid", true); });
        implement(
            "endActivity:", +[](Id process, const char*, Id) { Value(process).set("isNapping", true); });
        shared("sharedWorkspace").set("notificationCenter", object());
        timers = std::make_unique<RunLoopTimers>(time);
    }

    static void wake()
    {
        notify(shared("sharedWorkspace")["notificationCenter"], "NSWorkspaceDidWakeNotification");
    }
    static void ring() { made.back()["block"].as<void (^)(Id)>()(made.back()); }

    FakeTime time;
    std::unique_ptr<RunLoopTimers> timers;
    int fired = 0;
    const std::function<void()> fire = [this] { ++fired; };
};

}

TEST_F(RunLoopTimersTest, FireOnceFromTheRunLoop)
{
    const Value process = shared("processInfo");
    const auto timer = timers->once(15s, fire);
    EXPECT_EQ(made.back()["seconds"], Value(15L));
    EXPECT_EQ(process["options"], Value(0xEFFFFF)); // no App Nap, but the Mac may sleep
    EXPECT_EQ(process["isNapping"], Value(nullptr));
    EXPECT_EQ(shared("mainRunLoop")["addTimer"], made.back());
    EXPECT_EQ(shared("mainRunLoop")["forMode"].text(), "NSRunLoopCommonModes"); // also while a menu is open
    ring();
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(process["isNapping"], Value(true));
    wake();
    EXPECT_EQ(made.size(), 1U);
    const auto past = timers->once(-5s, fire);
    EXPECT_EQ(made.back()["seconds"], Value(0L));
}

TEST_F(RunLoopTimersTest, StopWhenTheyAreDestroyed)
{
    timers->once(1s, fire).reset();
    EXPECT_EQ(made.back()["isInvalid"], Value(true));
    wake();
    EXPECT_EQ(made.size(), 1U);
}

TEST_F(RunLoopTimersTest, ACallbackMayReplaceItsOwnTimer)
{
    std::unique_ptr<Timer> timer;
    timer = timers->once(1s, [&, held = std::vector(1000, 1)] {
        timer = timers->once(3s, fire);
        fired += held.back(); // the sanitizer sees it read after its end
    });
    ring();
    ring();
    EXPECT_EQ(fired, 2);
}

TEST_F(RunLoopTimersTest, DelaysGoOnWhileTheMacSleeps)
{
    const auto timer = timers->once(60s, fire);
    time.sleep(45s);
    wake();
    EXPECT_EQ(made.front()["isInvalid"], Value(true));
    EXPECT_EQ(made.back()["seconds"], Value(15L));
}

}
