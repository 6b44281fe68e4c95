// SPDX-License-Identifier: MIT
#include "events/event_router.h"

#include "core/services.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

class EventRouterTest : public ::testing::Test {
protected:
    EventRouterTest()
    {
        store.updateEvent(CanonicalEvent::waitingInput, [](EventSetting& setting) { setting.speak = true; });
    }

    static EventPayload event(CanonicalEvent type, std::optional<std::string> session = "S")
    {
        return {.type = type, .provider = "claude", .cwd = "/home/me/proj", .session = std::move(session)};
    }
    static EventPayload waiting(std::optional<std::string> message = std::nullopt)
    {
        EventPayload payload = event(CanonicalEvent::waitingInput);
        payload.message = std::move(message);
        return payload;
    }
    void set(const std::function<void(AppSettings&)>& change) { store.update(change); }
    std::size_t alerts() const { return sounds.played.size(); }

    FakeSystem system;
    Services services{system.ports()};
    FakeTime& time = system.time;
    RecordingSounds& sounds = system.sounds;
    RecordingSpeech& speech = system.speech;
    RecordingNotificationCenter& center = system.center;
    SettingsStore& store = services.store;
    EventHistory& history = services.history;
    ReminderManager& reminders = services.reminders;
    EventRouter& router = services.router;
};

TEST_F(EventRouterTest, AlertsInEveryWayThatIsSwitchedOn)
{
    router.handle(waiting("Claude needs your permission"));
    ASSERT_EQ(history.entries().size(), 1u);
    EXPECT_EQ(english(history.entries()[0].displayTitle()), "Waiting for input — proj");
    EXPECT_EQ(sounds.names(), (std::vector<std::string>{"Funk"}));
    EXPECT_EQ(speech.spoken, (std::vector<RecordingSpeech::Utterance>{
                                 {"The agent is waiting for your input", std::nullopt}}));
    ASSERT_EQ(center.posted.size(), 1u);
    EXPECT_EQ(center.posted[0].title, "Waiting for input — proj");
    EXPECT_EQ(center.posted[0].body, "Claude needs your permission");
    EXPECT_EQ(center.posted[0].userInfo.at("cwd"), "/home/me/proj");

    set([](AppSettings& settings) {
        EventSetting& finished = *settings.setting(CanonicalEvent::finished);
        finished.showPopup = false;
        finished.soundId = "__silent__";
    });
    router.handle(event(CanonicalEvent::finished));
    EXPECT_EQ(history.entries().size(), 2u);
    EXPECT_EQ(alerts(), 1u);
    EXPECT_TRUE(center.posted.empty()); // it no longer waits
}

TEST_F(EventRouterTest, ComposesTheBannerFromWhatThereIs)
{
    EventPayload payload = event(CanonicalEvent::finished, "A");
    payload.cwd = std::nullopt;
    router.handle(payload);
    payload.session = "B";
    payload.title = "Build";
    payload.message = "All green";
    router.handle(payload);
    ASSERT_EQ(center.posted.size(), 2u);
    EXPECT_EQ(center.posted[0].title, "Finished");
    EXPECT_EQ(center.posted[0].body, "The agent finished responding and is idle.");
    EXPECT_EQ(center.posted[1].title, "Build");
    EXPECT_EQ(center.posted[1].body, "All green");
}

TEST_F(EventRouterTest, SpeaksTheUsersPhraseUnlessItIsBlank)
{
    const auto phrase = [&](const char* text) {
        store.updateEvent(CanonicalEvent::waitingInput, [&](EventSetting& setting) {
            setting.spokenPhrase = text;
            setting.voiceIdentifier = "Anna";
        });
        time.advance(6s);
        router.handle(waiting());
        return speech.spoken.back();
    };
    EXPECT_EQ(phrase(" Komm her! \n"), RecordingSpeech::Utterance("Komm her!", "Anna"));
    EXPECT_EQ(phrase("   "), RecordingSpeech::Utterance("The agent is waiting for your input", "Anna"));
}

TEST_F(EventRouterTest, DropsIdlePromptsButNoRequests)
{
    const struct {
        const char* message;
        bool alerts;
    } cases[] = {
        {"Claude is waiting for your input", false},
        {"CLAUDE IS WAITING FOR INPUT", false},
        {"Claude needs your permission to use Bash", true},
        {"Please confirm: waiting for input", true},
        {"Approve? Waiting for your input", true},
        {"Claude Code needs your approval for the plan", true},
        {"Anything else", true},
    };
    for (const auto& c : cases) {
        time.advance(1min);
        const std::size_t before = alerts();
        router.handle(waiting(c.message));
        EXPECT_EQ(alerts() - before, c.alerts ? 1u : 0u) << c.message;
        EXPECT_EQ(time.runningTimers(), c.alerts ? 1u : 0u) << c.message;
        reminders.cancel("S");
    }
    EventPayload finished = event(CanonicalEvent::finished);
    finished.message = "waiting for input"; // the filter is for waiting events alone
    router.handle(finished);
    EXPECT_EQ(history.entries()[0].event, CanonicalEvent::finished);
}

TEST_F(EventRouterTest, DropsRepeatsOfOneSessionsEventForFiveSeconds)
{
    const auto alertsFor = [&](const EventPayload& payload) {
        const std::size_t before = alerts();
        router.handle(payload);
        return alerts() - before;
    };
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished)), 1u);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished, "T")), 1u);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished, std::nullopt)), 1u);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished, std::nullopt)), 0u);
    EXPECT_EQ(alertsFor(waiting()), 1u);
    time.advance(3s);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished)), 0u);
    time.advance(2s - 1ns);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished)),
              0u); // a dropped one does not extend the five seconds
    time.advance(1ns);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished)), 1u);

    time.setDate(time.now() - 24h); // somebody sets the clock back
    time.advance(5s);
    EXPECT_EQ(alertsFor(event(CanonicalEvent::finished)), 1u);
}

TEST_F(EventRouterTest, AlertsForNothingThatIsMutedDisabledOrSilent)
{
    set([](AppSettings& settings) {
        settings.setting(CanonicalEvent::waitingInput)->enabled = false;
        settings.setting(CanonicalEvent::userActed)->enabled = true;
        settings.setting(CanonicalEvent::userActed)->soundId = "Tink";
    });
    router.handle(waiting());
    router.handle(event(CanonicalEvent::error));
    router.handle(event(CanonicalEvent::userActed));
    set([](AppSettings& settings) { settings.globalMuted = true; });
    router.handle(event(CanonicalEvent::finished));
    set([](AppSettings& settings) {
        settings.globalMuted = false;
        settings.events.clear();
    });
    router.handle(event(CanonicalEvent::finished));
    EXPECT_EQ(alerts(), 0u);
    EXPECT_TRUE(history.entries().empty());
    EXPECT_TRUE(center.posted.empty());
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(EventRouterTest, TestEventsAlertWithoutBeingRemembered)
{
    EventPayload test = waiting();
    test.isTest = true;
    router.handle(test);
    EXPECT_EQ(alerts(), 1u);
    services.actions.playSample();
    EXPECT_EQ(center.posted.back().title, "Test event");
    EXPECT_TRUE(history.entries().empty());
    time.advance(4min); // their reminders are remembered
    ASSERT_EQ(history.entries().size(), 1u);
    EXPECT_TRUE(history.entries()[0].isReminder);
}

TEST_F(EventRouterTest, RemindsUntilTheUserActs)
{
    router.handle(waiting());
    time.advance(181s);
    ASSERT_EQ(center.posted.size(), 2u);
    EXPECT_EQ(center.posted[1].title, "Still waiting — Waiting for input — proj");
    EXPECT_EQ(center.posted[1].body, "The agent is waiting for your input or a permission decision.");
    EXPECT_EQ(speech.spoken.size(), 2u);
    EXPECT_TRUE(history.entries()[0].isReminder);

    set([](AppSettings& settings) { settings.globalMuted = true; });
    time.advance(180s);
    EXPECT_EQ(alerts(), 2u);
    set([](AppSettings& settings) {
        settings.globalMuted = false;
        settings.setting(CanonicalEvent::waitingInput)->enabled = false;
    });
    time.advance(180s);
    EXPECT_EQ(alerts(), 2u); // counted, but not shown

    router.handle(event(CanonicalEvent::userActed));
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(EventRouterTest, UpdatesRemindersWhileMuted)
{
    router.handle(waiting());
    set([](AppSettings& settings) { settings.globalMuted = true; });
    router.handle(event(CanonicalEvent::finished));
    EXPECT_EQ(time.runningTimers(), 0u);

    set([](AppSettings& settings) { settings.globalMuted = false; });
    time.advance(30s);
    router.handle(waiting()); // settled: alerts, but does not remind
    EXPECT_EQ(time.runningTimers(), 0u);

    router.handle(event(CanonicalEvent::userActed)); // answered: the next wait reminds at once
    time.advance(6s);
    router.handle(waiting());
    EXPECT_EQ(time.runningTimers(), 1u);
}

TEST_F(EventRouterTest, ABannerThatSaysWaitingGoesAwayWhenItIsNoLongerTrue)
{
    const auto shownAfter = [&](CanonicalEvent type, const std::optional<std::string>& session) {
        time.advance(100s);
        center.posted.clear();
        for (const auto& each : {std::optional<std::string>("S"), std::optional<std::string>("T"), {}}) {
            EventPayload payload = event(CanonicalEvent::waitingInput, each);
            payload.cwd = each.value_or("-");
            router.handle(payload);
        }
        time.advance(185s); // each has a reminder's banner, too
        services.actions.setMuted(true);
        router.handle(event(type, session));
        services.actions.setMuted(false);
        std::string shown;
        for (const NotificationRequest& banner : center.posted)
            shown += banner.userInfo.at("cwd");
        return shown;
    };
    EXPECT_EQ(shownAfter(CanonicalEvent::userActed, "S"), "T-T-");
    EXPECT_EQ(shownAfter(CanonicalEvent::userActed, std::nullopt), "STST");
    EXPECT_EQ(shownAfter(CanonicalEvent::finished, "S"), "TT"); // like the reminders
    EXPECT_EQ(shownAfter(CanonicalEvent::error, "S"), "ST-ST-");
    center.posted.clear();
    router.handle(event(CanonicalEvent::finished));
    router.handle(event(CanonicalEvent::userActed));
    EXPECT_EQ(center.posted.size(), 1u); // it says something that stays true
}

TEST_F(EventRouterTest, RemindsOnlyWhereTheUserWantsIt)
{
    set([](AppSettings& settings) { settings.remindersEnabled = false; });
    router.handle(waiting());
    EXPECT_EQ(time.runningTimers(), 0u);
    EXPECT_EQ(alerts(), 1u);
}

TEST_F(EventRouterTest, AMuteForAnHourEndsByItselfOrByTheSwitch)
{
    Muting& muting = services.muting;
    int told = 0;
    const Subscription subscription = muting.onChange([&] { ++told; });
    const auto files = system.files.contents;
    services.actions.muteForAnHour();
    time.setDate(time.now() + 24h); // somebody sets the clock
    time.sleep(59min);
    EXPECT_EQ(muting.mutedUntil(), time.now() + 1min);
    router.handle(event(CanonicalEvent::finished));
    EXPECT_EQ(alerts(), 0u);
    EXPECT_EQ(system.files.contents, files);
    time.advance(1min);
    EXPECT_EQ(muting.mutedUntil(), std::nullopt);
    router.handle(event(CanonicalEvent::finished));
    EXPECT_EQ(alerts(), 1u);
    EXPECT_EQ(told, 2);

    services.actions.muteForAnHour();
    services.actions.setMuted(true);
    time.advance(2h);
    EXPECT_TRUE(muting.isMuted() && !muting.mutedUntil());
    services.actions.muteForAnHour();
    EXPECT_TRUE(muting.isMuted() && !store.settings().globalMuted);
    services.actions.setMuted(false);
    EXPECT_TRUE(!muting.isMuted() && !muting.mutedUntil());
    EXPECT_EQ(time.runningTimers(), 0u);
}

TEST_F(EventRouterTest, StaysBoundedInAFlood)
{
    for (int i = 0; i < 20'000; ++i) {
        EventPayload payload = waiting();
        payload.session = std::to_string(i);
        router.handle(payload);
    }
    EXPECT_EQ(time.runningTimers(), ReminderManager::maxPending);
    EXPECT_EQ(history.entries().size(), EventHistory::capacity);
}

}
