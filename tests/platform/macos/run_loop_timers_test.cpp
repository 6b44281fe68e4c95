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

class RunLoopTimersTest : public ::testing::Test {
protected:
    RunLoopTimersTest()
    {
        reset();
        implement("endActivity:", [](Id process, const char*, Id) { Value(process).set("isNapping", true); });
        shared("sharedWorkspace").set("notificationCenter", object());
        timers = std::make_unique<RunLoopTimers>(time);
    }

    std::vector<Value>& made = madeTimers();
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
    ring(made.back());
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(process["isNapping"], Value(true));
    const auto past = timers->once(-5s, fire);
    EXPECT_EQ(made.back()["seconds"], Value(0L));
    timers->once(1s, fire).reset();
    EXPECT_EQ(made.back()["isInvalid"], Value(true));
}

TEST_F(RunLoopTimersTest, ACallbackMayReplaceItsOwnTimer)
{
    std::unique_ptr<Timer> timer;
    timer = timers->once(1s, [&, held = std::vector(1000, 1)] {
        timer = timers->once(3s, fire);
        fired += held.back(); // the sanitizer sees it read after its end
    });
    ring(made.back());
    ring(made.back());
    EXPECT_EQ(fired, 2);
}

TEST_F(RunLoopTimersTest, DelaysGoOnWhileTheMacSleeps)
{
    const auto rung = timers->once(60s, fire);
    ring(made.back());
    timers->once(60s, fire).reset();
    const auto timer = timers->once(60s, fire);
    const Value before = made.back();
    time.sleep(45s);
    notify(shared("sharedWorkspace")["notificationCenter"], "NSWorkspaceDidWakeNotification");
    EXPECT_EQ(made.size(), 4U); // only the one that still waits is set again
    EXPECT_EQ(before["isInvalid"], Value(true));
    EXPECT_EQ(made.back()["seconds"], Value(15L));
}

}
