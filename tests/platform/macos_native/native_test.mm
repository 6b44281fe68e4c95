// SPDX-License-Identifier: MIT
// What the adapters get from macOS itself. Needs a Mac with somebody logged in at its screen.
#include "platform/macos/appkit_activation.h"
#include "platform/macos/appkit_system_sounds.h"
#include "platform/macos/avf_speech_synthesizer.h"
#include "platform/macos/foundation_folders.h"
#include "platform/macos/foundation_user_locale.h"
#include "platform/macos/run_loop_timers.h"
#include "platform/macos/status_item.h"
#include "platform/macos/system_symbols.h"
#include "platform/macos/user_notification_center.h"
#include "platform/posix/posix_clock.h"
#include "values/shared_names.h"
#include "values/sound_option.h"

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// Runs the main run loop until `condition` holds. False when it still does not after half a minute.
template<typename Condition>
bool waitUntil(Condition condition)
{
    const PosixClock clock;
    const Instant end = clock.instant() + 30s;
    while (!condition()) {
        if (clock.instant() > end) return false;
        [NSRunLoop.mainRunLoop runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
    }
    return true;
}

TEST(RunLoopTimers, FireInOrderUnlessTheyAreStopped)
{
    const PosixClock clock;
    RunLoopTimers timers(clock);
    std::vector<int> fired;
    const auto late = timers.once(60ms, [&] { fired.push_back(60); });
    const auto early = timers.once(20ms, [&] { fired.push_back(20); });
    auto stopped = timers.once(30ms, [&] { fired.push_back(30); });
    stopped.reset();
    const auto atOnce = timers.once(-1s, [&] { fired.push_back(0); });
    const Instant start = clock.instant();
    EXPECT_TRUE(fired.empty());
    EXPECT_TRUE(waitUntil([&] { return fired.size() == 3; }));
    EXPECT_EQ(fired, (std::vector{0, 20, 60}));
    EXPECT_GE(clock.instant() - start, 50ms); // they are set by the same clock
}

TEST(FoundationUserLocale, WritesTimes)
{
    const FoundationUserLocale locale;
    const Date now = PosixClock().now();
    const auto number = [](const std::string& text) {
        std::string digits;
        std::ranges::copy_if(text, std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
        return digits;
    };
    EXPECT_GE(number(locale.shortTime(now)).size(), 3U) << locale.shortTime(now);
    EXPECT_EQ(number(locale.relativeTime(now - 17min, now)), "17") << locale.relativeTime(now - 17min, now);
    EXPECT_EQ(number(locale.shortRelativeTime(now - 17min, now)), "17");
}

TEST(FoundationUserFolders, AreWhereTheHelperLooks)
{
    const FoundationUserFolders folders;
    EXPECT_EQ(folders.home(), std::getenv("HOME"));
    EXPECT_EQ(folders.applicationSupport(), folders.home() / macApplicationSupport);
    EXPECT_TRUE(fs::is_directory(folders.home() / macApplicationSupport));
}

TEST(AvfSpeechSynthesizer, ListsVoicesThatTellTheirLanguage)
{
    std::vector<Voice> voices;
    AvfSpeechSynthesizer().listVoices([&](auto found) { voices = std::move(found); });
    EXPECT_FALSE(voices.empty());
    for (const Voice& voice : voices)
        EXPECT_TRUE(!voice.identifier.empty() && !voice.name.empty() && voice.language.size() >= 2)
            << voice.identifier;
}

TEST(AppKitSystemSounds, HaveEveryNameAndNoOther)
{
    AppKitSystemSounds sounds;
    for (const std::string_view name : playableSoundNames)
        EXPECT_TRUE(sounds.named(name)) << name;
    EXPECT_FALSE(sounds.named("Chimewell has none of this name"));
}

TEST(SystemSymbols, HaveADrawingForEachOfOurs)
{
    for (const auto& entry : fs::directory_iterator(CHIMEWELL_SYMBOLS)) {
        const fs::path file = entry.path();
        if (file.extension() != ".svg") continue;
        const auto drawn = systemSymbol(file.stem().native(), 32);
        ASSERT_TRUE(drawn) << file.stem();
        ASSERT_EQ(drawn->alpha.size(), 32U * 32U);
        EXPECT_GT(std::ranges::max(drawn->alpha), 128) << file.stem();
        EXPECT_LT(std::ranges::min(drawn->alpha), 128) << file.stem();
    }
    EXPECT_FALSE(systemSymbol("chimewell.has.none.of.this.name", 32));
}

TEST(StatusItem, HasAPlaceInTheMenuBar)
{
    AppKitActivation().setPolicy(ActivationPolicy::accessory);
    StatusItem item;
    item.show({.isArmed = true, .label = "Chimewell's test", .menu = {}});
    EXPECT_TRUE(waitUntil([&] { return item.place().width > 0 && item.place().height > 0; }));
}

TEST(UserNotificationCenter, IsUnavailableOutsideABundle)
{
    EXPECT_FALSE(UserNotificationCenter().isAvailable());
}

}
}
