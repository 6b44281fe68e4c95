// SPDX-License-Identifier: MIT
#include "alerts/alert_audio.h"
#include "alerts/notification_service.h"
#include "values/sound_option.h"
#include "values/texts.h"

#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

TEST(SoundPlayerTest, LetsTheNewestFourSound)
{
    RecordingSounds sounds;
    SoundPlayer player(sounds);
    for (const char* name : {"Basso", "Blow", "Bottle", "Frog", "Funk"})
        player.play(name);
    EXPECT_FALSE(sounds.played[0]->playing);
    for (int i = 1; i < 5; ++i)
        EXPECT_TRUE(sounds.played[static_cast<std::size_t>(i)]->playing) << i;

    sounds.played[2]->playing = false; // came to its end: there is room again
    player.play("Glass");
    EXPECT_TRUE(sounds.played[1]->playing);
}

TEST(SoundPlayerTest, PlaysOnlyExactNamesThatExist)
{
    RecordingSounds sounds;
    sounds.missing = {"Pop"};
    SoundPlayer player(sounds);
    for (const char* id : {"__silent__", "silent", "", "tink", "Tink ", "Pop"})
        player.play(id);
    EXPECT_TRUE(sounds.played.empty());
    for (const auto& option : SoundOption::all())
        player.play(option.id);
    EXPECT_EQ(sounds.played.size(), 13u); // all but the silent one and the missing one
}

TEST(VoiceAnnouncerTest, OffersTheVoicesOfTheSpokenLanguage)
{
    RecordingSpeech speech;
    EnglishTranslator translator;
    const VoiceAnnouncer voice(speech, translator);
    speech.voices = {
        {"1", "Zoe", "en-US"}, {"2", "Anna", "de-DE"}, {"3", "Adam", "en-US"}, {"4", "Bea", "en-GB"}};
    const auto offered = [&](const char* language) {
        translator.tag = language;
        std::string names;
        voice.listVoices([&](const std::vector<Voice>& voices) {
            for (const Voice& each : voices)
                names += each.name + " ";
        });
        return names;
    };
    EXPECT_EQ(offered("en"), "Bea Adam Zoe ");
    EXPECT_EQ(offered("de-AT"), "Anna ");
    EXPECT_EQ(offered("fr"), "Anna Bea Adam Zoe "); // none: all of them
}

class NotificationServiceTest : public ::testing::Test {
protected:
    RecordingNotificationCenter center;
    FixedRandom random;
    const EnglishTranslator translator;
    NotificationService service{center, random, translator};
};

TEST_F(NotificationServiceTest, FollowsTheSystemAndTellsOfChangesOnly)
{
    int told = 0;
    const Subscription subscription = service.onChange([&] { ++told; });
    service.configure();
    center.changed();
    EXPECT_EQ(told, 1);
    center.available = false;
    center.changed();
    EXPECT_EQ(service.status(), AuthStatus::unavailable);
    EXPECT_FALSE(service.post(texts::finished, texts::finishedBody, std::nullopt, std::nullopt));
    EXPECT_TRUE(center.posted.empty());
    EXPECT_EQ(told, 2);
    center.available = true;
    center.beforeAnswer = [&] { center.available = false; }; // it ends while it is asked
    center.changed();
    EXPECT_EQ(service.status(), AuthStatus::unavailable);
}

TEST_F(NotificationServiceTest, PostsBannersThatNeverReplaceOneAnother)
{
    service.configure();
    EXPECT_EQ(center.category.identifier, "AGENT_EVENT");
    EXPECT_EQ(center.category.actionIdentifier, "FOCUS_SESSION");
    EXPECT_EQ(center.category.actionTitle, "Open Session");

    EXPECT_TRUE(service.post(texts::finished, texts::finishedBody, "/proj", std::nullopt));
    EXPECT_TRUE(service.post(texts::finished, texts::finishedBody, std::nullopt, "kitty"));
    EXPECT_TRUE(service.post(std::string("gpj\n\u202Eexe\xFF"),
                             {texts::stillWaiting, {std::string(1 << 20, 'x')}}, {}, {}));
    ASSERT_EQ(center.posted.size(), 3u);
    EXPECT_EQ(center.posted[2].title, "gpj exe\uFFFD");
    EXPECT_EQ(center.posted[2].body.size(), 4096u);
    EXPECT_NE(center.posted[0].identifier, center.posted[1].identifier);
    EXPECT_EQ(center.posted[0].categoryIdentifier, "AGENT_EVENT");
    EXPECT_EQ(center.posted[0].userInfo, (std::map<std::string, std::string>{{"cwd", "/proj"}}));
    EXPECT_EQ(center.posted[1].userInfo, (std::map<std::string, std::string>{{"term", "kitty"}}));
}

}
