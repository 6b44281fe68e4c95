// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include "events/event_router.h"
#include "support/fake_time.h"
#include "support/fixed_random.h"
#include "support/memory_files.h"
#include "support/plain_locale.h"
#include "support/recording_notification_center.h"
#include "support/recording_sounds.h"
#include "support/recording_speech.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace chimewell::test {

using namespace std::chrono_literals;

class AppDelegateTest : public ::testing::Test {
protected:
    static constexpr char markerFile[] = "/data/Chimewell/dormant";
    bool markerStands() const { return files.contents.contains(markerFile); }

    FakeTime time;
    MemoryFiles files;
    FixedRandom random;
    RecordingSounds sounds;
    RecordingSpeech speech;
    RecordingNotificationCenter center;
    PlainLocale locale;

    SettingsStore store{files, "/data/Chimewell"};
    SoundPlayer sound{sounds};
    VoiceAnnouncer voice{speech, locale};
    NotificationService notifications{center, random};
    EventHistory history{time, random};
    ReminderManager reminders{{.store = store, .clock = time, .timers = time, .random = random}};
    EventRouter router{{.store = store,
                        .history = history,
                        .sound = sound,
                        .notifications = notifications,
                        .voice = voice,
                        .reminders = reminders,
                        .clock = time}};
    URLEventHandler urls{router};
    DormantMarker marker{files, time, "/data/Chimewell"};
    AppDelegate delegate{{.urls = urls, .notifications = notifications, .marker = marker, .timers = time}};
};

TEST_F(AppDelegateTest, StartedByHandClearsTheMarkerOnce)
{
    files.contents[markerFile] = "before";
    delegate.applicationDidFinishLaunching();
    time.advance(499ms);
    EXPECT_TRUE(markerStands());
    time.advance(1ms);
    EXPECT_FALSE(markerStands());
    EXPECT_EQ(time.runningTimers(), 0u); // no wake-up is left behind
}

TEST_F(AppDelegateTest, StartedByAnyUrlKeepsTheMarker)
{
    for (const auto& url : {std::optional<std::string>("chimewell://event?type=finished&provider=claude"),
                            std::optional<std::string>("nonsense"), std::optional<std::string>()}) {
        URLEventHandler fresh{router};
        AppDelegate started{
            {.urls = fresh, .notifications = notifications, .marker = marker, .timers = time}};
        files.contents[markerFile] = "before";
        fresh.handleURLEvent(url);
        started.applicationDidFinishLaunching();
        time.advance(1s);
        EXPECT_TRUE(fresh.didHandleLaunchEvent());
        EXPECT_TRUE(markerStands());
    }
    EXPECT_EQ(history.entries().size(), 1u); // only the one that was an event alerted
}

TEST_F(AppDelegateTest, OnlyTheUsersQuitLeavesTheMarker)
{
    delegate.applicationWillTerminate(QuitReason::sessionEnd);
    EXPECT_FALSE(markerStands());
    delegate.applicationWillTerminate(QuitReason::user);
    EXPECT_EQ(files.contents.at(markerFile), "2026-03-01T14:00:00Z");

    files.contents.erase(markerFile);
    files.full = true;
    delegate.applicationWillTerminate(QuitReason::user); // nothing to be done about it
    EXPECT_FALSE(markerStands());
}

}
