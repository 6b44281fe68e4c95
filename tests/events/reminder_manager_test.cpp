// SPDX-License-Identifier: MIT
#include "events/reminder_manager.h"

#include "core/services.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

class ReminderManagerTest : public ::testing::Test {
protected:
    ReminderManagerTest()
    {
        reminders.onFire = [this](const EventPayload& payload) { fired.push_back(payload); };
    }

    static EventPayload waiting(std::optional<std::string> session)
    {
        return {.type = CanonicalEvent::waitingInput, .provider = "claude", .session = std::move(session)};
    }

    FakeSystem system;
    Services services{system.ports()};
    FakeTime& time = system.time;
    ReminderManager& reminders = services.reminders;
    std::vector<EventPayload> fired;
};

TEST_F(ReminderManagerTest, StopsAfterTheLastPermittedReminder)
{
    reminders.arm(waiting("S"), 60, 3);
    time.advance(2min);
    EXPECT_EQ(fired.size(), 2u);
    time.advance(10min);
    EXPECT_EQ(fired, (std::vector(3, waiting("S"))));
    EXPECT_EQ(time.runningTimers(), 0u);

    reminders.arm(waiting("S"), 60, 1);
    time.advance(60s);
    EXPECT_EQ(fired.size(), 4u);
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(ReminderManagerTest, JitterIsATenthOfTheIntervalAndAtMostFiveSeconds)
{
    const struct {
        std::int64_t interval;
        std::chrono::milliseconds longest;
    } cases[] = {{1, 1100ms}, {20, 22s}, {60, 65s}, {180, 185s}};
    for (const auto& c : cases) {
        system.random.next = 0;
        reminders.arm(waiting("S"), c.interval, 1);
        EXPECT_EQ(time.lastDelay(), std::chrono::seconds(c.interval));
        system.random.next = 1;
        reminders.arm(waiting("S"), c.interval, 1);
        EXPECT_EQ(time.lastDelay(), c.longest);
    }
    reminders.arm(waiting("S"), std::numeric_limits<std::int64_t>::max(), 1);
    EXPECT_GT(time.lastDelay(), 24h * 365);
}

TEST_F(ReminderManagerTest, ArmsNothingWithoutLimits)
{
    for (const std::int64_t interval : {std::int64_t{0}, std::int64_t{-1}})
        reminders.arm(waiting("S"), interval, 3);
    reminders.arm(waiting("S"), 60, 0);
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(ReminderManagerTest, PeriodsMissedInASleepAreOneTickAndTheRestKeepStep)
{
    reminders.arm(waiting("S"), 60, 9);
    time.advance(90s);
    ASSERT_EQ(fired.size(), 1u);
    time.sleep(240s); // 330 s: four periods together
    time.advance(1s);
    EXPECT_EQ(fired.size(), 2u);
    time.advance(28s); // 359 s
    EXPECT_EQ(fired.size(), 2u);
    time.advance(1s);
    EXPECT_EQ(fired.size(), 3u);
}

TEST_F(ReminderManagerTest, ANewWaitReplacesTheOldOne)
{
    reminders.arm(waiting("S"), 60, 2);
    time.advance(60s);
    EventPayload second = waiting("S");
    second.message = "again";
    reminders.arm(second, 60, 2);
    EXPECT_EQ(time.runningTimers(), 1u);
    time.advance(10min);
    EXPECT_EQ(fired, (std::vector{waiting("S"), second, second}));
}

TEST_F(ReminderManagerTest, MutedTicksDoNotCount)
{
    reminders.arm(waiting("S"), 60, 2);
    time.advance(60s);
    services.muting.setMuted(true);
    time.advance(5min);
    EXPECT_EQ(fired.size(), 1u);
    services.muting.setMuted(false);
    time.advance(5min);
    EXPECT_EQ(fired.size(), 2u);
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(ReminderManagerTest, AFinishedSessionIsNotRemindedForNinetySeconds)
{
    const struct {
        std::chrono::nanoseconds after;
        bool armed;
    } cases[] = {{30s, false}, {90s, false}, {90s + 1ns, true}, {100s, true}};
    for (const auto& c : cases) {
        reminders.markSettled(waiting("S"), time.instant());
        time.advance(c.after);
        reminders.arm(waiting("S"), 60, 1);
        EXPECT_EQ(time.runningTimers(), c.armed ? 1u : 0u) << c.after.count();
        reminders.arm(waiting("T"), 60, 1);
        EXPECT_EQ(time.runningTimers(), c.armed ? 2u : 1u) << "another session is not concerned";
        reminders.cancel("S");
        reminders.cancel("T");
    }
    reminders.markSettled(waiting("S"), time.instant());
    reminders.unsettle("S");
    reminders.arm(waiting("S"), 60, 1);
    EXPECT_EQ(time.runningTimers(), 1u);
}

TEST_F(ReminderManagerTest, FinishingEndsTheReminderOfEventsWithoutASessionToo)
{
    reminders.arm(waiting(std::nullopt), 60, 3);
    reminders.arm(waiting("S"), 60, 3);
    reminders.arm(waiting("T"), 60, 3);
    reminders.markSettled(waiting("S"), time.instant());
    time.advance(61s);
    EXPECT_EQ(fired, (std::vector{waiting("T")}));
}

TEST_F(ReminderManagerTest, MayBeChangedWhileAReminderFires)
{
    reminders.onFire = [&](const EventPayload& payload) {
        fired.push_back(payload);
        if (fired.size() == 1) reminders.arm(waiting("S"), 60, 1); // replaces the one that fires
        if (fired.size() == 2) reminders.cancel("S");
    };
    reminders.arm(waiting("S"), 60, 1);
    time.advance(60s);
    EXPECT_EQ(time.runningTimers(), 1u);
    time.advance(60s);
    EXPECT_EQ(fired.size(), 2u);
    EXPECT_EQ(time.runningTimers(), 0u);
}

}
