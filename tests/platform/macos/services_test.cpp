// SPDX-License-Identifier: MIT
#include "core/services.h"

#include "fakes/apple_event_manager.h"
#include "fakes/login_item.h"
#include "fakes/notification_center.h"
#include "fakes/run_loop.h"
#include "fakes/sounds.h"
#include "fakes/speech.h"
#include "fakes/user_environment.h"
#include "fakes/user_notifications.h"
#include "fakes/workspace.h"
#include "mac_clock.h"
#include "platform/macos/appkit_activation.h"
#include "platform/macos/appkit_system_sounds.h"
#include "platform/macos/appkit_workspace.h"
#include "platform/macos/apple_events.h"
#include "platform/macos/avf_speech_synthesizer.h"
#include "platform/macos/bundle_resources.h"
#include "platform/macos/foundation_user_folders.h"
#include "platform/macos/foundation_user_locale.h"
#include "platform/macos/run_loop_timers.h"
#include "platform/macos/service_management_login_item.h"
#include "platform/macos/user_notification_center.h"
#include "platform/posix/posix_files.h"
#include "support/english_translator.h"
#include "support/fixed_random.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace chimewell::test {

namespace {

using namespace std::chrono_literals;

/// Everything behind the interface, on the adapters of macOS.
class ServicesOnMacTest : public ::testing::Test {
protected:
    ServicesOnMacTest()
    {
        mac::banners().status = 2; // authorized
        mac::userEnvironment().home = home.path();
        mac::userEnvironment().applicationSupport = home.path() / "Library/Application Support";
        mac::userEnvironment().resources["chimewell-hook"] = home.write("Chimewell.app/chimewell-hook", "");
        mac::desktop().installed["net.kovidgoyal.kitty"] = "/Applications/kitty.app";
    }

    void launch()
    {
        services = std::make_unique<Services>(Ports{.files = files,
                                                    .clock = clock,
                                                    .timers = timers,
                                                    .random = random,
                                                    .locale = locale,
                                                    .translator = translator,
                                                    .folders = folders,
                                                    .resources = resources,
                                                    .sounds = systemSounds,
                                                    .speech = speech,
                                                    .notifications = center,
                                                    .workspace = workspace,
                                                    .loginItem = loginItem,
                                                    .activation = activation},
                                              folders.applicationSupport().value_or(home.path() / "nowhere") /
                                                  "Chimewell");
        events = std::make_unique<AppleEvents>(AppleEvents::Handlers{
            .open = [this](const auto& url) { services->urls.handleURLEvent(url); }, .activate = [] {}});
        mac::applicationWillFinishLaunching();
        services->delegate.applicationDidFinishLaunching();
        settle();
    }
    void settle() const
    {
        mac::banners().giveAnswers();
        mac::runLoop().turn();
    }
    static void open(const std::string& url)
    {
        mac::deliver({.eventClass = 'GURL', .eventId = 'GURL', .directObject = url});
    }

    TemporaryFolder home;
    PosixFiles files;
    MacClock clock;
    FixedRandom random;
    RunLoopTimers timers{clock};
    FoundationUserLocale locale;
    EnglishTranslator translator;
    FoundationUserFolders folders;
    BundleResources resources;
    AppKitSystemSounds systemSounds;
    AvfSpeechSynthesizer speech;
    UserNotificationCenter center;
    AppKitWorkspace workspace;
    ServiceManagementLoginItem loginItem;
    AppKitActivation activation;
    std::unique_ptr<Services> services;
    std::unique_ptr<AppleEvents> events;
};

}

TEST_F(ServicesOnMacTest, AnEventAlertsAndAClickOnItsBannerLeadsBack)
{
    launch();
    EXPECT_EQ(services->notifications.status(), AuthStatus::authorized);
    EXPECT_EQ(mac::applicationRecord(), std::vector<std::string>{"accessory"});
    services->store.updateEvent(CanonicalEvent::finished, [](EventSetting& setting) {
        setting.soundId = "Glass";
        setting.showPopup = setting.speak = true;
        setting.spokenPhrase = "Fertig";
    });
    open("chimewell://event?type=finished&provider=claude&session=s1&term=kitty&cwd=" + home.path().string());

    ASSERT_EQ(mac::sounds().played.size(), 1u);
    EXPECT_EQ(mac::sounds().played[0].name, "Glass");
    ASSERT_EQ(mac::speech().spoken.size(), 1u);
    EXPECT_EQ(mac::speech().spoken[0].text, "Fertig");
    ASSERT_EQ(mac::banners().posted.size(), 1u);
    EXPECT_EQ(services->history.entries().size(), 1u);
    EXPECT_TRUE(mac::desktop().asked.empty());

    EXPECT_EQ(mac::banners().respond({mac::defaultActionIdentifier(), mac::banners().posted[0].userInfo}), 1);
    mac::runLoop().turn();
    EXPECT_EQ(mac::desktop().asked, std::vector<std::string>{"open /Applications/kitty.app activating"});
}

TEST_F(ServicesOnMacTest, AWaitingSessionIsRecalledUntilTheUserActs)
{
    launch();
    services->store.update([](AppSettings& settings) {
        settings.remindersEnabled = true;
        settings.reminderIntervalSeconds = 60;
    });
    open("chimewell://event?type=waiting_input&provider=codex&session=s2");
    const std::size_t first = mac::sounds().played.size();
    ASSERT_EQ(first, 1u);
    mac::runLoop().advance(70s);
    EXPECT_EQ(mac::sounds().played.size(), 2u);
    clock.sleep(1h);
    mac::runLoop().advance(1s);
    EXPECT_EQ(mac::sounds().played.size(), 3u); // one for all that were missed
    open("chimewell://event?type=user_acted&provider=codex&session=s2");
    mac::runLoop().advance(1h);
    EXPECT_EQ(mac::sounds().played.size(), 3u);
}

TEST_F(ServicesOnMacTest, KeepsItsFilesInTheUsersLibrary)
{
    const std::string folder = "Library/Application Support/Chimewell";
    home.write(folder + "/dormant", "before");
    launch();
    mac::runLoop().advance(1s); // started by hand
    EXPECT_EQ(home.names(folder), std::vector<std::string>{"settings.json"});
    EXPECT_EQ(services->actions.setLaunchAtLogin(true), std::nullopt);
    EXPECT_EQ(mac::loginItem().status, 1);
    EXPECT_NE(home.read(folder + "/settings.json").find("\"launchAtLogin\": true"), std::string::npos);
    services->delegate.applicationWillTerminate(QuitReason::user);
    EXPECT_EQ(home.names(folder), (std::vector<std::string>{"dormant", "settings.json"}));
}

}
